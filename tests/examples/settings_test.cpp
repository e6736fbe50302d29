#include <graph_settings.h>
#include <options.h>
#include <problem.h>
#include <setting_value.h>
#include <settings_list.h>

#include <algorithm>

#include "graph_host.h"
#include "support/capture.h"

using OXA::Property::DataType;

namespace {

// The sentence of the Problem that an operation ends with, an empty one without.
template <class Operation>
std::string problem_of(Operation operation) {
  try {
    operation();
    return "";
  } catch (const Problem& problem) {
    EXPECT_EQ(problem.code(), exit_usage);
    return problem.what();
  }
}

class SettingsTest : public testing::Test {
 protected:
  SettingsTest() {
    OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
    preferences = oxa::service<IOXAPreferences>(context);
    settings = std::make_unique<Settings>(context.get());
  }

  void take(const std::string& path, const std::string& value) {
    settings->take({{path, value, "the option"}});
    settings->take_rest();
  }

  IOXAProperty& add(const char* ns, const char* name, DataType type, const char* value) {
    IOXAProperty& property = oxa::add_setting(*preferences, ns, name, type);
    EXPECT_EQ(preferences->Set(ns, name, value), S_OK);
    return property;
  }

  std::string stored(const char* ns, const char* name) {
    char* value = nullptr;
    preferences->Get(ns, name, &value);
    return value != nullptr ? value : "";
  }

