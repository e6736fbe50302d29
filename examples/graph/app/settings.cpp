#include "settings.h"

#include <graph_settings.h>

#include <algorithm>
#include <stdexcept>
#include <tuple>

#include "checks.h"
#include "problem.h"
#include "setting_value.h"
#include "text.h"

using OXA::Property::DataType;

namespace {

struct OwnSetting {
  const char* path;
  DataType type;
  const char* usual;  // null for none
  const char* group;
  const char* alias;
  const char* tooltip;
  const char* option;  // null for none
};

constexpr OwnSetting own_settings[] = {
    {setting::algorithms, DataType::String, "pagerank,betweenness,degree,community", "Algorithms",
     "algorithms", "what to compute, separated by commas; none for nothing", "--algorithms"},
    {setting::layout, DataType::Enum, "force", "Layout", "layout", "how to arrange the nodes",
     "--layout"},
    {setting::size_by, DataType::Enum, nullptr, "Picture", "sizes",
     "algorithm whose measure node sizes show; otherwise the first measure computed", "--size-by"},
    {setting::color_by, DataType::Enum, nullptr, "Picture", "colours",
     "algorithm that node colours show; otherwise the first grouping computed", "--color-by"},
    {setting::theme, DataType::Enum, "auto", "Picture", "theme",
     "colours of the page; auto follows the viewer", "--theme"},
    {setting::title, DataType::String, nullptr, "Picture", "title",
     "title of the picture; otherwise from the input's name", "--title"},
    {setting::plugin_folder, DataType::File, nullptr, "Plug-ins", "folder",
     "folder of plug-ins; otherwise the one that belongs to the program", "--plugins"},
    {setting::least_severity, DataType::Enum, "0", "Checks", "severity",
     "least severity of the findings to show", nullptr},
    {setting::most_rows, DataType::Int, "20", "Checks", "rows",
     "most rows to show of each category of findings", nullptr}};

struct Entry {
  const char* path;
  const char* name;
  const char* value;
};

// A severity is stored as its number.
constexpr Entry entries[] = {
    {setting::theme, "auto", "auto"},          {setting::theme, "light", "light"},
    {setting::theme, "dark", "dark"},          {setting::size_by, "none", "none"},
    {setting::color_by, "none", "none"},       {setting::least_severity, "note", "0"},
    {setting::least_severity, "warning", "1"}, {setting::least_severity, "error", "2"}};

constexpr int most_rows_limit = 1000000;

// The settings that learn their entries from plug-ins.
constexpr const char* choices_of_plugins[] = {setting::layout, setting::size_by, setting::color_by};

bool chooses_among_plugins(const std::string& path) {
  return std::find(std::begin(choices_of_plugins), std::end(choices_of_plugins), path) !=
         std::end(choices_of_plugins);
}

void add_entry(IOXAProperty& property, const char* name, const char* value) {
  // The first plug-in that offers a name is the one in use.
  const OXAResult result = property.AddAttribute(name, value);
  if (oxa::failed(result) && result != E_ALREADYEXISTS) {
    throw std::bad_alloc();
  }
}

// By what --settings is to order settings of plug-ins.
auto order_of(IOXAProperty& property) {
  const char* group = property.ViewHints()->Group();
  return std::tuple<std::string, std::string>(group != nullptr ? group : "",
                                              property.FullNamespace());
}

}  // namespace

std::vector<ShortForm> short_forms() {
  std::vector<ShortForm> forms;
  for (const OwnSetting& own : own_settings) {
    if (own.option != nullptr) {
      forms.push_back({own.option, own.path});
    }
  }
  return forms;
}

Settings::Settings(IOXAContext* context) : preferences_(oxa::service<IOXAPreferences>(context)) {
  if (!preferences_) {
    throw Problem("the library gives no preferences; reinstall it");
  }
  for (const OwnSetting& own : own_settings) {
    add(own.path, own.type, own.usual, own.group, own.alias, own.tooltip);
  }
  for (const Entry& entry : entries) {
    add_entry(property(entry.path), entry.name, entry.value);
  }
  property(setting::most_rows).SetRange(1, most_rows_limit);
  for (const Check& check : all_checks()) {
    add(check.setting, DataType::Bool, "true", "Checks", check.kind.category, check.kind.verbose);
  }
}

