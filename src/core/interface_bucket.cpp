#include "core/interface_bucket.h"

#include <algorithm>
#include <cstring>

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
    const auto [found, fresh] = chains_.try_emplace(object, chain{position, position});
    if (!fresh) {
      next_[found->second.last] = position;
      found->second.last = position;
    }
  } catch (...) {
    drop_index();  // the entry stands without it, and the next removal builds it again
  }
}

bool interface_bucket::remove(void* object) {
  if (entries_.size() <= search_limit) {
    return remove_by_search(object);
  }
  if (next_.empty()) {
    build_index();
  }
  const auto found = chains_.find(object);
  if (found == chains_.end()) {
    return false;
  }
  const std::size_t position = found->second.first;
  if (position == found->second.last) {
    chains_.erase(found);
  } else {
    found->second.first = next_[position];
  }
  entries_[position].second = nullptr;
  --live_;
  if (live_ * 2 <= entries_.size()) {
    close_gaps();
  }
  return true;
}

bool interface_bucket::remove_by_search(void* object) {
  const auto found = std::find_if(entries_.begin(), entries_.end(),
                                  [&](const auto& entry) { return entry.second == object; });
  if (found == entries_.end()) {
    return false;
  }
  entries_.erase(found);
  --live_;
  return true;
}

void interface_bucket::append_to(OXAInterfaceList& list) const {
  std::copy_if(entries_.begin(), entries_.end(), std::back_inserter(list),
               [](const auto& entry) { return !is_gap(entry); });
}

void interface_bucket::build_index() {
  try {
    next_.resize(entries_.size());
    chains_.reserve(live_);
    for (std::size_t position = 0; position < entries_.size(); ++position) {
      const auto [found, fresh] =
          chains_.try_emplace(entries_[position].second, chain{position, position});
      if (!fresh) {
        next_[found->second.last] = position;
        found->second.last = position;
      }
    }
  } catch (...) {
    drop_index();
    throw;
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
