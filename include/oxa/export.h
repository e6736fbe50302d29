// Visibility of what crosses the boundary of a shared object.
#pragma once

#if __cplusplus < 201703L
#error "the headers of oxa need C++17 or later: compile with -std=c++17"
#endif

// Marks a symbol that a shared object shows to others: the exports of the library and the entry
// point of a plug-in. Everything else may stay hidden.
#define OXA_EXPORT __attribute__((visibility("default")))

// Lets the compiler check a printf-style call: `text` and `first` are 1-based argument positions,
// and a member function's first argument is `this`.
#define OXA_PRINTF(text, first) __attribute__((format(printf, text, first)))
