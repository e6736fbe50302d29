// The directory scanner.
#pragma once

#include <oxa/IOXADirectoryScanner.h>
#include <oxa/sdk/implements.h>

#include <cstddef>
#include <string>
#include <vector>

// Holds the names that its last scan found.
class OXADirectoryScanner final : public oxa::Implements<IOXADirectoryScanner> {
 public:
  OXAResult Scan(const wchar_t* folder, const char* pattern) override;
  OXAResult GetFirst(wchar_t** name) override;
  OXAResult GetNext(wchar_t** name) override;

 private:
  OXAResult take(wchar_t** name);

  std::vector<std::wstring> names_;
  std::size_t cursor_ = 0;
};
