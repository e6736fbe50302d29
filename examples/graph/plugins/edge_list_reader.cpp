// Reads edge lists: a line per edge, `source target [weight]`, fields separated by blanks.
//
// A label that holds blanks or begins with # stands in double quotes, in which \" and \\ are a
// quote and a backslash. A # where a field would begin makes the rest of the line a comment. Text
// is UTF-8, with or without byte order mark; lines end in LF or CRLF.
#include <graph_plugin.h>
#include <oxa/sdk/plugin.h>
#include <oxa/sdk/utf8.h>

#include <charconv>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

namespace {

using graph::Failure;

constexpr std::string_view blanks = " \t";
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
constexpr std::size_t lines_between_stops = 4096;

[[noreturn]] void malformed(std::size_t line, const std::string& what) {
  throw Failure(E_INVALIDDATA, "line " + std::to_string(line) + " " + what);
}

// The fields of one line, in strings that are used again for the next.
class Fields {
 public:
  void split(std::string_view text, std::size_t line) {
    count_ = 0;
    while (true) {
      text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
      if (text.empty() || text.front() == '#') {
        return;
      }
      text.remove_prefix(text.front() == '"' ? take_quoted(text, line) : take_plain(text));
    }
  }

  std::size_t count() const { return count_; }
  const std::string& operator[](std::size_t index) const { return fields_[index]; }

 private:
  std::string& add() {
    if (count_ == fields_.size()) {
      fields_.emplace_back();
    }
    fields_[count_].clear();
    return fields_[count_++];
  }

  std::size_t take_plain(std::string_view text) {
    const std::size_t length = std::min(text.find_first_of(blanks), text.size());
    add() = text.substr(0, length);
    return length;
  }

  std::size_t take_quoted(std::string_view text, std::size_t line) {
    std::string& field = add();
    std::size_t position = 1;
    while (position < text.size() && text[position] != '"') {
      position += text[position] == '\\' && position + 1 < text.size() ? 1 : 0;
      field += text[position++];
    }
    if (position == text.size()) {
      malformed(line, "has a label whose quote is not closed; end it with \"");
    }
    ++position;
    if (position < text.size() && blanks.find(text[position]) == std::string_view::npos) {
      malformed(line,
                "has text right behind a closing quote; put a blank there, or \\\" for a quote "
                "inside the label");
    }
    return position;
  }

  std::vector<std::string> fields_;
  std::size_t count_ = 0;
};

double weight_of(const std::string& text, std::size_t line) {
  double weight = 0;
  const char* begin = text.data();
  const char* end = begin + text.size();
  const auto [stop, error] = std::from_chars(begin, end, weight);
  if (error == std::errc::result_out_of_range && stop == end) {
    malformed(line, "has the weight \"" + text + "\", which is out of range; scale the weights");
  }
  if (error != std::errc() || stop != end || !std::isfinite(weight)) {
    malformed(line, "has the weight \"" + text +
                        "\", which is not a finite number; write a number such as 2.5, or quote "
                        "labels that hold blanks");
  }
  if (weight < 0) {
    malformed(line, "has the negative weight " + text + "; write a weight of 0 or more");
  }
  return weight;
}

class EdgeListReader final : public graph::Reader {
 public:
  explicit EdgeListReader(IOXAContext* context)
      : Reader("edge list", ".txt .edges .edgelist"), context_(context) {}

 private:
  void read(std::string_view text, IGraph& graph) override {
    const auto progress = oxa::service<IOXAProgressIndicator>(context_);
    if (text.substr(0, byte_order_mark.size()) == byte_order_mark) {
      text.remove_prefix(byte_order_mark.size());
    }
    Fields fields;
    for (std::size_t line = 1; !text.empty(); ++line) {
      if (line % lines_between_stops == 0) {
        graph::stop_if_asked(progress.get());
      }
      const std::size_t length = std::min(text.find('\n'), text.size());
      read_line(text.substr(0, length), line, fields, graph);
      text.remove_prefix(std::min(length + 1, text.size()));
    }
  }

  static void read_line(std::string_view text, std::size_t line, Fields& fields, IGraph& graph) {
    if (!text.empty() && text.back() == '\r') {
      text.remove_suffix(1);
    }
    if (text.find('\0') != std::string_view::npos || !oxa::is_utf8(text)) {
      malformed(line, "is not UTF-8 text; save the file as UTF-8");
    }
    fields.split(text, line);
    if (fields.count() == 0) {
      return;
    }
    if (fields.count() == 1) {
      malformed(line,
                "has one field where source and target are expected; write two labels separated by "
                "blanks");
    }
    if (fields.count() > 3) {
      malformed(line, "has " + std::to_string(fields.count()) +
                          " fields where source, target and weight are expected; quote labels that "
                          "hold blanks");
    }
    const double weight = fields.count() == 3 ? weight_of(fields[2], line) : 1.0;
    std::uint64_t source = 0;
    std::uint64_t target = 0;
    graph::check(graph.AddNode(fields[0].c_str(), &source));
    graph::check(graph.AddNode(fields[1].c_str(), &target));
    graph::check(graph.AddEdge(source, target, weight));
  }

  IOXAContext* context_;
};

}  // namespace

OXA_PLUGIN("Edge lists", "1.0", oxa::offer<EdgeListReader>(IID_IOXAFileReader))
