// Input: a line with options, and extension files with a line "====" between two. They are loaded
// one after another into one type manager. `m` makes what the manager holds at a message part of
// that message, and `r` loads the files a second time.
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "assertion_stops.h"
#include "check.h"
#include "datatypes/model/description.h"
#include "datatypes/model/library_manager.h"
#include "datatypes/model/model_extension.h"
#include "input.h"

using oxa_fuzz::check;
using oxa_test::model::describe;

namespace {

// A manager of the library and one of the model.
class Managers {
 public:
  explicit Managers(bool looks) : looks_(looks) {
    library_.sink->on_message = [this] {
      if (oxa_fuzz::last_stop == nullptr) {
        look(*library_, library_.sink->lines);
      }
    };
    model_.messages.on_message = [this] { look(model_, model_.messages.lines); };
  }

  void load(const std::string& file) {
    library_.sink->Clear();
    model_.messages.lines.clear();
    oxa_fuzz::last_stop = nullptr;
    const OXAResult result = library_.load(file);
    const std::string stop = oxa_fuzz::last_stop == nullptr ? "" : oxa_fuzz::last_stop;
    check(library_.is_held_once(), "a load keeps neither the manager nor its sink");
    compare(result, stop, file);
  }

 private:
  template <class Manager>
  void look(Manager& manager, std::vector<std::string>& lines) const {
    constexpr std::size_t most_looks = 20;
    if (looks_ && lines.size() < most_looks) {
      lines.back() += describe(manager);
    }
  }

  // Where the model stops, the library goes on to give up the document, and tells that.
  void compare(OXAResult result, const std::string& stop, const std::string& file) {
    std::vector<std::string>& told = library_.sink->lines;
    OXAResult expected = E_UNEXPECTED;
    std::string expected_stop;
    try {
      expected = model_.load(file);
    } catch (const oxa_test::model::Stop& caught) {
      expected_stop = caught.expression;
      told.resize(std::min(told.size(), model_.messages.lines.size()));
    }
    check(stop == expected_stop, "the same assertion fails");
    check(result == expected, "the result is that of the model");
    check(told == model_.messages.lines, "the messages are those of the model");
    check(describe(*library_) == describe(model_), "the declarations are those of the model");
  }

  bool looks_;
  oxa_test::model::LibraryManager library_;
  oxa_test::model::Declarations model_;
};

std::vector<std::string> files_of(std::string_view text) {
  constexpr std::string_view between = "\n====\n";
  std::vector<std::string> files;
  for (std::size_t end = text.find(between); end != std::string_view::npos;
       end = text.find(between)) {
    files.emplace_back(text.substr(0, end));
    text.remove_prefix(end + between.size());
  }
  files.emplace_back(text);
  return files;
}

bool has(std::string_view options, char option) {
  return options.find(option) != std::string_view::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  oxa_fuzz::Input input(data, size);
  const std::string_view options = input.until('\n');
  const std::vector<std::string> files = files_of(input.rest());
  Managers managers(has(options, 'm'));
  for (int rounds = has(options, 'r') ? 2 : 1; rounds > 0; --rounds) {
    for (const std::string& file : files) {
      managers.load(file);
    }
  }
  return 0;
}
