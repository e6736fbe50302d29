#include "xml/documents.h"

#include <array>
#include <cstdint>
#include <limits>
#include <random>
#include <string_view>

namespace bench {
namespace {

constexpr std::size_t any = std::numeric_limits<std::size_t>::max();
constexpr std::size_t small = 100'000;

// Appends to a document, and counts what it appends.
class writer {
 public:
  writer(xml_extent extent, xml_query query) : extent_(extent) {
    document_.query = query;
    document_.text = "<?xml version=\"1.0\"?>\n";
  }

  // Tells whether another unit is wanted.
  bool next_unit() { return document_.text.size() < extent_.bytes && units_++ < extent_.units; }
  std::size_t unit() const { return units_ - 1; }

  // Appends `<name`, below `level` others.
  writer& begin(std::size_t level, std::string_view name) {
    document_.text.append(level * 3, ' ').append("<").append(name);
    ++document_.elements;
    named_ = name == document_.query.name;
    return *this;
  }
  writer& attribute(std::string_view key, std::string_view value) {
    document_.text.append(" ").append(key).append("=\"").append(value).append("\"");
    if (named_ && key == document_.query.key && value == document_.query.value) {
      ++document_.matches;
    }
    return *this;
  }
  writer& raw(std::string_view text) {
    document_.text.append(text);
    return *this;
  }
  // A number below `limit`.
  std::size_t random(std::size_t limit) { return engine_() % limit; }

  xml_document finish(std::string_view closing) {
    raw(closing);
    return std::move(document_);
  }

 private:
  xml_extent extent_;
  xml_document document_;
  std::size_t units_ = 0;
  bool named_ = false;
  std::mt19937 engine_{1};
};

std::string numbered(const char* prefix, std::size_t number) {
  return prefix + std::to_string(number);
}

xml_document make_extension(xml_extent extent) {
  constexpr std::array types{"int32", "double", "string", "bool"};
  constexpr std::size_t members = 8;
  writer out(extent, {"member", "type", "double"});
  out.begin(0, "extension").attribute("name", "benchmark").raw(">\n");
  while (out.next_unit()) {
    out.begin(1, "data_type").attribute("name", numbered("type", out.unit())).raw(">\n");
    for (std::size_t member = 0; member < members; ++member) {
      out.begin(2, "member").attribute("name", numbered("member", member));
      out.attribute("type", types[out.random(types.size())]);
      out.attribute("min", numbered("-", out.random(100'000)));
      out.attribute("max", std::to_string(out.random(100'000))).raw("/>\n");
    }
    out.raw("   </data_type>\n");
  }
  return out.finish("</extension>\n");
}

void write_data(writer& out, const char* key, std::string_view text) {
  out.begin(3, "data").attribute("key", key).raw(">").raw(text).raw("</data>\n");
}

// A node, and three edges to earlier nodes.
xml_document make_graph(xml_extent extent) {
  constexpr std::size_t edges = 3;
  writer out(extent, {"data", "key", "label"});
  out.begin(0, "graphml").raw(">\n");
  out.begin(1, "graph").attribute("id", "G").attribute("edgedefault", "directed").raw(">\n");
  while (out.next_unit()) {
    const std::size_t node = out.unit();
    out.begin(2, "node").attribute("id", numbered("n", node)).raw(">\n");
    write_data(out, "label", numbered("Person number ", node));
    write_data(out, "age", std::to_string(out.random(100)));
    out.raw("      </node>\n");
    for (std::size_t edge = 0; edge < edges; ++edge) {
      out.begin(2, "edge").attribute("id", numbered("e", node * edges + edge));
      out.attribute("source", numbered("n", node));
      out.attribute("target", numbered("n", out.random(node + 1))).raw(">\n");
      write_data(out, "weight", "0." + std::to_string(out.random(100'000)));
      out.raw("      </edge>\n");
    }
  }
  return out.finish("   </graph>\n</graphml>\n");
}

xml_document make_text(xml_extent extent) {
  constexpr std::array words{"edge",  "of",       "the",        "graph",  "connects", "two",
                             "nodes", "whenever", "neighbours", "appear", "together", "in",
                             "a",     "chapter",  "and",        "so"};
  constexpr std::array languages{"en", "fr", "de", "it"};
  constexpr std::size_t shortest = 1'000;
  constexpr std::size_t longest = 50'000;
  constexpr std::size_t line = 80;
  writer out(extent, {"note", "language", "fr"});
  out.begin(0, "notes").raw(">\n");
  while (out.next_unit()) {
    out.begin(1, "note").attribute("id", numbered("n", out.unit()));
    out.attribute("language", languages[out.random(languages.size())]).raw(">");
    const std::size_t length = shortest + out.random(longest - shortest);
    std::string text = "Once";
    for (std::size_t begin = 0; text.size() < length;) {
      const bool full = text.size() - begin > line;
      begin = full ? text.size() : begin;
      text.append(full ? "\n" : " ").append(words[out.random(words.size())]);
    }
    out.raw(text).raw("</note>\n");
  }
  return out.finish("</notes>\n");
}

xml_document make_deep(xml_extent extent) {
  constexpr std::string_view closing = "</level>\n";
  constexpr std::size_t kinds = 8;
  // Half of the bytes are those of the start tags.
  extent.bytes = extent.bytes == any ? any : extent.bytes * 2 / 3;
  writer out(extent, {"level", "kind", "k3"});
  out.begin(0, "deep").raw(">\n");
  std::size_t levels = 0;
  for (; out.next_unit(); ++levels) {
    out.begin(0, "level").attribute("kind", numbered("k", out.random(kinds))).raw(">\n");
  }
  for (; levels > 0; --levels) {
    out.raw(closing);
  }
  return out.finish("</deep>\n");
}

xml_document make_wide(xml_extent extent) {
  constexpr std::size_t kinds = 8;
  writer out(extent, {"entry", "kind", "k3"});
  out.begin(0, "wide").raw(">\n");
  while (out.next_unit()) {
    out.begin(1, "entry").attribute("id", numbered("e", out.unit()));
    out.attribute("kind", numbered("k", out.random(kinds))).raw("/>\n");
  }
  return out.finish("</wide>\n");
}

}  // namespace

const std::vector<xml_document_kind>& xml_document_kinds() {
  static const std::vector<xml_document_kind> kinds{
      {"extension", {small, any}, {any, 200'000}, false, make_extension},
      {"graph", {small, any}, {50'000'000, any}, false, make_graph},
      {"text", {small, any}, {20'000'000, any}, false, make_text},
      {"deep", {small, any}, {any, 1'000'000}, true, make_deep},
      {"wide", {small, any}, {any, 1'000'000}, false, make_wide},
  };
  return kinds;
}

}  // namespace bench
