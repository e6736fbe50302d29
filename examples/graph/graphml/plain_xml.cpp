#include "plain_xml.h"

#include <graph_plugin.h>
#include <oxa/sdk/utf8.h>

#include <algorithm>

#include "entities.h"
#include "xml_declaration.h"

namespace graph {
namespace {

constexpr std::string_view blanks = " \t\r\n";
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

bool is_blank(std::string_view text) {
  return text.find_first_not_of(blanks) == std::string_view::npos;
}

bool is_name_start(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':';
}

bool is_name(char c) { return is_name_start(c) || (c >= '0' && c <= '9') || c == '-' || c == '.'; }

// Elements whose text counts even when it is blank.
bool keeps_blanks(std::string_view name) {
  return name == "data" || name == "default" || name == "desc";
}

std::string in_brackets(std::string_view name) { return "<" + std::string(name) + ">"; }

class Rewriter {
 public:
  explicit Rewriter(std::string_view xml) : xml_(xml) {}

  PlainXml run() {
    check_characters();
    skip(byte_order_mark);
    plain_.text.reserve(xml_.size());
    while (position_ < xml_.size()) {
      const std::size_t markup = std::min(xml_.find('<', position_), xml_.size());
      take_text(markup);
      if (position_ < xml_.size()) {
        take_markup();
      }
    }
    if (!open_.empty()) {
      malformed("ends within " + in_brackets(open_.back().name) + " of line " +
                std::to_string(open_.back().line) + "; get the whole file");
    }
    if (plain_.lines.empty()) {
      malformed("ends a file without an element; write <graphml>");
    }
    return std::move(plain_);
  }

 private:
  struct Open {
    std::string_view name;
    std::size_t line;
    bool has_children;
  };

  static constexpr std::size_t no_level = static_cast<std::size_t>(-1);

  // Counts on from where the last call came to.
  std::size_t line() {
    line_ +=
        static_cast<std::size_t>(std::count(xml_.data() + counted_, xml_.data() + position_, '\n'));
    counted_ = position_;
    return line_;
  }

  [[noreturn]] void malformed(const std::string& what) {
    throw Failure(E_INVALIDDATA, "line " + std::to_string(line()) + " " + what);
  }

  [[noreturn]] void incomplete(const std::string& where) {
    position_ = xml_.size();
    malformed("ends within " + where + "; get the whole file");
  }

  bool skip(std::string_view token) {
    const bool there = xml_.substr(position_, token.size()) == token;
    position_ += there ? token.size() : 0;
    return there;
  }

  void skip_blanks() {
    position_ = std::min(xml_.find_first_not_of(blanks, position_), xml_.size());
  }

  // Skips up to and with `end`, and returns what is in front of it.
  std::string_view skip_through(std::string_view end, const char* where) {
    const std::size_t found = xml_.find(end, position_);
    if (found == std::string_view::npos) {
      incomplete(where);
    }
    const std::string_view content = xml_.substr(position_, found - position_);
    position_ = found + end.size();
    return content;
  }

  void check_characters() {
    for (std::size_t next = 0; next < xml_.size();) {
      const std::size_t begin = next;
      const char32_t code = oxa::decode_utf8(xml_, next);
      if (!allowed_in_xml(code)) {
        position_ = begin;
        malformed(code == oxa::not_utf8 ? "is not UTF-8 text; save the file as UTF-8"
                                        : "has a character that no XML file holds; remove it");
      }
    }
  }

  std::string_view take_name() {
    const std::size_t begin = position_;
    if (position_ < xml_.size() && is_name_start(xml_[position_])) {
      while (position_ < xml_.size() && is_name(xml_[position_])) {
        ++position_;
      }
    }
    if (position_ == xml_.size()) {
      incomplete("a tag");
    }
    if (static_cast<unsigned char>(xml_[position_]) >= 0x80) {
      malformed(
          "has a name with a character that is not of ASCII, which is not read here; rename it");
    }
    if (begin == position_) {
      malformed("has a tag that is not well-formed; write < as &lt; where it begins none");
    }
    if (position_ - begin > longest_value) {
      malformed("has a name of more than " + std::to_string(longest_value) + " bytes; shorten it");
    }
    return xml_.substr(begin, position_ - begin);
  }

