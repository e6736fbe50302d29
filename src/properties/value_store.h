// Values by the ids of their properties.
#pragma once

#include <oxa/OXAVariant.h>

#include <array>
#include <cstddef>
#include <optional>

#include "core/hash_index.h"

// Ids are handed out one after the other, so values lie in pages of neighbours: finding one looks
// at the table of pages and at the value, however many there are. Any id may be used all the same.
class value_store {
 public:
  value_store() = default;
  value_store(const value_store&) = delete;
  value_store& operator=(const value_store&) = delete;
  ~value_store();

  // Null when there is none.
  OXAVariant* find(unsigned long id) const;

  // Makes an empty value if there is none. Throws std::bad_alloc.
  OXAVariant& find_or_add(unsigned long id);

  // False when there was none.
  bool remove(unsigned long id);

  // Calls `visit` with each id, in no particular order.
  template <class Visit>
  void for_each_id(Visit visit) const {
    pages_.for_each([&](const page& each) {
      for (std::size_t at = 0; at < page_size; ++at) {
        if (each.values[at]) {
          visit(each.number * page_size + at);
        }
      }
    });
  }

 private:
  static constexpr std::size_t page_size = 64;
  struct page {
    explicit page(unsigned long own_number) : number(own_number) {}
    unsigned long number;   // its own hash, which no other page has
    std::size_t taken = 0;  // how many values it has: at least one, but while one is added
    std::array<std::optional<OXAVariant>, page_size> values;
  };

  page* find_page(unsigned long id) const {
    return pages_.find(id / page_size, [](const page& /*same hash*/) { return true; });
  }

  oxa::hash_index<page> pages_;  // which it owns
};
