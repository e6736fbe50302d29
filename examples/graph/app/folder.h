// What lies in the folder of plug-ins, and telling that a part of it is left out.
#pragma once

#include <oxa/oxa.h>

#include <string>
#include <string_view>
#include <vector>

// Returns the names in `folder` that end in `extension`, in their order. Throws Problem when the
// folder cannot be read.
std::vector<std::wstring> names_in(IOXADirectoryScanner& scanner, const std::string& folder,
                                   std::wstring_view extension);

// Tells on standard error that `what`, such as "plug-in", in the file at `path` is left out.
void report_skipped(const char* what, const std::string& path, const std::string& why,
                    const char* advice);
