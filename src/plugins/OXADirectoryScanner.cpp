#include "plugins/OXADirectoryScanner.h"

#include <dirent.h>

#include <oxa/sdk/guard.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "core/utf.h"

namespace {

struct directory_closer {
  void operator()(DIR* directory) const { closedir(directory); }
};

}  // namespace

OXAResult OXADirectoryScanner::Scan(const wchar_t* folder, const char* pattern) {
  if (folder == nullptr || pattern == nullptr) {
    return E_INVALIDARG;
  }
  names_.clear();
  cursor_ = 0;
  return oxa::guard([&] {
    const std::unique_ptr<DIR, directory_closer> directory(opendir(oxa::to_utf8(folder).c_str()));
    if (directory == nullptr) {
      return E_BADENVIRONMENT;
    }
    std::string match = pattern;
    match.erase(std::remove(match.begin(), match.end(), '*'), match.end());
    std::vector<std::wstring> found;
    while (const dirent* entry = readdir(directory.get())) {
      if (std::strstr(entry->d_name, match.c_str()) != nullptr) {
        found.push_back(oxa::from_utf8(entry->d_name));
      }
    }
    names_ = std::move(found);
    return S_OK;
  });
}

OXAResult OXADirectoryScanner::GetFirst(wchar_t** name) {
  if (name == nullptr) {
    return E_INVALIDARG;
  }
  cursor_ = 0;
  return take(name);
}

OXAResult OXADirectoryScanner::GetNext(wchar_t** name) {
  if (name == nullptr) {
    return E_INVALIDARG;
  }
  cursor_ = std::min(cursor_ + 1, names_.size());
  return take(name);
}

OXAResult OXADirectoryScanner::take(wchar_t** name) {
  *name = nullptr;
  if (cursor_ == names_.size()) {
    return S_FALSE;
  }
  *name = names_[cursor_].data();
  return S_OK;
}
