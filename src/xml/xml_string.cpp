#include "xml/xml_string.h"

#include <new>

namespace oxa {
xml_shared_text* xml_shared_text::create(std::string_view text) {
  void* block = ::operator new(sizeof(xml_shared_text) + text.size() + 1);
  auto* shared = new (block) xml_shared_text();
  copy_terminated(text, shared->text());
  return shared;
}

void xml_shared_text::release() {
  if (references_.fetch_sub(1, std::memory_order_acq_rel) == 1) {
    this->~xml_shared_text();
    ::operator delete(this);
  }
}

xml_string::xml_string(std::string_view text) {
  if (!text.empty()) {
    auto* copy = static_cast<char*>(::operator new(text.size() + 1));
    copy_terminated(text, copy);
    *this = xml_string(copy, owned);
  }
}

void xml_string::free() {
  if (tag() == owned) {
    ::operator delete(block());
  } else {
    shared_text()->release();
  }
}

}  // namespace oxa
