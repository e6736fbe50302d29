#include "properties/value_store.h"

value_store::~value_store() {
  pages_.for_each([](page& each) { delete &each; });
}

OXAVariant* value_store::find(unsigned long id) const {
  page* const found = find_page(id);
  if (found == nullptr) {
    return nullptr;
  }
  std::optional<OXAVariant>& value = found->values[id % page_size];
  return value ? &*value : nullptr;
}

OXAVariant& value_store::find_or_add(unsigned long id) {
  page* found = find_page(id);
  if (found == nullptr) {
    pages_.reserve_one();
    found = new page(id / page_size);
    pages_.add(found->number, found);
  }
  std::optional<OXAVariant>& value = found->values[id % page_size];
  if (!value) {
    value.emplace();
    ++found->taken;
  }
  return *value;
}

bool value_store::remove(unsigned long id) {
  page* const found = find_page(id);
  if (found == nullptr || !found->values[id % page_size]) {
    return false;
  }
  found->values[id % page_size].reset();
  if (--found->taken == 0) {
    pages_.remove(found->number, found);
    delete found;
  }
  return true;
}
