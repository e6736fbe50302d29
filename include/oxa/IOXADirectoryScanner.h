// The directory scanner: the entries of one folder whose names contain a pattern.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

// Lists a folder. Implemented by the library; every context holds one under
// IID_IOXADirectoryScanner, where a host may file its own. Serves one caller at a time. Names are
// wide strings that belong to the scanner and stay valid until the next Scan that is given both
// arguments, or the scanner's end.
class IOXADirectoryScanner : public IOXAReference {
 public:
  // Reads the entries of `folder` whose names contain `pattern` without its "*"; matching is
  // case-sensitive, anywhere in the name ("*.so" also keeps "a.so.1"), and does not look at what
  // kind of entry it is. An empty pattern keeps all, "." and ".." included. Names come in the
  // folder's own order; what is not UTF-8 in them is dropped.
  // S_OK; E_INVALIDARG for a null argument, with the previous results kept; E_BADENVIRONMENT when
  // the folder cannot be opened, E_OUTOFMEMORY, both with no results.
  virtual OXAResult Scan(const wchar_t* folder, const char* pattern) = 0;

  // Moves to the first result and stores its bare name.
  // S_OK; S_FALSE when there is none, with `*name` null; E_INVALIDARG for a null `name`.
  virtual OXAResult GetFirst(wchar_t** name) = 0;

  // Moves to the next result, with the results of GetFirst. Not allowed again once it has returned
  // S_FALSE; GetFirst restarts.
  virtual OXAResult GetNext(wchar_t** name) = 0;

 protected:
  ~IOXADirectoryScanner() = default;
};

template <>
struct OXAInterfaceId<IOXADirectoryScanner> {
  static const _GUID& value() { return IID_IOXADirectoryScanner; }
};
