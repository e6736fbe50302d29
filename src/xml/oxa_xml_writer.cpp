#include "xml/oxa_xml_writer.h"

#include <ostream>

#include "xml/xml_escape.h"

namespace oxa {
namespace {

void dump_tab(int level, std::string& line) {
  if (level > 0) {
    line.append(static_cast<std::size_t>(level) * 3, ' ');
  }
}

void write_attribute(const xml_attribute& attribute, std::string& line) {
  line.append("  ").append(attribute.key.c_str()).append("=\"");
  line.append(attribute.value.c_str()).push_back('"');
}

// Kept: "id" comes first, and values are written as they are
// (ElementDumpTest.TheIdComesFirst, ElementDumpTest.ValuesAreNotEscaped).
void write_attributes(const xml_attributes& attributes, std::string& line) {
  const xml_attribute* const id = attributes.find("id");
  if (id != nullptr) {
    write_attribute(*id, line);
  }
  for (const xml_attribute& attribute : attributes) {
    if (&attribute != id) {
      write_attribute(attribute, line);
    }
  }
}

void write_end_tag(const oxa_xml_element& element, std::string& line) {
  line.append("</").append(element.name()).append(">\n");
}

}  // namespace

// Kept: the children of an element with a text are not written
// (ElementDumpTest.ATextHidesTheChildren).
bool write_opening(const oxa_xml_element& element, int level, std::string& line) {
  const bool declaration = same_text(element.name(), "xml");
  if (declaration) {
    line += "<?xml";
  } else {
    dump_tab(level, line);
    line.append("<").append(element.name());
  }
  write_attributes(element.attributes(), line);
  if (*element.text() != '\0') {
    line += '>';
    append_escaped(element.text(), line);
    write_end_tag(element, line);
    return false;
  }
  if (element.child_count() == 0) {
    line += declaration ? "?>\n" : "/>\n";
    return false;
  }
  line += ">\n";
  return true;
}

void write_closing(const oxa_xml_element& element, int level, std::string& line) {
  dump_tab(level, line);
  write_end_tag(element, line);
}

}  // namespace oxa

void oxa_xml_element::dump(std::ostream& os, int& level) {
  std::string line;
  oxa::write_element(*this, level, line, [&] {
    os.write(line.data(), static_cast<std::streamsize>(line.size()));
    os.flush();
    line.clear();
  });
}