  oxa::Ref<IOXAContext> context;
  oxa::Ref<IOXAPreferences> preferences;
  std::unique_ptr<Settings> settings;
};

TEST_F(SettingsTest, WithoutAValueTheDefaultCounts) {
  EXPECT_EQ(settings->text(setting::theme), "auto");
  EXPECT_EQ(settings->given(setting::theme), std::nullopt);
  EXPECT_EQ(settings->number(setting::most_rows), 20);
  EXPECT_TRUE(settings->is_on("checks::self-loops"));
}

TEST_F(SettingsTest, WithoutValueAndDefaultTheTextIsEmpty) {
  EXPECT_EQ(settings->text(setting::title), "");
}

TEST_F(SettingsTest, ValuesAreKeptInThePreferences) {
  take(setting::theme, "dark");
  EXPECT_EQ(stored("picture", "theme"), "dark");
  EXPECT_EQ(settings->given(setting::theme), "dark");
}

TEST_F(SettingsTest, OfAnEntryTheValueIsStoredAndTheNameShown) {
  take(setting::least_severity, "error");
  EXPECT_EQ(stored("checks", "least-severity"), "2");
  EXPECT_EQ(typed_value(settings->property(setting::least_severity), "2"), "error");
}

TEST_F(SettingsTest, ValuesThatASettingDoesNotTakeAreRefused) {
  const struct {
    const char* path;
    const char* value;
    const char* sentence;
  } cases[] = {{setting::theme, "dank", "use one of auto, light, dark (perhaps \"dark\")"},
               {setting::theme, "Dark", "use one of auto, light, dark (perhaps \"dark\")"},
               {setting::theme, "xyzzyxyzzy", "use one of auto, light, dark"},
               {setting::least_severity, "2", "use one of note, warning, error"},
               {setting::most_rows, "0", "use a whole number from 1 to 1000000"},
               {setting::most_rows, "1000001", "use a whole number from 1 to 1000000"},
               {setting::most_rows, "4294967297", "use a whole number from 1 to 1000000"},
               {setting::most_rows, "12abc", "use a whole number from 1 to 1000000"},
               {setting::most_rows, "1.5", "use a whole number from 1 to 1000000"},
               {"checks::self-loops", "yes", "use true or false"}};
  for (const auto& each : cases) {
    EXPECT_EQ(problem_of([&] { take(each.path, each.value); }),
              std::string("the option cannot be \"") + each.value + "\"; " + each.sentence);
    EXPECT_EQ(settings->given(each.path), std::nullopt) << each.path << "=" << each.value;
  }
}

TEST_F(SettingsTest, BothSpellingsOfABoolAreTaken) {
  for (const char* value : {"0", "false"}) {
    take("checks::self-loops", "true");
    take("checks::self-loops", value);
    EXPECT_FALSE(settings->is_on("checks::self-loops")) << value;
  }
}

TEST_F(SettingsTest, BoundsAreTaken) {
  for (const char* value : {"1", "1000000"}) {
    take(setting::most_rows, value);
    EXPECT_EQ(settings->text(setting::most_rows), value);
  }
}

TEST_F(SettingsTest, BlanksStandForTheDefault) {
  take(setting::title, "");
  take(setting::theme, " \t");
  EXPECT_EQ(settings->given(setting::title), std::nullopt);
  EXPECT_EQ(settings->given(setting::theme), std::nullopt);
}

// The library takes more than it keeps: 300 for an unsigned char, -1 for an unsigned int.
TEST_F(SettingsTest, NumbersStayWithinTheirDataType) {
  const struct {
    DataType type;
    const char* good;
    const char* bad;
    const char* advice;
  } cases[] = {
      {DataType::Char, "-128", "128", "use a whole number from -128 to 127"},
      {DataType::UnsignedChar, "255", "300", "use a whole number from 0 to 255"},
      {DataType::Short, "-32768", "-32769", "use a whole number from -32768 to 32767"},
      {DataType::Int, "-1", "2147483648", "use a whole number from -2147483648 to 2147483647"},
      {DataType::UnsignedInt, "4294967295", "-1", "use a whole number from 0 to 4294967295"},
      {DataType::LongLong, "9223372036854775807", "9223372036854775808", "use a whole number"},
      {DataType::UnsignedLongLong, "18446744073709551615", "-1", "use a whole number from 0 on"},
      {DataType::Float, "1e38", "1e39",
       "use a number from -3.4028234663852886e+38 to 3.4028234663852886e+38"},
      {DataType::Double, "-1e300", "nan", "use a number"},
      {DataType::Double, "0.5", "1e-320", "use a number"}};
  int number = 0;
  for (const auto& each : cases) {
    const std::string name = "n" + std::to_string(number++);
    IOXAProperty& property = add("p", name.c_str(), each.type, "1");
    if (each.type == DataType::Float) {
      property.SetRange(property.MinimumValue(), property.MaximumValue());
    }
    EXPECT_EQ(problem_of([&] { take("p::" + name, each.good); }), "");
    EXPECT_EQ(problem_of([&] { take("p::" + name, each.bad); }),
              std::string("the option cannot be \"") + each.bad + "\"; " + each.advice);
  }
}

TEST_F(SettingsTest, TextsAreTakenAsTheyAre) {
  add("p", "text", DataType::String, "1");
  take("p::text", "a=b :: c");
  EXPECT_EQ(settings->text("p::text"), "a=b :: c");
}

TEST_F(SettingsTest, AnUnknownSettingIsAProblemOncePluginsAreThere) {
  settings->take({{"picture::them", "dark", "the setting"}});
  EXPECT_EQ(problem_of([&] { settings->take_rest(); }),
            "there is no setting \"picture::them\" (perhaps picture::theme); see oxa-graph "
            "--settings");
  EXPECT_EQ(problem_of([&] { take("xyzzy::plugh", ""); }),
            "there is no setting \"xyzzy::plugh\"; see oxa-graph --settings");
}

TEST_F(SettingsTest, ChoicesAmongPluginsWaitForTheirEntries) {
  settings->take({{setting::layout, "circle", "the option --layout"}});
  EXPECT_EQ(settings->given(setting::layout), std::nullopt);
  settings->add_entries(setting::layout, {"circle", "force", "circle"});
  settings->take_rest();
  EXPECT_EQ(settings->given(setting::layout), "circle");
  EXPECT_EQ(problem_of([&] { take(setting::layout, "round"); }),
            "the option cannot be \"round\"; use one of circle, force");
}

TEST_F(SettingsTest, SettingsOfPluginsWaitForThem) {
  settings->take({{"p::late", "7", "the setting p::late"}});
  add("p", "late", DataType::Int, "1");
  settings->take_rest();
  EXPECT_EQ(settings->number("p::late"), 7);
}

TEST_F(SettingsTest, TheSourceTellsHowAValueWasGiven) {
  settings->take({{setting::theme, "dark", "the option --theme"}});
  EXPECT_EQ(settings->source(setting::theme), "the option --theme");
  EXPECT_EQ(settings->source(setting::title), "the setting picture::title");
}

// What the preferences list is only what has a value.
TEST_F(SettingsTest, AllHoldsOwnSettingsWithoutValueAndOthersWithOne) {
  take(setting::theme, "dark");
  add("b", "x", DataType::Int, "1").ViewHints()->SetGroup("A");
  add("a", "x", DataType::Int, "1").ViewHints()->SetGroup("B");
  add("a", "w", DataType::Int, "1").ViewHints()->SetGroup("B");
  oxa::add_setting(*preferences, "a", "unset", DataType::Int);
  std::vector<std::string> paths;
  for (IOXAProperty* property : settings->all()) {
    paths.emplace_back(property->FullNamespace());
  }
  EXPECT_EQ(std::count(paths.begin(), paths.end(), setting::theme), 1);
  EXPECT_EQ(std::count(paths.begin(), paths.end(), setting::title), 1);
  ASSERT_GT(paths.size(), 3U);
  EXPECT_EQ(std::vector<std::string>(paths.end() - 3, paths.end()),
            (std::vector<std::string>{"b::x", "a::w", "a::x"}));
}

TEST_F(SettingsTest, OwnSettingsSayAllOfThemselves) {
  for (IOXAProperty* property : settings->all()) {
    IOXAPropertyViewHints& view = *property->ViewHints();
    EXPECT_TRUE(view.Display()) << property->FullNamespace();
    EXPECT_NE(view.Alias(), nullptr) << property->FullNamespace();
    EXPECT_NE(view.Tooltip(), nullptr) << property->FullNamespace();
    EXPECT_NE(view.Group(), nullptr) << property->FullNamespace();
  }
}

TEST_F(SettingsTest, TheEditorSuitsTheDataType) {
  const struct {
    const char* path;
    graph::Editor editor;
  } cases[] = {{setting::title, graph::Editor::text},
               {setting::most_rows, graph::Editor::number},
               {setting::theme, graph::Editor::choice},
               {setting::plugin_folder, graph::Editor::file},
               {"checks::self-loops", graph::Editor::check_box}};
  for (const auto& each : cases) {
    EXPECT_EQ(settings->property(each.path).ViewHints()->Editor(), static_cast<int>(each.editor))
        << each.path;
  }
}

TEST_F(SettingsTest, DefaultsAreAmongWhatIsTaken) {
  for (IOXAProperty* property : settings->all()) {
    const char* usual = property->DefaultValue();
    if (usual != nullptr && property->FullNamespace() != std::string(setting::layout)) {
      const std::string typed = typed_value(*property, usual);
      EXPECT_EQ(stored_value(*property, typed, "default"), usual) << property->FullNamespace();
    }
  }
}

TEST_F(SettingsTest, ShortFormsLeadToOwnSettings) {
  for (const ShortForm& form : short_forms()) {
    EXPECT_EQ(settings->property(form.path).FullNamespace(), std::string(form.path));
    EXPECT_NE(std::string(help_text).find(std::string("  ") + form.option + " "),
              std::string::npos);
  }
}

TEST(OptionsTest, TheLastValueOfASettingCounts) {
  const Options options = parse_options(
      {"--theme", "light", "--set", "picture::theme=dark", "--set=a::b=c=d", "in", "out"});
  ASSERT_EQ(options.assignments.size(), 2U);
  EXPECT_EQ(options.assignments[0].value, "dark");
  EXPECT_EQ(options.assignments[0].source, "the setting picture::theme");
  EXPECT_EQ(options.assignments[1].path, "a::b");
  EXPECT_EQ(options.assignments[1].value, "c=d");
}

class SettingsListTest : public SettingsTest {
 protected:
  std::string list() {
    const auto translator = oxa::service<IOXAPropertyDataTypeTranslator>(context);
    return oxa_test::written_by([&] { print_settings(*settings, *translator); }).out;
  }

