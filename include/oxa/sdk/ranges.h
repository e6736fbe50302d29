// Range-for over the enumerators.
#pragma once

#include <oxa/IOXADirectoryScanner.h>
#include <oxa/IOXAInterfaceEnum.h>
#include <oxa/guid.h>
#include <oxa/result.h>
#include <oxa/sdk/ref.h>

#include <cstddef>
#include <iterator>
#include <utility>

namespace oxa {
inline namespace sdk1 {

// A range over something with a GetFirst and a GetNext, of which it holds a reference. They share
// one cursor, so only one loop at a time can run over it. An enumerator that fails ends the range.
// `Source` gives `Item`, and `OXAResult first(Item&)` and `next(Item&)`.
template <class Source>
class EnumeratorRange {
 public:
  using Item = typename Source::Item;

  class Iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Item;
    using difference_type = std::ptrdiff_t;
    using pointer = const Item*;
    using reference = const Item&;

    Iterator() = default;
    explicit Iterator(Source source) : source_(std::move(source)) { take(source_.first(item_)); }

    reference operator*() const { return item_; }
    pointer operator->() const { return &item_; }
    Iterator& operator++() {
      take(source_.next(item_));
      return *this;
    }
    Iterator operator++(int) {
      Iterator before = *this;
      ++*this;
      return before;
    }

    friend bool operator==(const Iterator& left, const Iterator& right) {
      return left.at_end_ == right.at_end_;
    }
    friend bool operator!=(const Iterator& left, const Iterator& right) { return !(left == right); }

   private:
    void take(OXAResult result) { at_end_ = result != S_OK; }

    Source source_;
    Item item_{};
    bool at_end_ = true;
  };

  explicit EnumeratorRange(Source source) : source_(std::move(source)) {}

  // Moves the enumerator to its first item.
  Iterator begin() const { return Iterator(source_); }
  Iterator end() const { return Iterator(); }

 private:
  Source source_;
};

// One pair of an interface enumerator. `object` is borrowed.
struct InterfaceEntry {
  _GUID iid;
  void* object;
};

struct InterfaceSource {
  using Item = InterfaceEntry;
  OXAResult first(Item& item) { return enumerator->GetFirst(item.iid, &item.object); }
  OXAResult next(Item& item) { return enumerator->GetNext(item.iid, &item.object); }
  Ref<IOXAInterfaceEnum> enumerator;
};

// Walks items by the two operations of an object that keeps the position.
template <class Holder, class ItemType, OXAResult (Holder::*First)(ItemType**),
          OXAResult (Holder::*Next)(ItemType**)>
struct PointerSource {
  using Item = ItemType*;
  OXAResult first(Item& item) { return (holder.get()->*First)(&item); }
  OXAResult next(Item& item) { return (holder.get()->*Next)(&item); }
  Ref<Holder> holder;
};

using NameSource = PointerSource<IOXADirectoryScanner, wchar_t, &IOXADirectoryScanner::GetFirst,
                                 &IOXADirectoryScanner::GetNext>;

template <class Enumerator, class Item>
using ItemSource = PointerSource<Enumerator, Item, &Enumerator::GetFirst, &Enumerator::GetNext>;

// Ranges over the pairs of an interface enumerator. Not to be nested over the same one.
inline EnumeratorRange<InterfaceSource> entries(IOXAInterfaceEnum& enumerator) {
  return EnumeratorRange<InterfaceSource>(
      InterfaceSource{Ref<IOXAInterfaceEnum>::share(&enumerator)});
}

// Ranges over the names that a scanner's last Scan found; the names belong to the scanner. Not to
// be nested over the same one.
inline EnumeratorRange<NameSource> names(IOXADirectoryScanner& scanner) {
  return EnumeratorRange<NameSource>(NameSource{Ref<IOXADirectoryScanner>::share(&scanner)});
}

// Ranges over the items of a list enumerator, such as an IOXAPropertyEnum; items are borrowed.
template <class Enumerator, class Item>
EnumeratorRange<ItemSource<Enumerator, Item>> items(Enumerator& enumerator,
                                                    OXAResult (Enumerator::*)(Item**)) {
  return EnumeratorRange<ItemSource<Enumerator, Item>>(
      ItemSource<Enumerator, Item>{Ref<Enumerator>::share(&enumerator)});
}

template <class Enumerator>
auto items(Enumerator& enumerator) {
  return items(enumerator, &Enumerator::GetFirst);
}

}  // namespace sdk1
}  // namespace oxa
