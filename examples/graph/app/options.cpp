#include "options.h"

#include <algorithm>

#include "problem.h"
#include "text.h"

const char* const help_text =
    R"(Usage: oxa-graph [OPTION]... INPUT OUTPUT
       oxa-graph --list [--plugins DIR]

Reads the graph in the file INPUT, computes values for its nodes, lays it out
and draws it to the file OUTPUT. Plug-ins do the work; the extensions of the
two names, in small or capital letters, choose the reader and the writer.

  --algorithms NAME,...  what to compute; "none" for nothing
                         (default: pagerank,betweenness,degree,community)
  --layout NAME          how to arrange the nodes (default: force)
  --size-by NAME         algorithm whose measure node sizes show, or "none"
                         (default: the first measure computed)
  --color-by NAME        algorithm that node colours show, or "none"
                         (default: the first grouping computed)
  --theme THEME          auto, light or dark; auto follows the viewer
                         (default: auto)
  --title TEXT           title of the picture (default: from INPUT's name)
  --plugins DIR          folder of plug-ins (default: the one that belongs to
                         this program)
  --list                 show what the plug-ins offer and declare, and end
  -q, --quiet            show errors only
  -h, --help             show this text and end
  --version              show the version and end

An edge list has a line per edge: source, target and, if you like, a weight,
separated by blanks; # begins a comment, and labels with blanks are quoted.

Exit codes: 0 done; 1 failed; 2 the command line makes no sense; 130 stopped
by Ctrl-C, 143 by SIGTERM. OUTPUT is replaced only when all went well. A second
Ctrl-C ends the program at once and may leave OUTPUT's unfinished copy, whose
name ends in .tmp.
)";

namespace {

[[noreturn]] void misused(const std::string& sentence) { throw Problem(sentence, exit_usage); }

struct Flag {
  const char* name;
  bool Options::*target;
  const char* short_name = nullptr;
};

struct Setting {
  const char* name;
  std::string Options::*target;
};

constexpr Flag flags[] = {{"--help", &Options::help, "-h"},
                          {"--version", &Options::version},
                          {"--list", &Options::list},
                          {"--quiet", &Options::quiet, "-q"}};

constexpr Setting settings[] = {
    {"--plugins", &Options::plugins}, {"--layout", &Options::layout},
    {"--size-by", &Options::size_by}, {"--color-by", &Options::color_by},
    {"--theme", &Options::theme},     {"--title", &Options::title}};

constexpr const char* algorithms_name = "--algorithms";

[[noreturn]] void unknown_option(const std::string& name) {
  std::vector<std::string> known = {algorithms_name};
  for (const Flag& flag : flags) {
    known.emplace_back(flag.name);
  }
  for (const Setting& setting : settings) {
    known.emplace_back(setting.name);
  }
  const std::string like = closest(name, known);
  misused("there is no option " + in_quotes(name) +
          (like.empty() ? "" : " (perhaps " + like + ")") + "; see oxa-graph --help");
}

class Parser {
 public:
  explicit Parser(const std::vector<std::string>& arguments) : arguments_(arguments) {}

  Options parse() {
    std::vector<std::string> files;
    bool options_end = false;
    for (; next_ < arguments_.size(); ++next_) {
      const std::string& argument = arguments_[next_];
      if (!options_end && argument == "--") {
        options_end = true;
      } else if (!options_end && argument.size() > 1 && argument[0] == '-') {
        take_option(argument);
      } else {
        files.push_back(argument);
      }
    }
    take_files(files);
    return std::move(options_);
  }

 private:
  void take_option(const std::string& argument) {
    const std::size_t equals = argument.find('=');
    const std::string name = argument.substr(0, equals);
    for (const Flag& flag : flags) {
      if (name == flag.name || (flag.short_name != nullptr && name == flag.short_name)) {
        if (equals != std::string::npos) {
          misused("the option " + name + " takes no value; leave out " +
                  in_quotes(argument.substr(equals)));
        }
        options_.*flag.target = true;
        return;
      }
    }
    for (const Setting& setting : settings) {
      if (name == setting.name) {
        options_.*setting.target = value_of(argument, equals);
        return;
      }
    }
    if (name != algorithms_name) {
      unknown_option(name);
    }
    options_.algorithms = split(value_of(argument, equals), ',');
  }

  std::string value_of(const std::string& argument, std::size_t equals) {
    if (equals != std::string::npos) {
      return argument.substr(equals + 1);
    }
    if (next_ + 1 == arguments_.size()) {
      misused("the option " + argument + " has no value; give one behind it");
    }
    return arguments_[++next_];
  }

  void take_files(const std::vector<std::string>& files) {
    if (options_.help || options_.version) {
      return;
    }
    if (!options_.list && files.size() < 2) {
      misused(std::string("the name of the ") + (files.empty() ? "input" : "output") +
              " file is missing; give INPUT and OUTPUT, or see oxa-graph --help");
    }
    const std::size_t most = options_.list ? 0 : 2;
    if (files.size() > most) {
      misused("the argument " + in_quotes(files[most]) +
              " is one too many; quote names with blanks" +
              (options_.list ? ", and give no files with --list" : ""));
    }
    if (!options_.list) {
      options_.input = files[0];
      options_.output = files[1];
    }
    if (options_.theme != "auto" && options_.theme != "light" && options_.theme != "dark") {
      misused("there is no theme " + in_quotes(options_.theme) + "; use auto, light or dark");
    }
  }

  const std::vector<std::string>& arguments_;
  std::size_t next_ = 0;
  Options options_;
};

}  // namespace

Options parse_options(const std::vector<std::string>& arguments) {
  return Parser(arguments).parse();
}
