// What people choose: the settings of the program and of its plug-ins.
#pragma once

#include <oxa/oxa.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

// The settings of the program itself, by their paths.
namespace setting {
inline constexpr const char* theme = "picture::theme";
inline constexpr const char* title = "picture::title";
inline constexpr const char* size_by = "picture::size-by";
inline constexpr const char* color_by = "picture::color-by";
inline constexpr const char* layout = "layout::name";
inline constexpr const char* algorithms = "algorithms::names";
inline constexpr const char* plugin_folder = "plugins::folder";
inline constexpr const char* least_severity = "checks::least-severity";
inline constexpr const char* most_rows = "checks::most-rows";
}  // namespace setting

// A setting with an option that is short for it.
struct ShortForm {
  const char* option;
  const char* path;
};

std::vector<ShortForm> short_forms();

// A value for a setting, and how it was given: "the option --theme".
struct Assignment {
  std::string path;
  std::string value;
  std::string source;
};

// The program's settings, kept in the preferences of a context, next to those of its plug-ins. All
// throw std::bad_alloc.
class Settings {
 public:
  // Adds the settings of the program. Throws Problem when the context has no preferences.
  explicit Settings(IOXAContext* context);

  // Adds entries to a setting of the program that chooses among what plug-ins offer.
  void add_entries(const char* path, const std::vector<std::string>& entries);

  // Sets what is known before there are plug-ins, and keeps the rest for take_rest. A value of
  // blanks, which the preferences do not store, stands for the default. Throws Problem with
  // exit_usage for a value that a setting does not take.
  void take(const std::vector<Assignment>& assignments);

  // Sets the rest, once plug-ins are loaded. Throws Problem as above, and for an unknown setting.
  void take_rest();

  // All settings: the program's in the order of --help, then those of plug-ins, that have a value,
  // by group and path. Borrowed.
  std::vector<IOXAProperty*> all() const;

  // Returns a setting of the program or of one in all(). Borrowed.
  IOXAProperty& property(const std::string& path) const;

  // Return the value of a setting as it is stored: the one that was set; that or the default, and
  // an empty text without either.
  std::optional<std::string> given(const std::string& path) const;
  std::string text(const std::string& path) const;
  bool is_on(const std::string& path) const { return text(path) == "true"; }
  int number(const std::string& path) const;

  // Returns how the value was given, for messages, or else the setting.
  std::string source(const std::string& path) const;

 private:
  IOXAProperty& add(const char* path, OXA::Property::DataType type, const char* usual,
                    const char* group, const char* alias, const char* tooltip);
  IOXAProperty* find(const std::string& path) const;
  void set(IOXAProperty& property, const Assignment& assignment);
  [[noreturn]] void unknown(const Assignment& assignment) const;

  oxa::Ref<IOXAPreferences> preferences_;
  std::vector<IOXAProperty*> own_;
  std::vector<Assignment> rest_;
  std::map<std::string, std::string> sources_;
};