  void take_markup() {
    const std::size_t begin = position_;
    if (skip("<?")) {
      const std::string_view content = skip_through("?>", "<?");
      if (declares_other_encoding(content)) {
        position_ = begin;
        malformed("declares an encoding other than UTF-8; save the file as UTF-8");
      }
    } else if (skip("<!--")) {
      skip_through("-->", "a comment");
    } else if (skip("<![CDATA[")) {
      malformed("has a CDATA section, which is not read here; write its text with &lt; and &amp;");
    } else if (skip("<!")) {
      malformed(
          "declares a document type or is cut short; remove <!DOCTYPE with all that is in it");
    } else if (skip("</")) {
      take_end_tag();
    } else {
      ++position_;
      take_start_tag();
    }
  }

  void take_start_tag() {
    const std::size_t start_line = line();
    const std::string_view name = take_name();
    begin_child(start_line);
    open_.push_back({name, start_line, false});
    if (!in_markup()) {
      plain_.lines.push_back(static_cast<std::uint32_t>(start_line));
      (plain_.text += '<') += name;
    }
    take_attributes();
    if (skip("/")) {
      if (!skip(">")) {
        tag_fault();
      }
      end_element();
    } else if (!skip(">")) {
      tag_fault();
    }
  }

  [[noreturn]] void tag_fault() {
    if (position_ == xml_.size()) {
      incomplete("a tag");
    }
    malformed("has a tag of " + in_brackets(open_.back().name) +
              " that is not well-formed; write attributes as name=\"value\"");
  }

  // Makes room in the element around a new one.
  void begin_child(std::size_t start_line) {
    if (open_.empty()) {
      if (!plain_.lines.empty()) {
        malformed("begins a second outermost element; put all into one");
      }
      return;
    }
    Open& parent = open_.back();
    if (parent.name == "data" && !in_markup()) {
      markup_level_ = open_.size();
    }
    if (!in_markup()) {
      check_no_text(start_line);
      plain_.text += parent.has_children ? "" : ">";
    }
    text_.clear();
    parent.has_children = true;
  }

  void check_no_text(std::size_t at) {
    if (!is_blank(text_)) {
      throw Failure(E_INVALIDDATA, "line " + std::to_string(at) +
                                       " has an element beside the text of " +
                                       in_brackets(open_.back().name) + "; remove one of them");
    }
  }

  void take_attributes() {
    names_.clear();
    while (true) {
      const std::size_t before = position_;
      skip_blanks();
      if (position_ < xml_.size() && (xml_[position_] == '>' || xml_[position_] == '/')) {
        return check_names_differ();
      }
      if (before == position_) {
        tag_fault();
      }
      names_.push_back(take_name());
      take_value(names_.back());
    }
  }

  void check_names_differ() {
    std::sort(names_.begin(), names_.end());
    const auto same = std::adjacent_find(names_.begin(), names_.end());
    if (same != names_.end()) {
      position_ = static_cast<std::size_t>(same->data() - xml_.data());
      malformed("has the attribute " + std::string(*same) + " twice in one tag; remove one");
    }
  }

  void take_value(std::string_view name) {
    skip_blanks();
    if (!skip("=")) {
      tag_fault();
    }
    skip_blanks();
    const bool single = skip("'");
    if (!single && !skip("\"")) {
      tag_fault();
    }
    const std::size_t begin = position_;
    const std::string_view value = skip_through(single ? "'" : "\"", "a value");
    if (in_markup()) {
      return;
    }
    check_references(value);
    if (value.find('<') != std::string_view::npos) {
      position_ = begin + value.find('<');
      malformed("has a < within a value; write &lt;");
    }
    const std::size_t size = plain_.text.size();
    ((plain_.text += ' ') += name) += "=\"";
    append_value(value);
    if (plain_.text.size() - size - name.size() - 3 > longest_value) {
      malformed("has a value of more than " + std::to_string(longest_value) + " bytes; shorten it");
    }
    plain_.text += '"';
  }

