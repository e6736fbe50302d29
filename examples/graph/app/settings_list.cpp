#include "settings_list.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "setting_value.h"
#include "text.h"

namespace {

struct Group {
  std::string name;
  std::vector<IOXAProperty*> settings;
};

std::string group_of(IOXAProperty& property) {
  const char* group = property.ViewHints()->Group();
  return group != nullptr ? one_line(group) : "Others";
}

// A group stands where its first setting stands.
std::vector<Group> groups(const std::vector<IOXAProperty*>& settings) {
  std::vector<Group> found;
  for (IOXAProperty* property : settings) {
    if (!property->ViewHints()->Display()) {
      continue;
    }
    const std::string name = group_of(*property);
    auto group = std::find_if(found.begin(), found.end(),
                              [&](const Group& other) { return other.name == name; });
    if (group == found.end()) {
      group = found.insert(found.end(), {name, {}});
    }
    group->settings.push_back(property);
  }
  return found;
}

std::string meaning_of(IOXAProperty& property) {
  const std::string alias = text_of(property.ViewHints()->Alias());
  const std::string tooltip = text_of(property.ViewHints()->Tooltip());
  return (alias.empty() ? text_of(property.Name()) : alias) +
         (tooltip.empty() ? "" : ": " + tooltip);
}

// The data type, the values, and the default: "enum: auto, light, dark (default: auto)".
std::string type_of(IOXAProperty& property, IOXAPropertyDataTypeTranslator& translator) {
  const char* name = translator.ToString(property.DataType());
  const std::string values = allowed_values(property);
  const std::string usual = typed_value(property, text_of(property.DefaultValue()));
  return (name != nullptr ? name : "unknown") + (values.empty() ? "" : ": " + values) +
         (is_blank(usual) ? "" : " (default: " + usual + ")");
}

}  // namespace

void print_settings(const Settings& settings, IOXAPropertyDataTypeTranslator& translator) {
  const char* gap = "";
  for (const Group& group : groups(settings.all())) {
    std::printf("%s%s\n", std::exchange(gap, "\n"), group.name.c_str());
    for (IOXAProperty* property : group.settings) {
      const std::string path = property->FullNamespace();
      const std::string value = typed_value(*property, one_line(settings.text(path)));
      std::printf("  %s=%s\n", path.c_str(), value.c_str());
      std::printf("      %s\n", meaning_of(*property).c_str());
      std::printf("      %s\n", type_of(*property, translator).c_str());
    }
  }
}