IOXAProperty& Settings::add(const char* path, DataType type, const char* usual, const char* group,
                            const char* alias, const char* tooltip) {
  const std::string whole = path;
  const std::size_t colons = whole.find("::");
  IOXAProperty& property = graph::describe_setting(*preferences_, whole.substr(0, colons).c_str(),
                                                   whole.substr(colons + 2).c_str(), type, usual,
                                                   {group, alias, tooltip});
  own_.push_back(&property);
  return property;
}

void Settings::add_entries(const char* path, const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    add_entry(property(path), name.c_str(), name.c_str());
  }
}

void Settings::take(const std::vector<Assignment>& assignments) {
  for (const Assignment& assignment : assignments) {
    IOXAProperty* property = find(assignment.path);
    if (property == nullptr || chooses_among_plugins(assignment.path)) {
      rest_.push_back(assignment);
    } else {
      set(*property, assignment);
    }
  }
}

void Settings::take_rest() {
  for (const Assignment& assignment : std::exchange(rest_, {})) {
    IOXAProperty* property = find(assignment.path);
    if (property == nullptr) {
      unknown(assignment);
    }
    set(*property, assignment);
  }
}

void Settings::unknown(const Assignment& assignment) const {
  std::vector<std::string> known;
  for (IOXAProperty* property : all()) {
    known.emplace_back(property->FullNamespace());
  }
  const std::string like = closest(assignment.path, known);
  throw Problem("there is no setting " + in_quotes(assignment.path) +
                    (like.empty() ? "" : " (perhaps " + like + ")") + "; see oxa-graph --settings",
                exit_usage);
}

void Settings::set(IOXAProperty& property, const Assignment& assignment) {
  if (is_blank(assignment.value)) {
    return;
  }
  const std::string value = stored_value(property, assignment.value, assignment.source);
  const OXAResult result = preferences_->Set(property.Namespace(), property.Name(), value.c_str());
  if (result == E_OUTOFMEMORY) {
    throw std::bad_alloc();
  }
  if (oxa::failed(result)) {
    refuse_value(property, assignment.value, assignment.source);
  }
  sources_[assignment.path] = assignment.source;
}

std::vector<IOXAProperty*> Settings::all() const {
  std::vector<IOXAProperty*> found = own_;
  for (IOXAProperty* property : oxa::settings(*preferences_)) {
    if (std::find(own_.begin(), own_.end(), property) == own_.end()) {
      found.push_back(property);
    }
  }
  std::sort(
      found.begin() + static_cast<std::ptrdiff_t>(own_.size()), found.end(),
      [](IOXAProperty* left, IOXAProperty* right) { return order_of(*left) < order_of(*right); });
  return found;
}

IOXAProperty* Settings::find(const std::string& path) const {
  for (IOXAProperty* property : all()) {
    if (path == property->FullNamespace()) {
      return property;
    }
  }
  return nullptr;
}

IOXAProperty& Settings::property(const std::string& path) const {
  IOXAProperty* found = find(path);
  if (found == nullptr) {
    throw std::logic_error("there is no setting " + path);
  }
  return *found;
}

std::optional<std::string> Settings::given(const std::string& path) const {
  IOXAProperty& described = property(path);
  char* value = nullptr;
  preferences_->Get(described.Namespace(), described.Name(), &value);
  return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
}

std::string Settings::text(const std::string& path) const {
  return oxa::setting(*preferences_, property(path)).value_or("");
}

int Settings::number(const std::string& path) const { return std::stoi(text(path)); }

std::string Settings::source(const std::string& path) const {
  const auto found = sources_.find(path);
  return found != sources_.end() ? found->second : "the setting " + path;
}
