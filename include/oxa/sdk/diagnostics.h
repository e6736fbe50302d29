// Diagnostics without their traps.
#pragma once

#include <oxa/IOXADiagnostic.h>
#include <oxa/IOXADiagnosticCategory.h>
#include <oxa/IOXADiagnosticCategoryEnum.h>
#include <oxa/IOXADiagnosticsManager.h>
#include <oxa/OXAVariant.h>
#include <oxa/sdk/ranges.h>
#include <oxa/sdk/ref.h>
#include <oxa/sdk/result_text.h>

#include <new>

namespace oxa {
inline namespace sdk1 {

// Returns the category of a name, borrowed, and makes it if there is none. `Holder` is the manager,
// or a category: see IOXADiagnosticCategory for who releases subcategories. The name must not be
// null. Throws std::bad_alloc.
template <class Holder>
IOXADiagnosticCategory& category(Holder& holder, const char* name) {
  IOXADiagnosticCategory* found = nullptr;
  holder.CreateCategory(name, &found);
  if (found == nullptr) {
    throw std::bad_alloc();
  }
  return *found;
}

// Makes a diagnostic, which is not in the category before add_diagnostic. Throws std::bad_alloc.
inline Ref<IOXADiagnostic> create_diagnostic(IOXADiagnosticCategory& category) {
  Ref<IOXADiagnostic> made;
  if (failed(category.CreateDiagnostic(adopt_into(made)))) {
    throw std::bad_alloc();
  }
  return made;
}

// Appends a diagnostic. The result of AddDiagnostic; after a failure its reference is dropped.
inline OXAResult add_diagnostic(IOXADiagnosticCategory& category, Ref<IOXADiagnostic> diagnostic) {
  const OXAResult result = category.AddDiagnostic(diagnostic.get());
  if (succeeded(result)) {
    static_cast<void>(diagnostic.detach());  // the category owns it now
  }
  return result;
}

// Sets a cell to a value that need not be a variable: `set_value(*row, 0, make_variant(3))`. The
// results of SetValue.
inline OXAResult set_value(IOXADiagnostic& diagnostic, int column, OXAVariant value) {
  return diagnostic.SetValue(column, value);
}

using DiagnosticSource =
    PointerSource<IOXADiagnosticCategory, IOXADiagnostic, &IOXADiagnosticCategory::GetFirst,
                  &IOXADiagnosticCategory::GetNext>;

// Range over the diagnostics of a category, in the order in which they were added; they are
// borrowed. Not to be nested over the same category, which keeps the position, and the number of
// columns must not change meanwhile.
inline EnumeratorRange<DiagnosticSource> diagnostics(IOXADiagnosticCategory& category) {
  return EnumeratorRange<DiagnosticSource>(
      DiagnosticSource{Ref<IOXADiagnosticCategory>::share(&category)});
}

// Range over the categories of the manager, or of a category, in the order of their creation; they
// are borrowed. It must not outlive its holder. Throws std::bad_alloc.
template <class Holder>
auto categories(Holder& holder) {
  Ref<IOXADiagnosticCategoryEnum> found;
  if (failed(holder.GetDiagnosticCategoryEnum(adopt_into(found)))) {
    throw std::bad_alloc();
  }
  return items(*found);
}

}  // namespace sdk1
}  // namespace oxa
