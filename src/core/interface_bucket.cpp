#include "core/interface_bucket.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

// Up to this many entries are searched faster than indexed.
constexpr std::size_t search_limit = 32;

// The padding is handed out too.
void copy(const _GUID& from, _GUID& to) { std::memcpy(&to, &from, sizeof to); }
bool same_bytes(const _GUID& left, const _GUID& right) {
  return std::memcmp(static_cast<const void*>(&left), static_cast<const void*>(&right),
                     sizeof left) == 0;
}

}  // namespace

void interface_bucket::add(const _GUID& iid, void* object) {
  const std::size_t position = objects_.size();
  objects_.push_back(object);
  try {
    add_id(iid);
  } catch (...) {
    objects_.pop_back();
    throw;
  }
  ++live_;
  if (index_ == nullptr) {
    return;
  }
  try {
    index_->next.push_back(position);
    link(position);
  } catch (const std::bad_alloc&) {
    drop_index();
  }
}

// Adds the id of the last object.
void interface_bucket::add_id(const _GUID& iid) {
  if (objects_.size() == 1) {
    ids_.clear();
    copy(iid, iid_);
  } else if (!ids_.empty() || !same_bytes(iid, iid_)) {
    const std::size_t known = ids_.size();
    ids_.resize(objects_.size());
    for (std::size_t position = known; position < ids_.size(); ++position) {
      copy(iid_, ids_[position]);
    }
    copy(iid, ids_.back());
  }
}

bool interface_bucket::remove(void* object) {
  if (objects_.size() > search_limit && index_ == nullptr) {
    build_index();
  }
  const std::size_t position = index_ == nullptr ? search(object) : take_from_index(object);
  if (position == objects_.size()) {
    return false;
  }
  objects_[position] = nullptr;
  --live_;
  if (live_ * 2 <= objects_.size()) {
    close_gaps();
  }
  return true;
}

std::size_t interface_bucket::search(void* object) const noexcept {
  const auto found = std::find(objects_.begin(), objects_.end(), object);
  return static_cast<std::size_t>(found - objects_.begin());
}

std::size_t interface_bucket::take_from_index(void* object) noexcept {
  const auto found = index_->chains.find(object);
  if (found == index_->chains.end()) {
    return objects_.size();
  }
  const std::size_t position = found->second.first;
  if (position == found->second.last) {
    index_->chains.erase(found);
  } else {
    found->second.first = index_->next[position];
  }
  return position;
}

void interface_bucket::append_to(OXAInterfaceList& list) const {
  const bool one_id = ids_.empty();
  const _GUID* id = one_id ? &iid_ : ids_.data();
  for (void* const object : objects_) {
    if (object != nullptr) {
      list.emplace_back(*id, object);
    }
    id += one_id ? 0 : 1;
  }
}

// Without the memory for it there is no index, and the entries are searched.
void interface_bucket::build_index() noexcept {
  try {
    index_ = std::make_unique<index>();
    index_->next.resize(objects_.size());
    index_->chains.reserve(live_);
    for (std::size_t position = 0; position < objects_.size(); ++position) {
      if (objects_[position] != nullptr) {
        link(position);
      }
    }
  } catch (const std::bad_alloc&) {
    drop_index();
  }
}

// Appends an entry to the chain of its object.
void interface_bucket::link(std::size_t position) {
  const auto [found, fresh] =
      index_->chains.try_emplace(objects_[position], chain{position, position});
  if (!fresh) {
    index_->next[found->second.last] = position;
    found->second.last = position;
  }
}

void interface_bucket::drop_index() noexcept { index_.reset(); }

void interface_bucket::close_gaps() {
  drop_index();
  std::size_t kept = 0;
  for (std::size_t position = 0; position < objects_.size(); ++position) {
    if (objects_[position] != nullptr) {
      objects_[kept] = objects_[position];
      if (!ids_.empty() && kept != position) {
        copy(ids_[position], ids_[kept]);
      }
      ++kept;
    }
  }
  objects_.resize(kept);
  ids_.resize(std::min(kept, ids_.size()));
}