  void shows(const std::string& part) {
    const std::string text = list();
    EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
  }
};

TEST_F(SettingsListTest, TellsValueMeaningTypeRangeAndDefault) {
  take(setting::most_rows, "7");
  shows(
      "  checks::most-rows=7\n"
      "      rows: most rows to show of each category of findings\n"
      "      int: from 1 to 1000000 (default: 20)\n");
}

TEST_F(SettingsListTest, TellsEntriesByTheirNames) {
  take(setting::least_severity, "warning");
  shows("  checks::least-severity=warning\n");
  shows("      enum: note, warning, error (default: note)\n");
}

TEST_F(SettingsListTest, WhatHasNoValueIsThereAllTheSame) {
  shows("  picture::title=\n      title: ");
}

TEST_F(SettingsListTest, AGroupStandsTogether) {
  add("p", "x", DataType::Int, "1").ViewHints()->SetGroup("Layout");
  settings->property("p::x").ViewHints()->SetDisplayFlag(true);
  const std::string text = list();
  EXPECT_EQ(text.find("Layout\n"), text.rfind("Layout\n"));
  EXPECT_LT(text.find("p::x"), text.find("\nPicture\n"));
}

TEST_F(SettingsListTest, SettingsThatSayLittleAreListedByTheirNames) {
  add("p", "x", DataType::String, "a\nb").ViewHints()->SetDisplayFlag(true);
  shows("\nOthers\n  p::x=a b\n      x\n      string\n");
}

TEST_F(SettingsListTest, WhatIsNotToBeShownIsLeftOut) {
  add("p", "x", DataType::String, "1");
  EXPECT_EQ(list().find("p::x"), std::string::npos);
}

class NumberSettingTest : public SettingsTest {
 protected:
  graph::NumberSetting<double> make() {
    return {context.get(), "p", "share", 0.5, {0.25, 0.75}, {"Group", "share", "a share"}};
  }
};

TEST_F(NumberSettingTest, IsSetToItsDefaultSoThatItIsListed) {
  EXPECT_EQ(make().value(), 0.5);
  EXPECT_EQ(stored("p", "share"), "0.5");
  EXPECT_EQ(settings->all().back()->FullNamespace(), std::string("p::share"));
}

TEST_F(NumberSettingTest, AValueThatIsThereStays) {
  make();
  take("p::share", "0.3");
  EXPECT_EQ(make().value(), 0.3);
}

// Others may set what they like: the preferences check no range.
TEST_F(NumberSettingTest, IsBroughtWithinItsBounds) {
  const auto share = make();
  preferences->Set("p", "share", "7");
  EXPECT_EQ(share.value(), 0.75);
  preferences->Set("p", "share", "-7");
  EXPECT_EQ(share.value(), 0.25);
}

class CommaPoint final : public std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
};

