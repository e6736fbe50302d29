#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "datatypes/model/description.h"
#include "datatypes/model/library_manager.h"
#include "datatypes/model/model_extension.h"
#include "datatypes/model/random_extensions.h"
#include "xml/model/comparison.h"

namespace oxa_test::model {
namespace {

using Files = std::vector<std::string>;

class ExtensionModelTest : public ModelTest {
 protected:
  // Loads the files one after another into a manager, and compares what each leaves there. Where
  // the model stops, so must the library, which is tried for one in 50 of these; that ends it.
  void compare_files(const Files& files, bool foreign_documents = false) {
    LibraryManager manager(foreign_documents);
    Declarations model;
    look_at_each_message(manager, model);
    for (const std::string& file : files) {
      begin(file);
      if (HasFailure() || !compare_load(manager, model, file)) {
        return;
      }
      ASSERT_TRUE(manager.is_held_once()) << printable(file);
    }
  }

  // Tells whether each of the reader's messages was heard.
  void expect_all_messages() const {
    for (const std::string_view message : messages) {
      const auto found = heard_.lower_bound(message);
      EXPECT_TRUE(found != heard_.end() && found->substr(0, message.size()) == message) << message;
    }
  }

 private:
  static constexpr std::string_view messages[] = {
      "error: Unrecognized XML format - not an extension file!",
      "error: Not a data type extension file!",
      "error: 'plugin' attribute missing!",
      "error: 'name' attribute missing for <data_type> element!",
      "error: 'type' attribute missing for <data_type> element!",
      "error: 'name' attribute missing for <member> element in <data_type name=\"",
      "error: 'type' attribute missing for <member name=\""};

  // Lets what there is at the first messages be part of them.
  static void look_at_each_message(LibraryManager& manager, Declarations& model) {
    manager.sink->on_message = [&manager] { look(*manager, manager.sink->lines); };
    model.messages.on_message = [&model] { look(model, model.messages.lines); };
  }

  template <class Manager>
  static void look(Manager& manager, std::vector<std::string>& lines) {
    constexpr std::size_t most_looks = 20;
    if (lines.size() < most_looks) {
      lines.back() += "\n" + describe(manager);
    }
  }

  // Returns false where the model stops.
  bool compare_load(LibraryManager& manager, Declarations& model, const std::string& file) {
    constexpr int rarity = 50;
    OXAResult expected = S_OK;
    try {
      expected = model.load(file);
    } catch (const Stop& stop) {
      if (stops_++ % rarity == 0) {
        expect_stop(stop, [&] { manager.load(file); });
      }
      return false;
    }
    EXPECT_EQ(manager.load(file), expected) << printable(file);
    EXPECT_EQ(manager.sink->lines, model.messages.lines) << printable(file);
    EXPECT_EQ(describe(*manager), describe(model)) << printable(file);
    heard_.insert(model.messages.lines.begin(), model.messages.lines.end());
    (expected == S_FALSE ? accepted_ : rejected_) += 1;
    return true;
  }

  std::set<std::string, std::less<>> heard_;
};

TEST_F(ExtensionModelTest, WellFormedFilesDeclareWhatTheyDoInTheModel) {
  Random random(1);
  for (int run = 0; run < runs(1500) && !HasFailure(); ++run) {
    compare_files({extension_file(random)});
  }
  EXPECT_GT(accepted_, runs(800));
  EXPECT_GT(rejected_, runs(200));
  expect_all_messages();
}

TEST_F(ExtensionModelTest, DamagedFilesDeclareWhatTheyDoInTheModel) {
  Random random(2);
  for (int run = 0; run < runs(1500) && !HasFailure(); ++run) {
    compare_files({damaged_extension_file(random)});
  }
  expect_variety(runs(20));
}

// The library walks documents of its own by a shorter way than others.
TEST_F(ExtensionModelTest, DocumentsOfAHostDeclareWhatTheyDoInTheModel) {
  Random random(6);
  for (int run = 0; run < runs(700) && !HasFailure(); ++run) {
    compare_files({extension_file(random), damaged_extension_file(random)}, true);
  }
  EXPECT_GT(accepted_, runs(300));
}

TEST_F(ExtensionModelTest, FilesAddToWhatEarlierOnesDeclaredAsInTheModel) {
  Random random(3);
  for (int run = 0; run < runs(250) && !HasFailure(); ++run) {
    Files files;
    for (std::size_t left = 2 + random.below(7); left > 0; --left) {
      files.push_back(random.one_in(12) ? damaged_extension_file(random) : extension_file(random));
    }
    compare_files(files);
  }
  EXPECT_GT(accepted_, runs(500));
}

TEST_F(ExtensionModelTest, LongNamesAreCutInMessagesAsInTheModel) {
  Random random(4);
  for (int run = 0; run < runs(100) && !HasFailure(); ++run) {
    compare_files({extension_file_with_long_names(random)});
  }
}

TEST_F(ExtensionModelTest, FilesWithZeroBytesDeclareWhatTheyDoInTheModel) {
  Random random(5);
  for (int run = 0; run < runs(600) && !HasFailure(); ++run) {
    compare_files({with_zero_bytes(extension_file(random), random)});
  }
}

}  // namespace
}  // namespace oxa_test::model
