// How a document reads its source: by recursive descent over the tokens, with a stack of its own.
#include <oxa/sdk/xml.h>

#include <array>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "xml/attempt.h"
#include "xml/oxa_xml_parser.h"
#include "xml/xml_builder.h"

using tokenizer = oxa_xml_tokenizer;
using sink = IOXADebugMessage;
using parsed_attribute = oxa_xml_element::parsed_attribute;
using oxa::attempt;

namespace {

// The longest texts, each with its terminator; an element's leaves one byte more unused.
constexpr int token_size = 4096;
constexpr int text_size = 100000;

}  // namespace

// What a parse keeps while it runs. A message sink must not start another within it, but nothing
// breaks if one does.
struct oxa_xml_parser::parse_state {
  explicit parse_state(oxa_xml_parser& document)
      : builder(*document.tokenizer_),
        current(document.state_),
        outer(std::exchange(current, this)) {}
  parse_state(const parse_state&) = delete;
  parse_state& operator=(const parse_state&) = delete;
  ~parse_state() { current = outer; }

  oxa::xml_builder builder;
  // What a start tag has given so far.
  std::array<parsed_attribute, 8> plain;
  parse_state*& current;
  parse_state* outer;
};

// The elements whose end has not come; the innermost is null while its name is read.
class oxa_xml_parser::open_elements {
 public:
  // The outermost goes to `parent`, or becomes the root.
  explicit open_elements(oxa_xml_element* parent) : parent_(parent) {}
  open_elements(const open_elements&) = delete;
  open_elements& operator=(const open_elements&) = delete;
  ~open_elements() {
    while (any()) {
      release_innermost();
    }
  }

  bool any() const { return !elements_.empty(); }
  bool nested() const { return elements_.size() > 1; }
  oxa_xml_element*& innermost() { return elements_.back(); }
  oxa_xml_element* parent() const { return nested() ? elements_.end()[-2] : parent_; }

  void begin() { elements_.push_back(nullptr); }
  void end() { elements_.pop_back(); }
  void release_innermost() {
    oxa_xml_element* const element = innermost();
    end();
    if (element != nullptr) {
      element->ReleaseReference();
    }
  }

 private:
  oxa_xml_element* parent_;
  std::vector<oxa_xml_element*> elements_;
};

OXAResult oxa_xml_parser::Parse() {
  if (tokenizer_ == nullptr) {
    return E_UNEXPECTED;
  }
  parse_state state(*this);
  return attempt([&] { return parse_top_level(); });
}

// Tells the sink, if there is one, what has failed.
template <class Tell>
OXAResult oxa_xml_parser::fail(Tell tell) {
  if (sink_) {
    tell(*sink_);
  }
  return E_UNEXPECTED;
}

OXAResult oxa_xml_parser::parse_top_level() {
  bool top_seen = false;
  for (;;) {
    std::string_view text;
    switch (tokenizer_->read_token(&text, token_size)) {
      case tokenizer::end_of_input:
        if (state_->outer == nullptr) {
          tokenizer_->drop_source_at_end();
        }
        return S_OK;
      case tokenizer::comment:
        break;
      case tokenizer::declaration:
        if (!parse_xml_tag()) {
          return fail([](sink& to) {
            to.EmitError("Badly formed XML file; confused by the <?xml ?> tag for some reason");
          });
        }
        break;
      case tokenizer::start_tag:
        if (top_seen) {
          return fail([](sink& to) {
            to.EmitError("Badly formed XML file; more than 1 top level element");
          });
        }
        if (parse_element(nullptr) < 0) {
          return fail(
              [](sink& to) { to.EmitError("Badly formed XML file; confused during parsing"); });
        }
        top_seen = true;
        break;
      default:
        return fail([](sink& to) { to.EmitError("Badly formed XML file; and I don't know why!"); });
    }
  }
}

bool oxa_xml_parser::parse_xml_tag() {
  std::string_view text;
  if (tokenizer_ == nullptr || tokenizer_->read_token(&text, token_size) != tokenizer::name ||
      text != "xml") {
    return false;
  }
  int end = 0;
  const auto add = [&](std::span<const parsed_attribute> attributes) {
    for (const auto& [key, value] : attributes) {
      prolog_.AddAttribute(std::string(key).c_str(), std::string(value).c_str());
    }
  };
  return read_attributes(add, end) >= 0 && end == tokenizer::declaration_end;
}