TEST_F(NumberSettingTest, IsReadUnderTheLocaleThatItIsWrittenUnder) {
  const auto share = make();
  const std::locale before = std::locale::global(std::locale(std::locale(), new CommaPoint));
  EXPECT_EQ(stored("p", "share"), "0,5");
  preferences->Set("p", "share", "0.3");
  EXPECT_EQ(share.value(), 0.3);
  std::locale::global(before);
}

TEST_F(NumberSettingTest, WithoutPreferencesItIsTheDefault) {
  const graph::NumberSetting<int> rounds(nullptr, "p", "rounds", 7, {1, 9}, {"", "", ""});
  EXPECT_EQ(rounds.value(), 7);
}

TEST_F(NumberSettingTest, BoundsOutOfOrderAreAMistake) {
  const auto make_wrong = [&] {
    graph::NumberSetting<int>(context.get(), "p", "rounds", 7, {9, 1}, {"", "", ""});
  };
  EXPECT_THROW(make_wrong(), std::invalid_argument);
}

using SettingsOfPluginsTest = graph_test::GraphTest;

TEST_F(SettingsOfPluginsTest, RoundsChangeThePlaces) {
  read("a b\nb c\nc d\nd a\na e\n");
  arrange("force");
  const std::vector<double> usual = column("x");
  const auto preferences = oxa::service<IOXAPreferences>(context);
  EXPECT_EQ(preferences->Set("force_layout", "rounds", "3"), S_OK);
  EXPECT_EQ(arrange("force"), S_OK);
  EXPECT_NE(column("x"), usual);
  preferences->Set("force_layout", "rounds", "500");
  arrange("force");
  EXPECT_EQ(column("x"), usual);
}

TEST_F(SettingsOfPluginsTest, DistancesChangeThePlaces) {
  read("a b\nb c\nc d\nd a\na e\n");
  arrange("force");
  const std::vector<double> usual = column("x");
  oxa::service<IOXAPreferences>(context)->Set("force_layout", "distances-up-to", "4");
  EXPECT_EQ(arrange("force"), S_OK);
  EXPECT_NE(column("x"), usual);
}

TEST_F(SettingsOfPluginsTest, WithLittleDampingRanksAreNearlyEqual) {
  read("hub a\nhub b\nhub c\nhub d\n");
  run("pagerank");
  const double usual = value("pagerank", "hub");
  oxa::service<IOXAPreferences>(context)->Set("centralities", "damping", "0.01");
  run("pagerank");
  EXPECT_GT(usual, 0.4);
  EXPECT_LT(value("pagerank", "hub"), 0.22);
}

}  // namespace
