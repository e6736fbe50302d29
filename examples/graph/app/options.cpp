#include "options.h"

#include <algorithm>

#include "problem.h"
#include "text.h"

const char* const help_text =
    R"(Usage: oxa-graph [OPTION]... INPUT OUTPUT
       oxa-graph --check [OPTION]... INPUT
       oxa-graph --settings [OPTION]...
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
  --set SETTING=VALUE    set one of the settings that --settings shows; those
                         above are short for some of them. Without a VALUE,
                         the default
  --settings             show all settings, those of plug-ins too, and end
  --check                look for what is unusual in INPUT, such as self loops,
                         show it as a table, and end; algorithms run if they
                         are named, as they may report something. With --quiet,
                         the exit code alone tells
  --list                 show what the plug-ins offer and declare, and end
  -q, --quiet            show errors only
  -h, --help             show this text and end
  --version              show the version and end

An edge list has a line per edge: source, target and, if you like, a weight,
separated by blanks; # begins a comment, and labels with blanks are quoted.
A GraphML file keeps values of nodes, edges and the graph as well; as OUTPUT it
also gets the values computed and the positions, in place of values of nodes
that have their names.

Exit codes: 0 done; 1 failed; 2 the command line makes no sense; 3 done, and
--check has something to show; 130 stopped by Ctrl-C, 143 by SIGTERM. OUTPUT
is replaced only when all went well. A second Ctrl-C ends the program at once
and may leave OUTPUT's unfinished copy, whose name ends in .tmp.
)";

namespace {

[[noreturn]] void misused(const std::string& sentence) { throw Problem(sentence, exit_usage); }

struct Flag {
  const char* name;
  bool Options::*target;
  const char* short_name = nullptr;
};

constexpr Flag flags[] = {{"--help", &Options::help, "-h"}, {"--version", &Options::version},
                          {"--list", &Options::list},       {"--settings", &Options::settings},
                          {"--check", &Options::check},     {"--quiet", &Options::quiet, "-q"}};

constexpr const char* set_name = "--set";

[[noreturn]] void unknown_option(const std::string& name) {
  std::vector<std::string> known = {set_name};
  for (const Flag& flag : flags) {
    known.emplace_back(flag.name);
  }
  for (const ShortForm& form : short_forms()) {
    known.emplace_back(form.option);
  }
  const std::string like = closest(name, known);
  misused("there is no option " + in_quotes(name) +
          (like.empty() ? "" : " (perhaps " + like + ")") + "; see oxa-graph --help");
}

// The modes that end the program early leave no room for another one.
void check_modes(const Options& options) {
  std::vector<std::string> modes;
  for (const Flag& flag : flags) {
    const bool is_mode = flag.target == &Options::list || flag.target == &Options::settings ||
                         flag.target == &Options::check;
    if (is_mode && options.*flag.target) {
      modes.emplace_back(flag.name);
    }
  }
  if (modes.size() > 1) {
    misused("the options " + join(modes, " and ") + " do not go together; give one of them");
  }
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
    for (const ShortForm& form : short_forms()) {
      if (name == form.option) {
        assign({form.path, value_of(argument, equals), "the option " + name});
        return;
      }
    }
    if (name != set_name) {
      unknown_option(name);
    }
    take_assignment(value_of(argument, equals));
  }

  void take_assignment(const std::string& text) {
    const std::size_t equals = text.find('=');
    const std::string path = text.substr(0, equals);
    if (equals == std::string::npos || path.find("::") == std::string::npos) {
      misused("the option --set takes NAMESPACE::NAME=VALUE, not " + in_quotes(text) +
              "; see oxa-graph --settings");
    }
    assign({path, text.substr(equals + 1), "the setting " + path});
  }

  // The last value given counts.
  void assign(Assignment assignment) {
    auto& all = options_.assignments;
    all.erase(
        std::remove_if(all.begin(), all.end(),
                       [&](const Assignment& other) { return other.path == assignment.path; }),
        all.end());
    all.push_back(std::move(assignment));
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
    check_modes(options_);
    const bool no_files = options_.list || options_.settings;
    const std::size_t wanted = no_files ? 0 : options_.check ? 1 : 2;
    if (files.size() < wanted) {
      misused(std::string("the name of the ") + (files.empty() ? "input" : "output") +
              " file is missing; give INPUT" + (wanted == 2 ? " and OUTPUT" : "") +
              ", or see oxa-graph --help");
    }
    if (files.size() > wanted) {
      const char* mode = options_.list ? "--list" : "--settings";
      misused("the argument " + in_quotes(files[wanted]) +
              " is one too many; quote names with blanks" +
              (no_files      ? std::string(", and give no files with ") + mode
               : wanted == 1 ? ", and give no output with --check"
                             : ""));
    }
    options_.input = wanted > 0 ? files[0] : "";
    options_.output = wanted > 1 ? files[1] : "";
  }

  const std::vector<std::string>& arguments_;
  std::size_t next_ = 0;
  Options options_;
};

}  // namespace

Options parse_options(const std::vector<std::string>& arguments) {
  return Parser(arguments).parse();
}
