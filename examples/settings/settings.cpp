// Offers settings, takes values for them from its arguments, such as "drawing::edges=curve", and
// prints them.
#include <oxa/oxa.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

using OXA::Property::DataType;

namespace {

// [snippet: offer]
void offer_settings(IOXAPreferences& preferences) {
  IOXAProperty& rounds = oxa::add_setting(preferences, "layout::force", "rounds", DataType::Int);
  rounds.SetRange(1, 10000);
  rounds.SetDefaultValue("500");
  rounds.ViewHints()->SetTooltip("how often all nodes are moved");

  IOXAProperty& edges = oxa::add_setting(preferences, "drawing", "edges", DataType::Enum);
  edges.AddAttribute("straight lines", "line");  // what people read, and the value
  edges.AddAttribute("curves", "curve");
  edges.SetDefaultValue("line");
  edges.ViewHints()->SetTooltip("how edges are drawn");

  IOXAProperty& width = oxa::add_setting(preferences, "drawing", "width", DataType::Double);
  width.SetRange(0, 100);
  width.SetDefaultValue("1.5");

  // Only settings with a value are listed. Offered again, they keep what people have chosen.
  for (IOXAProperty* each : {&rounds, &edges, &width}) {
    char* value = nullptr;
    if (oxa::failed(preferences.Get(each->Namespace(), each->Name(), &value))) {
      preferences.Set(each->Namespace(), each->Name(), each->DefaultValue());
    }
  }
}
// [snippet end]

// [snippet: admits]
// Tells whether the range or the entries of a setting admit a text, which the library does not ask.
bool admits(IOXAProperty& property, const char* text) {
  if (property.DataType() == DataType::Enum) {
    char* entry = nullptr;
    return oxa::succeeded(property.GetAttributeFromValue(text, &entry));
  }
  const OXAVariant::Kind kind = oxa::kind_of(property.DataType());
  if (kind == OXAVariant::Kind::Text || kind == OXAVariant::Kind::Bool) {
    return true;  // their bounds are 0 and 1, whatever they hold
  }
  const bool real = kind == OXAVariant::Kind::Float || kind == OXAVariant::Kind::Double;
  char* end = nullptr;
  const double number = std::strtod(text, &end);
  const char* const rest = real ? end : text + std::strspn(text, "+-0123456789");
  if (*rest != '\0') {
    return false;  // an Int would take "7 days" as 7, and "1e3" as 1
  }
  return number >= property.MinimumValue() && number <= property.MaximumValue();
}
// [snippet end]

// [snippet: list]
// Returns the settings that have a value, in an order for people.
std::vector<IOXAProperty*> listed(IOXAPreferences& preferences) {
  std::vector<IOXAProperty*> found;
  for (IOXAProperty* each : oxa::settings(preferences)) {
    found.push_back(each);
  }
  std::sort(found.begin(), found.end(), [](IOXAProperty* left, IOXAProperty* right) {
    return std::strcmp(left->FullNamespace(), right->FullNamespace()) < 0;
  });
  return found;
}

void print(IOXAPreferences& preferences, IOXAPropertyDataTypeTranslator& translator) {
  for (IOXAProperty* each : listed(preferences)) {
    std::printf("%s = %s (%s", each->FullNamespace(),
                oxa::setting(preferences, *each).value_or("").c_str(),
                translator.ToString(each->DataType()));
    if (each->IsRangeSet()) {
      std::printf(", %g to %g", each->MinimumValue(), each->MaximumValue());
    }
    for (const char* entry : oxa::attribute_names(*each)) {
      std::printf(", %s: %s", oxa::attribute(*each, entry), entry);
    }
    const char* tooltip = each->ViewHints()->Tooltip();
    std::printf(")%s%s\n", tooltip != nullptr ? " " : "", tooltip != nullptr ? tooltip : "");
  }
}
// [snippet end]

// Sets a setting that is listed: Set itself would add one that is not. `argument` is its full name,
// "=" and the value.
OXAResult set(IOXAPreferences& preferences, const std::string& argument) {
  const std::size_t equals = argument.find('=');
  if (equals == std::string::npos) {
    return E_INVALIDARG;
  }
  const char* const value = argument.c_str() + equals + 1;
  for (IOXAProperty* each : listed(preferences)) {
    if (argument.compare(0, equals, each->FullNamespace()) == 0) {
      return admits(*each, value) ? preferences.Set(each->Namespace(), each->Name(), value)
                                  : E_INVALIDARG;
    }
  }
  return E_NOTFOUND;
}

}  // namespace

int main(int count, char** arguments) {
  oxa::Ref<IOXAContext> context;
  if (oxa::failed(OXACreateContext(IID_IOXAContext, oxa::adopt_into(context)))) {
    return 2;
  }
  const auto preferences = oxa::service<IOXAPreferences>(context);
  offer_settings(*preferences);
  for (int index = 1; index < count; ++index) {
    const OXAResult result = set(*preferences, arguments[index]);
    if (oxa::failed(result)) {
      std::fprintf(stderr, "%s: %s\n", arguments[index], oxa::result_text(result));
      return 1;
    }
  }
  print(*preferences, *oxa::service<IOXAPropertyDataTypeTranslator>(context));
  return 0;
}
