// The enumerator over a list of interface pointers.
#pragma once

#include <oxa/result.h>
#include <oxa/sdk/guard.h>
#include <oxa/sdk/implements.h>

#include <iterator>
#include <list>
#include <memory>

// Walks a list of items that somebody else keeps alive; it takes and hands out no references. With
// `owns` set the enumerator deletes the list (never the items) when it ends; without it the list
// may grow and shrink under the enumerator as long as the item at the cursor stays.
template <class IEnum, class IItem>
class OXAListEnum final : public oxa::Implements<IEnum> {
 public:
  using List = std::list<IItem*>;

  OXAListEnum(List* list, bool owns) : list_(list), owns_(owns) {
    if (list_ != nullptr) {
      cursor_ = list_->begin();
    }
  }

  OXAResult GetFirst(IItem** out) override {
    return move(out, [this] { return list_->begin(); });
  }

  // Kept: the list is a ring through its end, so the call after S_FALSE gives the first item again
  // (OXAListEnumTest.GoesRoundThroughItsEnd).
  OXAResult GetNext(IItem** out) override {
    return move(out,
                [this] { return cursor_ == list_->end() ? list_->begin() : std::next(cursor_); });
  }

  // Kept: without a list the clone is made and stored all the same, and the result is E_POINTER
  // (OXAListEnumTest.CloneWithoutAListIsStoredAndReported).
  OXAResult Clone(IEnum** out) override {
    if (out == nullptr) {
      return E_POINTER;
    }
    *out = nullptr;
    return oxa::guard([&]() -> OXAResult {
      if (list_ == nullptr) {
        *out = new OXAListEnum(nullptr, owns_);
        return E_POINTER;
      }
      std::unique_ptr<List> copy = owns_ ? std::make_unique<List>(*list_) : nullptr;
      auto clone = oxa::make<OXAListEnum>(owns_ ? copy.get() : list_, owns_);
      static_cast<void>(copy.release());
      clone->cursor_ =
          owns_ ? std::next(clone->list_->begin(), std::distance(list_->begin(), cursor_))
                : cursor_;
      *out = clone.detach();
      return S_OK;
    });
  }

  unsigned long Count() override { return list_ == nullptr ? 0 : list_->size(); }

  ~OXAListEnum() override {
    if (owns_) {
      delete list_;
    }
  }

 private:
  template <class Target>
  OXAResult move(IItem** out, Target target) {
    if (out == nullptr) {
      return E_POINTER;
    }
    *out = nullptr;
    if (list_ == nullptr) {
      return E_POINTER;
    }
    cursor_ = target();
    if (cursor_ == list_->end()) {
      return S_FALSE;
    }
    *out = *cursor_;
    return S_OK;
  }

  List* list_;
  typename List::iterator cursor_{};
  bool owns_;
};