  // Ends of lines and tabs in a value are blanks, as XML has it; for backslashes see as_attribute.
  void append_value(std::string_view value) {
    for (const char c : value) {
      if (c == '"' || c == '\\') {
        append_reference(plain_.text, static_cast<unsigned char>(c));
      } else {
        plain_.text += blanks.find(c) != std::string_view::npos ? ' ' : c;
      }
    }
  }

  void check_references(std::string_view text) {
    for (std::size_t next = text.find('&'); next != std::string_view::npos;
         next = text.find('&', next)) {
      const std::size_t begin = next;
      if (!decode_reference(text, next)) {
        const std::string_view rest = text.substr(begin, longest_reference);
        position_ = static_cast<std::size_t>(rest.data() - xml_.data());
        malformed("has " + shown(rest.substr(0, rest.find(';') + 1)) +
                  ", which stands for no character; write & as &amp;");
      }
    }
  }

  // A reference that was not understood, or nothing of it when it has no end.
  static std::string shown(std::string_view reference) {
    return reference.empty() ? "a & without ;" : "\"" + std::string(reference) + "\"";
  }

  void take_text(std::size_t end) {
    const std::string_view text = xml_.substr(position_, end - position_);
    if (open_.empty() && !is_blank(text)) {
      skip_blanks();
      malformed("has text outside of all elements; remove it");
    }
    if (!open_.empty() && !in_markup()) {
      check_references(text);
      append_text(text);
    }
    position_ = end;
  }

  // An end of a line is a line feed, as XML has it.
  void append_text(std::string_view text) {
    for (std::size_t next = 0; next < text.size(); ++next) {
      const bool pair = text[next] == '\r' && text.substr(next + 1, 1) == "\n";
      if (!pair) {
        text_ += text[next] == '\r' ? '\n' : text[next];
      }
    }
  }

  void take_end_tag() {
    const std::string_view name = take_name();
    skip_blanks();
    if (!skip(">")) {
      position_ == xml_.size()
          ? incomplete("a tag")
          : malformed("has an end tag that is not well-formed; write </" + std::string(name) + ">");
    }
    if (open_.empty() || open_.back().name != name) {
      malformed("has the end tag </" + std::string(name) + ">, where " +
                (open_.empty() ? "all elements have ended"
                               : in_brackets(open_.back().name) + " of line " +
                                     std::to_string(open_.back().line) + " has not ended") +
                "; pair the tags");
    }
    end_element();
  }

  void end_element() {
    const Open ended = open_.back();
    if (markup_level_ == open_.size()) {
      markup_level_ = no_level;
      ((plain_.text += ' ') += markup_attribute) += "=\"true\"/>";
    } else if (!in_markup()) {
      end_plain(ended);
    }
    text_.clear();
    open_.pop_back();
  }

  void end_plain(const Open& ended) {
    if (ended.has_children) {
      check_no_text(line());
    } else if (text_.empty() || (is_blank(text_) && !keeps_blanks(ended.name))) {
      plain_.text += "/>";
      return;
    } else {
      plain_.text += '>';
      append_content();
    }
    ((plain_.text += "</") += ended.name) += '>';
  }

  // What a text begins with is lost if it is not of ASCII or blank, so it is given by number.
  void append_content() {
    std::size_t next = 0;
    const std::size_t before = plain_.text.size();
    const char32_t first = oxa::decode_utf8(text_, next);
    if (is_name(text_[0]) || text_[0] == '&') {
      next = 0;
    } else {
      append_reference(plain_.text, first);
    }
    plain_.text += std::string_view(text_).substr(next);
    if (plain_.text.size() - before > longest_text) {
      malformed("ends a text of more than " + std::to_string(longest_text) + " bytes; shorten it");
    }
  }

  // Whether what is read stands within the markup in an element named "data".
  bool in_markup() const { return markup_level_ != no_level; }

  std::string_view xml_;
  std::size_t position_ = 0;
  std::size_t line_ = 1;
  std::size_t counted_ = 0;
  std::vector<Open> open_;
  std::size_t markup_level_ = no_level;
  // The text of the innermost element so far.
  std::string text_;
  // The attributes of the tag at hand.
  std::vector<std::string_view> names_;
  PlainXml plain_;
};

}  // namespace

PlainXml plain_xml(std::string_view xml) { return Rewriter(xml).run(); }

}  // namespace graph
