// What the command line asks for.
#pragma once

#include <optional>
#include <string>
#include <vector>

struct Options {
  bool help = false;
  bool version = false;
  bool list = false;
  bool quiet = false;
  std::string plugins;
  // Absent: the usual ones.
  std::optional<std::vector<std::string>> algorithms;
  std::string layout = "force";
  std::string size_by;
  std::string color_by;
  std::string theme = "auto";
  std::string title;
  std::string input;
  std::string output;
};

// Throws Problem with exit_usage for a command line that makes no sense.
Options parse_options(const std::vector<std::string>& arguments);

extern const char* const help_text;
