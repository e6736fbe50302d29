#include "core/thin_string.h"

#include <new>

namespace oxa {

shared_text* shared_text::create(std::string_view text) {
  void* block = ::operator new(sizeof(shared_text) + text.size() + 1);
  auto* shared = new (block) shared_text();
  copy_terminated(text, shared->text());
  return shared;
}

void shared_text::release() {
  if (references_.fetch_sub(1, std::memory_order_acq_rel) == 1) {
    this->~shared_text();
    ::operator delete(this);
  }
}

thin_string::thin_string(std::string_view text) {
  if (!text.empty()) {
    auto* copy = static_cast<char*>(::operator new(text.size() + 1));
    copy_terminated(text, copy);
    *this = thin_string(copy, owned);
  }
}

void thin_string::free() {
  if (tag() == owned) {
    ::operator delete(block());
  } else {
    shared_block()->release();
  }
}

}  // namespace oxa
