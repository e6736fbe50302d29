#include "core/interface_bucket.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <new>

namespace {

// Up to this many entries are searched faster than indexed.
constexpr std::size_t search_limit = 32;

bool is_gap(const OXAInterfaceList::value_type& entry) { return entry.second == nullptr; }

}  // namespace

void interface_bucket::add(const _GUID& iid, void* object) {
  const std::size_t position = entries_.size();
  entries_.emplace_back(_GUID{}, object);
  std::memcpy(&entries_.back().first, &iid, sizeof iid);  // the padding is handed out too
  ++live_;
  if (next_.empty()) {
    return;
  }
  try {
    next_.push_back(position);
    link(position);
  } catch (const std::bad_alloc&) {
    drop_index();
  }
}

bool interface_bucket::remove(void* object) {
  if (entries_.size() > search_limit && next_.empty()) {
    build_index();
  }
  const std::size_t position = next_.empty() ? search(object) : take_from_index(object);
  if (position == entries_.size()) {
    return false;
  }
  entries_[position].second = nullptr;
  --live_;
  if (live_ * 2 <= entries_.size()) {
    close_gaps();
  }
  return true;
}

std::size_t interface_bucket::search(void* object) const noexcept {
  const auto found = std::find_if(entries_.begin(), entries_.end(),
                                  [&](const auto& entry) { return entry.second == object; });
  return static_cast<std::size_t>(found - entries_.begin());
}

std::size_t interface_bucket::take_from_index(void* object) noexcept {
  const auto found = chains_.find(object);
  if (found == chains_.end()) {
    return entries_.size();
  }
  const std::size_t position = found->second.first;
  if (position == found->second.last) {
    chains_.erase(found);
  } else {
    found->second.first = next_[position];
  }
  return position;
}

void interface_bucket::append_to(OXAInterfaceList& list) const {
  std::copy_if(entries_.begin(), entries_.end(), std::back_inserter(list),
               [](const auto& entry) { return !is_gap(entry); });
}

// Without the memory for it there is no index, and the entries are searched.
void interface_bucket::build_index() noexcept {
  try {
    next_.resize(entries_.size());
    chains_.reserve(live_);
    for (std::size_t position = 0; position < entries_.size(); ++position) {
      if (!is_gap(entries_[position])) {
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
      chains_.try_emplace(entries_[position].second, chain{position, position});
  if (!fresh) {
    next_[found->second.last] = position;
    found->second.last = position;
  }
}

void interface_bucket::drop_index() noexcept {
  chains_.clear();
  next_.clear();
}

void interface_bucket::close_gaps() {
  drop_index();
  entries_.erase(std::remove_if(entries_.begin(), entries_.end(), is_gap), entries_.end());
}
