#include "folder.h"

#include <algorithm>
#include <cstdio>

#include "problem.h"
#include "text.h"

namespace {

bool ends_with(std::wstring_view name, std::wstring_view extension) {
  return name.size() > extension.size() && name.substr(name.size() - extension.size()) == extension;
}

}  // namespace

// The scanner takes its pattern for a part of the name, so "*.so" finds "a.so.1" as well.
std::vector<std::wstring> names_in(IOXADirectoryScanner& scanner, const std::string& folder,
                                   std::wstring_view extension) {
  const std::string pattern = "*" + oxa::narrow(std::wstring(extension));
  const OXAResult result = scanner.Scan(oxa::widen(folder).c_str(), pattern.c_str());
  if (oxa::failed(result)) {
    throw Problem("cannot read the plug-in folder " + in_quotes(folder) + ": " +
                  oxa::result_text(result) + "; name another one with --plugins");
  }
  std::vector<std::wstring> names;
  for (const wchar_t* name : oxa::names(scanner)) {
    if (ends_with(name, extension)) {
      names.emplace_back(name);
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

void report_skipped(const char* what, const std::string& path, const std::string& why,
                    const char* advice) {
  std::fprintf(stderr, "oxa-graph: skipped the %s %s: %s; %s\n", what, in_quotes(path).c_str(),
               why.c_str(), advice);
}
