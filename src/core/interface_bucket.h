// The registry entries of one interface id in one namespace.
#pragma once

#include <oxa/IOXAInterfaceEnum.h>

#include <cstddef>
#include <memory>
#include <unordered_map>
#include <vector>

// Keeps entries in registration order: the objects, and the id once, since only the padding of ids
// that are equal may differ. Adding and removing cost the same however many there are: a
// removed entry leaves a gap, gaps are closed when they are the half, and from the first removal
// out of many an index leads from each object to its entries.
class interface_bucket {
 public:
  bool empty() const noexcept { return live_ == 0; }
  std::size_t size() const noexcept { return live_; }

  // Throws std::bad_alloc with nothing changed.
  void add(const _GUID& iid, void* object);

  // Takes out the first entry of `object`; false when there is none.
  bool remove(void* object);

  // Appends the entries to `list`.
  void append_to(OXAInterfaceList& list) const;

 private:
  // The positions of one object's entries: the first and the last, linked by `next`.
  struct chain {
    std::size_t first;
    std::size_t last;
  };
  struct index {
    std::unordered_map<void*, chain> chains;
    std::vector<std::size_t> next;  // as long as `objects_`
  };

  // Return the position of the first entry of `object`, or the number of entries; the second drops
  // it from the index.
  std::size_t search(void* object) const noexcept;
  std::size_t take_from_index(void* object) noexcept;
  void add_id(const _GUID& iid);
  void build_index() noexcept;
  void link(std::size_t position);
  void drop_index() noexcept;
  void close_gaps();

  std::vector<void*> objects_;  // null for a gap
  std::size_t live_ = 0;
  std::unique_ptr<index> index_;  // null until it is needed
  _GUID iid_{};                   // that of every entry, unless there are ids_
  std::vector<_GUID> ids_;        // as long as `objects_` once the paddings differ
};
