// What the command line asks for.
#pragma once

#include <string>
#include <vector>

#include "settings.h"

struct Options {
  bool help = false;
  bool version = false;
  bool list = false;
  bool settings = false;
  bool check = false;
  bool quiet = false;
  // At most one for each setting, in the order in which they were given.
  std::vector<Assignment> assignments;
  std::string input;
  std::string output;
};

// Throws Problem with exit_usage for a command line that makes no sense.
Options parse_options(const std::vector<std::string>& arguments);

extern const char* const help_text;
