// Strings in one word.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

namespace oxa {

// Copies a text to where it has room, with a terminator.
inline void copy_terminated(std::string_view text, char* to) {
  text.copy(to, text.size());
  to[text.size()] = '\0';
}

// Most names differ in their first two characters.
inline bool same_text(const char* left, const char* right) {
  return left[0] == right[0] && (left[0] == '\0' || left[1] == right[1]) &&
         std::strcmp(left, right) == 0;
}

// Names are short: a loop is faster here than a call.
inline bool same_text(const char* left, std::string_view right) {
  for (const char character : right) {
    if (*left++ != character) {
      return false;
    }
  }
  return *left == '\0';
}

// A text on the heap that several strings share: the key that a query leaves on many elements.
class shared_text {
 public:
  // Makes a text with one reference, the caller's. Throws std::bad_alloc.
  static shared_text* create(std::string_view text);

  void add_references(std::uint32_t count) {
    references_.fetch_add(count, std::memory_order_relaxed);
  }
  void release();

  char* text() { return reinterpret_cast<char*>(this + 1); }

 private:
  shared_text() = default;

  std::atomic<std::uint32_t> references_{1};
};

// A terminated string in one word. Its characters lie on the heap, in a shared text, or in an arena
// that outlives it; they stay where they are until the string changes.
class thin_string {
 public:
  // Texts in an arena begin at a multiple of this, which leaves room for the kind.
  static constexpr std::size_t alignment = 4;

  thin_string() = default;
  // Copies to the heap. Throws std::bad_alloc.
  explicit thin_string(std::string_view text);
  thin_string(thin_string&& other) noexcept : tagged_(std::exchange(other.tagged_, nullptr)) {}
  thin_string& operator=(thin_string&& other) noexcept {
    std::swap(tagged_, other.tagged_);
    return *this;
  }
  ~thin_string() {
    if (on_heap()) {
      free();
    }
  }

  // Refers to a terminated text in an arena, or to nothing.
  static thin_string borrow(char* text) { return thin_string(text, borrowed); }
  // Takes over one reference to a shared text.
  static thin_string share(shared_text* text) { return thin_string(text, shared); }

  // Returns the characters, null when there are none.
  char* data() const {
    return tagged_ == nullptr || *characters() == '\0' ? nullptr : characters();
  }
  // Returns the characters, never null.
  const char* c_str() const { return tagged_ == nullptr ? "" : characters(); }
  bool empty() const { return data() == nullptr; }

  // Tells whether the characters are those of an arena that begin at `text`.
  bool borrows(const char* text) const { return tagged_ == text; }
  bool on_heap() const { return tag() != borrowed; }

 private:
  // Where the characters lie; kept in the low bits of the pointer.
  enum kind : unsigned { borrowed = 0, owned = 1, shared = 2 };

  thin_string(void* block, kind what) : tagged_(static_cast<char*>(block) + what) {}

  unsigned tag() const { return reinterpret_cast<std::uintptr_t>(tagged_) % alignment; }
  char* block() const { return tagged_ - tag(); }
  shared_text* shared_block() const {
    return static_cast<shared_text*>(static_cast<void*>(block()));
  }
  char* characters() const { return tag() == shared ? shared_block()->text() : block(); }
  void free();

  char* tagged_ = nullptr;
};

}  // namespace oxa
