// XML trees without their traps.
#pragma once

#include <oxa/IOXAXMLAttributeEnum.h>
#include <oxa/IOXAXMLDocument.h>
#include <oxa/IOXAXMLElement.h>
#include <oxa/IOXAXMLElementEnum.h>
#include <oxa/sdk/guard.h>
#include <oxa/sdk/ranges.h>
#include <oxa/sdk/ref.h>
#include <oxa/sdk/result_text.h>

#include <cstring>
#include <new>
#include <string>
#include <utility>
#include <vector>

namespace oxa {
inline namespace sdk1 {

// Throws std::bad_alloc for a failure; that nothing was found is none. For operations that are
// given what they ask for, and so fail for want of memory alone.
inline void require_memory(OXAResult result) {
  if (failed(result) && result != E_NOTFOUND) {
    throw std::bad_alloc();
  }
}

// An attribute of an element; both are empty strings where there is nothing, never null.
struct XMLAttribute {
  const char* key;
  const char* value;
};

struct AttributeSource {
  using Item = XMLAttribute;
  OXAResult first(Item& item) { return move(&IOXAXMLAttributeEnum::GetFirst, item); }
  OXAResult next(Item& item) { return move(&IOXAXMLAttributeEnum::GetNext, item); }
  Ref<IOXAXMLAttributeEnum> enumerator;

 private:
  OXAResult move(OXAResult (IOXAXMLAttributeEnum::*operation)(char**, char**), Item& item) {
    char* key = nullptr;
    char* value = nullptr;
    const OXAResult result = (enumerator.get()->*operation)(&key, &value);
    item = {key != nullptr ? key : "", value != nullptr ? value : ""};
    return result;
  }
};

// Elements that a query found; without an enumerator there are none.
struct ElementSource {
  using Item = IOXAXMLElement*;
  OXAResult first(Item& item) { return enumerator ? enumerator->GetFirst(&item) : S_FALSE; }
  OXAResult next(Item& item) { return enumerator->GetNext(&item); }
  Ref<IOXAXMLElementEnum> enumerator;
};

// Ranges over a copy of the attributes of an element; they live as long as the range. Throws
// std::bad_alloc.
inline EnumeratorRange<AttributeSource> attributes(IOXAXMLElement& element) {
  Ref<IOXAXMLAttributeEnum> copy;
  require_memory(element.GetAttributes(adopt_into(copy)));
  return EnumeratorRange<AttributeSource>(AttributeSource{std::move(copy)});
}

// Range over the children of an element, or over all its descendants in document order: those with
// a name, or all for null. They are borrowed, and are those of the moment of the call: the one at
// hand may be removed, those to come must live. Empty when there are none. Throw std::bad_alloc.
inline EnumeratorRange<ElementSource> children(IOXAXMLElement& element,
                                               const char* name = nullptr) {
  Ref<IOXAXMLElementEnum> found;
  require_memory(element.GetImmediateChildren(name, nullptr, nullptr, adopt_into(found)));
  return EnumeratorRange<ElementSource>(ElementSource{std::move(found)});
}

inline EnumeratorRange<ElementSource> descendants(IOXAXMLElement& element,
                                                  const char* name = nullptr) {
  Ref<IOXAXMLElementEnum> found;
  require_memory(element.GetChildren(name, nullptr, nullptr, adopt_into(found)));
  return EnumeratorRange<ElementSource>(ElementSource{std::move(found)});
}

// Returns the value of an attribute, "" when it is empty, and `fallback` when there is no such
// attribute; a null fallback tells that apart. The value lives until it changes or the element
// ends. Throws std::logic_error for a null key.
inline const char* attribute(IOXAXMLElement& element, const char* key, const char* fallback = "") {
  char* value = nullptr;
  if (element.GetAttribute(key, &value) == E_NOTFOUND) {
    return fallback;
  }
  return value != nullptr ? value : "";
}

// Return a copy of the text: as it was read or set, or with "&lt;", "&gt;" and "&amp;" decoded, by
// GetPlainText, whose pointers end with the next call. Empty when there is none. Throw
// std::bad_alloc.
inline std::string text(IOXAXMLElement& element) {
  char* text = nullptr;
  element.GetText(text);
  return text != nullptr ? text : "";
}

inline std::string plain_text(IOXAXMLElement& element) {
  char* text = nullptr;
  element.GetPlainText(text);
  return text != nullptr ? text : "";
}

// Returns the first descendant, in document order, that has this name, and this attribute with
// this value; null stands for any name, for no look at attributes, and for any value. Borrowed;
// null when there is none. Unlike the queries by key it leaves the tree as it is. Throws
// std::bad_alloc.
inline IOXAXMLElement* find(IOXAXMLElement& element, const char* name, const char* key = nullptr,
                            const char* value = nullptr) {
  for (IOXAXMLElement* descendant : descendants(element, name)) {
    const char* const held = key != nullptr ? attribute(*descendant, key, nullptr) : nullptr;
    if (key == nullptr || (held != nullptr && (value == nullptr || !std::strcmp(held, value)))) {
      return descendant;
    }
  }
  return nullptr;
}

// Appends a child, which must be in no other place. The result of AddChild; after a failure the
// child's reference is dropped.
inline OXAResult add_child(IOXAXMLElement& parent, Ref<IOXAXMLElement> child) {
  const OXAResult result = parent.AddChild(child.get());
  if (succeeded(result)) {
    static_cast<void>(child.detach());  // the parent owns it now
  }
  return result;
}

// Copies an element without its children. Throws std::bad_alloc.
inline Ref<IOXAXMLElement> copy_alone(IOXAXMLDocument& document, IOXAXMLElement& element) {
  Ref<IOXAXMLElement> copy;
  require_memory(document.CreateElement(nullptr, adopt_into(copy)));
  if (const char* name = element.Name()) {
    require_memory(copy->SetName(name));  // not above, where "xml" would gain a version
  }
  for (const XMLAttribute& each : attributes(element)) {
    require_memory(copy->AddAttribute(each.key, each.value));
  }
  require_memory(copy->SetText(text(element).c_str()));
  return copy;
}

// Copies an element with all below it, into elements that `document` makes and that are in no tree
// yet. The element may be of any document. Empty for want of memory.
inline Ref<IOXAXMLElement> copy_element(IOXAXMLDocument& document, IOXAXMLElement& element) {
  Ref<IOXAXMLElement> copy;
  const OXAResult result = guard([&] {
    copy = copy_alone(document, element);
    std::vector<std::pair<IOXAXMLElement*, IOXAXMLElement*>> open{{&element, copy.get()}};
    while (!open.empty()) {
      const auto [from, to] = open.back();
      open.pop_back();
      for (IOXAXMLElement* child : children(*from)) {
        Ref<IOXAXMLElement> child_copy = copy_alone(document, *child);
        open.emplace_back(child, child_copy.get());
        require_memory(add_child(*to, std::move(child_copy)));
      }
    }
    return S_OK;
  });
  return succeeded(result) ? copy : nullptr;
}

// Returns the root of a document, borrowed; null when there is none.
inline IOXAXMLElement* root(IOXAXMLDocument& document) {
  IOXAXMLElement* root = nullptr;
  document.GetRoot(&root);
  return root;
}

// Gives up a reference to a document. With the last one the document and its source end, and the
// tree is the caller's: returns the root with one reference, whoever else referenced it. Empty
// when there is no root, or when others reference the document, whose the tree is then. The
// pointer to the document is empty afterwards.
// Only for documents of the library: not when a host has filed a parser of its own under
// IID_IOXAXMLParser, whose documents free what they hold by themselves.
[[nodiscard]] inline Ref<IOXAXMLElement> take_root(Ref<IOXAXMLDocument>& document) {
  IOXAXMLElement* top = nullptr;
  if (document != nullptr && document->CheckReference() == 1) {
    document->Open(nullptr);
    top = root(*document);
  }
  document.reset();
  while (top != nullptr && top->CheckReference() > 1) {
    top->ReleaseReference();
  }
  return Ref<IOXAXMLElement>::adopt(top);
}

// The same, but ends the tree as well, which a document's own ReleaseReference leaves behind.
// XMLDocument does it by itself.
inline void end_document(Ref<IOXAXMLDocument>& document) { take_root(document).reset(); }

// Owns a reference to a document of the library and gives it up as end_document does. Received like
// a Ref: `parser->CreateEmptyDocument(oxa::adopt_into(document));`.
class XMLDocument {
 public:
  XMLDocument() = default;
  explicit XMLDocument(Ref<IOXAXMLDocument> document) : document_(std::move(document)) {}
  XMLDocument(XMLDocument&& other) noexcept = default;
  XMLDocument& operator=(XMLDocument other) noexcept {
    std::swap(document_, other.document_);
    return *this;
  }
  ~XMLDocument() { reset(); }

  IOXAXMLDocument* get() const { return document_.get(); }
  IOXAXMLDocument* operator->() const { return document_.get(); }
  IOXAXMLDocument& operator*() const { return *document_; }
  explicit operator bool() const { return document_ != nullptr; }

  // Gives up the document; the guard is empty afterwards.
  void reset() { end_document(document_); }

 private:
  friend OutputArgument<IOXAXMLDocument> adopt_into(XMLDocument& target);
  friend Ref<IOXAXMLElement> take_root(XMLDocument& document);

  Ref<IOXAXMLDocument> document_;
};

// Receives a document that carries a reference, in place of the one before, which is ended first.
inline OutputArgument<IOXAXMLDocument> adopt_into(XMLDocument& target) {
  target.reset();
  return adopt_into(target.document_);
}

[[nodiscard]] inline Ref<IOXAXMLElement> take_root(XMLDocument& document) {
  return take_root(document.document_);
}

}  // namespace sdk1
}  // namespace oxa