// Reads attributes up to another token, which is stored in `end`. Each has been added before a
// message can be sent about the next.
template <class Add>
OXAResult oxa_xml_parser::read_attributes(Add add, int& end) {
  for (;;) {
    std::size_t count = 0;
    while (count < state_->plain.size() &&
           tokenizer_->read_attribute(state_->plain[count].key, state_->plain[count].value,
                                      token_size)) {
      ++count;
    }
    add(std::span(state_->plain).first(count));
    if (count == state_->plain.size()) {
      continue;
    }
    parsed_attribute other;
    end = tokenizer_->read_token(&other.key, token_size);
    if (end != tokenizer::name) {
      return S_OK;
    }
    if (tokenizer_->read_token(&other.value, token_size) != tokenizer::equals ||
        tokenizer_->read_token(&other.value, token_size) != tokenizer::string) {
      return E_INVALIDDATA;
    }
    add(std::span(&other, 1));
  }
}

OXAResult oxa_xml_parser::parse_element(oxa_xml_element* parent) {
  if (tokenizer_ == nullptr) {
    return E_UNEXPECTED;
  }
  open_elements open(parent);
  OXAResult result = attempt([&] { return start_element(open); });
  while (result >= 0 && open.any()) {
    result = attempt([&] { return read_child(open); });
  }
  if (open.nested()) {
    result = E_UNEXPECTED;
  }
  abandon_elements(open);
  return result;
}

// Gives up the elements that are still open. The innermost has failed; each around it failed with
// the one in it.
void oxa_xml_parser::abandon_elements(open_elements& open) {
  for (bool innermost = true; open.any(); innermost = false) {
    if (!innermost) {
      static_cast<void>(attempt([&] {
        return fail([&](sink& to) {
          to.EmitError("Badly formed XML file; parsing confused! (%s)", open.innermost()->name());
          print_element(to, *open.innermost());
        });
      }));
    }
    open.release_innermost();
  }
}

// Reads what follows a `<`: a start tag, and with it the whole element if that has no children.
OXAResult oxa_xml_parser::start_element(open_elements& open) {
  open.begin();
  std::string_view name;
  if (tokenizer_->read_token(&name, token_size) != tokenizer::name) {
    return E_INVALIDDATA;
  }
  oxa::xml_builder& builder = state_->builder;
  auto* const element = new (builder) oxa_xml_element(builder, name);
  open.innermost() = element;
  if (open.parent() == nullptr) {
    element->AddReference();
    root_ = element;
  }
  int end = 0;
  const auto add = [&](std::span<const parsed_attribute> attributes) {
    element->parsed_attributes(builder, attributes);
  };
  if (const OXAResult result = read_attributes(add, end); result < 0) {
    return result;
  }
  if (end == tokenizer::empty_tag_end) {
    return end_element(open);
  }
  if (end != tokenizer::tag_end) {
    return E_INVALIDDATA;
  }
  const bool holds_text = name == "data" || name == "text" || tokenizer_->look_ahead() != '<';
  return holds_text ? read_content(open) : S_OK;
}

OXAResult oxa_xml_parser::read_content(open_elements& open) {
  std::string_view text;
  tokenizer_->read_text(text, text_size);
  open.innermost()->parsed_text(state_->builder, text);
  if (tokenizer_->read_token(&text, token_size) != tokenizer::end_tag) {
    return E_INVALIDDATA;
  }
  return read_end_tag(open);
}

OXAResult oxa_xml_parser::read_child(open_elements& open) {
  switch (tokenizer_->read_token(nullptr, 0)) {
    case tokenizer::end_tag:
      return read_end_tag(open);
    case tokenizer::start_tag:
      return start_element(open);
    case tokenizer::comment:
      return S_OK;
    default:
      return fail([&](sink& to) {
        to.EmitError("Badly formed XML file; unknown parsing error!");
        print_element(to, *open.innermost());
      });
  }
}

OXAResult oxa_xml_parser::read_end_tag(open_elements& open) {
  std::string_view name;
  if (tokenizer_->read_token(&name, token_size) != tokenizer::name ||
      !oxa::same_text(open.innermost()->name(), name) ||
      tokenizer_->read_token(&name, token_size) != tokenizer::tag_end) {
    return E_INVALIDDATA;
  }
  return end_element(open);
}

OXAResult oxa_xml_parser::end_element(open_elements& open) {
  if (oxa_xml_element* const parent = open.parent()) {
    parent->parsed_child(state_->builder, open.innermost());
  }
  open.end();
  return S_OK;
}

// Goes over a copy: the sink may change the element.
void oxa_xml_parser::print_element(IOXADebugMessage& to, oxa_xml_element& element) {
  for (const oxa::XMLAttribute& attribute : oxa::attributes(element)) {
    to.EmitMessage(0, "%s=%s", attribute.key, attribute.value);
  }
}
