// The queries of an XML element. They walk its descendants with a stack of their own.
#include <oxa/sdk/guard.h>

#include <array>
#include <stdexcept>
#include <utility>

#include "xml/oxa_xml_element.h"
#include "xml/oxa_xml_enums.h"

using oxa::thin_string;

namespace {

// Goes through the descendants of an element.
class xml_walk {
 public:
  explicit xml_walk(oxa_xml_element& top) : element_(&top) {}

  oxa_xml_element& element() const { return *element_; }

  // Goes to the next element in document order; tells whether there is one. Throws std::bad_alloc.
  bool next() {
    oxa_xml_element* const parent = element_;
    if (parent->child_count() == 0) {
      return next_beside();
    }
    if (parent->child_count() > 1) {
      way_.push_back({parent, 1});
    }
    element_ = parent->child(0);
    return true;
  }

  // The same, leaving out the descendants of the current one.
  bool next_beside() {
    if (way_.empty()) {
      return false;
    }
    step& last = way_.back();
    element_ = last.parent->child(last.next);
    if (++last.next == last.parent->child_count()) {
      way_.pop_back();
    }
    return true;
  }

 private:
  struct step {
    oxa_xml_element* parent;
    std::size_t next;
  };

  // The ancestors of the current element that have children behind the way to it. Those of most
  // trees fit in here, so that a search allocates nothing.
  class steps {
   public:
    bool empty() const { return count_ == 0; }
    step& back() { return count_ <= near_.size() ? near_[count_ - 1] : far_.back(); }
    void push_back(step last) {
      if (count_ < near_.size()) {
        near_[count_] = last;
      } else {
        far_.push_back(last);
      }
      ++count_;
    }
    void pop_back() {
      if (count_ > near_.size()) {
        far_.pop_back();
      }
      --count_;
    }

   private:
    std::array<step, 16> near_;
    std::vector<step> far_;
    std::size_t count_ = 0;
  };

  oxa_xml_element* element_;
  steps way_;
};

}  // namespace

// What a query looks for, and the key that it leaves behind.
class oxa_xml_element::query {
 public:
  query(const char* name, const char* key, const char* value)
      : name_(name), key_(key != nullptr && *key != '\0' ? key : nullptr), value_(value) {}
  query(const query&) = delete;
  query& operator=(const query&) = delete;
  ~query() {
    if (shared_key_ != nullptr) {
      shared_key_->release();
    }
  }

  // Kept: an element that lacks the key gains it with an empty value, also where the name does not
  // match (ElementQueryTest.EveryVisitedElementGainsTheKey).
  bool matches(oxa_xml_element& element) {
    const bool named = name_ == nullptr || oxa::same_text(element.name(), name_);
    if (key_ == nullptr) {
      return named;
    }
    const char* const found = value(element);
    return named && (value_ == nullptr || oxa::same_text(found, value_));
  }

  // Returns the value under the key, which the element gains if it lacks it.
  const char* value(oxa_xml_element& element) {
    const oxa::xml_attribute* found = element.attributes_.find(key_);
    if (found == nullptr) {
      element.attributes_.reserve(1, nullptr);
      found = &element.attributes_.append(key(), {});
    }
    return found->value.c_str();
  }

 private:
  thin_string key() {
    if (shared_key_ == nullptr) {
      shared_key_ = oxa::shared_text::create(key_);
    }
    shared_key_->add_references(1);
    return thin_string::share(shared_key_);
  }

  const char* name_;
  const char* key_;
  const char* value_;
  oxa::shared_text* shared_key_ = nullptr;
};

namespace {

OXAResult enumerate(oxa_xml_element::elements found, IOXAXMLElementEnum** out) {
  if (found.empty()) {
    return E_NOTFOUND;
  }
  return oxa::guard([&] {
    *out = new oxa_xml_element_enum(std::move(found));
    return S_OK;
  });
}

}  // namespace

oxa_xml_element::elements oxa_xml_element::children(const char* name, const char* key,
                                                    const char* value) {
  query wanted(name, key, value);
  elements found;
  for (xml_walk walk(*this); walk.next();) {
    if (wanted.matches(walk.element())) {
      found.push_back(&walk.element());
    }
  }
  return found;
}

oxa_xml_element::elements oxa_xml_element::immediate_children(const char* name, const char* key,
                                                              const char* value) {
  query wanted(name, key, value);
  elements found;
  for (oxa_xml_element* child : children_) {
    if (wanted.matches(*child)) {
      found.push_back(child);
    }
  }
  return found;
}

oxa_xml_element* oxa_xml_element::first_child(const char* name, const char* key,
                                              const char* value) {
  query wanted(name, key, value);
  for (xml_walk walk(*this); walk.next();) {
    if (wanted.matches(walk.element())) {
      return &walk.element();
    }
  }
  return nullptr;
}

OXAResult oxa_xml_element::GetChildren(const char* name, const char* key, const char* value,
                                       IOXAXMLElementEnum** out) {
  return out == nullptr ? E_POINTER : enumerate(children(name, key, value), out);
}

OXAResult oxa_xml_element::GetChildren(const char* name, IOXAXMLElementEnum** out) {
  return GetChildren(name, nullptr, nullptr, out);
}

OXAResult oxa_xml_element::GetChildren(const char* key, const char* value,
                                       IOXAXMLElementEnum** out) {
  return GetChildren(nullptr, key, value, out);
}

OXAResult oxa_xml_element::GetImmediateChildren(const char* name, const char* key,
                                                const char* value, IOXAXMLElementEnum** out) {
  return out == nullptr ? E_POINTER : enumerate(immediate_children(name, key, value), out);
}

OXAResult oxa_xml_element::FirstChild(const char* name, const char* key, const char* value,
                                      IOXAXMLElement** out) {
  if (out == nullptr) {
    return E_POINTER;
  }
  *out = first_child(name, key, value);
  return S_OK;
}

// Kept: every element is visited and gains an "id", but those below a match; the last child alone
// decides what is found (ElementQueryTest.GetChildFollowsTheLastChild).
OXAResult oxa_xml_element::GetChild(const char* id, IOXAXMLElement** out) {
  if (out == nullptr) {
    return E_POINTER;
  }
  *out = nullptr;
  if (id == nullptr) {
    throw std::logic_error("GetChild: the id is null");
  }
  query ids(nullptr, "id", nullptr);
  const auto matches = [&](oxa_xml_element& element) {
    return oxa::same_text(ids.value(element), id);
  };
  xml_walk walk(*this);
  for (bool more = walk.next(); more;) {
    more = matches(walk.element()) ? walk.next_beside() : walk.next();
  }

  const oxa_xml_element* parent = this;
  while (parent->child_count() != 0) {
    oxa_xml_element* const last = parent->child(parent->child_count() - 1);
    if (matches(*last)) {
      *out = last;
      break;
    }
    parent = last;
  }
  return S_OK;
}
