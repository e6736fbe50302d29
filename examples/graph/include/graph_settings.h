// Settings of oxa-graph and of its plug-ins, in the preferences of the context.
//
// A plug-in offers settings of its own when it is loaded, in a namespace that bears its name, and
// asks for their values when it works. The preferences list only what has a value, so those of
// plug-ins are set to their defaults at once; people then find them in --settings and change them
// with --set. The preferences check neither ranges nor entries: oxa-graph does so for what people
// type, but others may set anything.
#pragma once

#include <oxa/IOXAContext.h>
#include <oxa/IOXAPropertyViewHints.h>
#include <oxa/sdk/properties.h>

#include <algorithm>
#include <locale>
#include <new>
#include <sstream>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace graph {

// The widget to edit a setting with. The library itself makes 4 that of every Bool.
enum class Editor : int { text = 0, number = 1, choice = 2, file = 3, check_box = 4 };

// How a setting is shown: the group it stands in, the name beside it, and what it means.
struct SettingHints {
  const char* group;
  const char* alias;
  const char* tooltip;
};

inline Editor editor_for(OXA::Property::DataType type) {
  using OXA::Property::DataType;
  switch (type) {
    case DataType::Bool:
      return Editor::check_box;
    case DataType::Enum:
      return Editor::choice;
    case DataType::File:
      return Editor::file;
    default:
      return type >= DataType::Char && type <= DataType::Double ? Editor::number : Editor::text;
  }
}

// Adds a setting that is shown, with a default unless `usual` is null, and returns its description.
// Throws std::bad_alloc.
inline IOXAProperty& describe_setting(IOXAPreferences& preferences, const char* ns,
                                      const char* name, OXA::Property::DataType type,
                                      const char* usual, const SettingHints& hints) {
  IOXAProperty& property = oxa::add_setting(preferences, ns, name, type);
  IOXAPropertyViewHints& view = *property.ViewHints();
  view.SetDisplayFlag(true);
  view.SetEditor(static_cast<int>(editor_for(type)));
  if (oxa::failed(view.SetGroup(hints.group)) || oxa::failed(view.SetAlias(hints.alias)) ||
      oxa::failed(view.SetTooltip(hints.tooltip)) ||
      (usual != nullptr && oxa::failed(property.SetDefaultValue(usual)))) {
    throw std::bad_alloc();
  }
  return property;
}

// A number, an int or a double, that people set within bounds.
template <class Number>
class NumberSetting {
 public:
  struct Bounds {
    Number least;
    Number most;
  };

  // `ns` and `name` outlive the object. A value that is there already stays. Without preferences
  // the setting has its default. Throws std::bad_alloc, and std::invalid_argument for bounds out of
  // order.
  NumberSetting(IOXAContext* context, const char* ns, const char* name, Number usual,
                const Bounds& bounds, const SettingHints& hints)
      : context_(context), ns_(ns), name_(name), usual_(usual), bounds_(bounds) {
    using OXA::Property::DataType;
    const auto preferences = oxa::service<IOXAPreferences>(context);
    if (!preferences) {
      return;
    }
    constexpr bool whole = std::is_same_v<Number, int>;
    const std::string text = text_of(usual);
    IOXAProperty& property = describe_setting(
        *preferences, ns, name, whole ? DataType::Int : DataType::Double, text.c_str(), hints);
    if (oxa::failed(property.SetRange(bounds.least, bounds.most))) {
      throw std::invalid_argument("a setting has its bounds out of order");
    }
    char* present = nullptr;
    if (oxa::failed(preferences->Get(ns, name, &present)) &&
        oxa::failed(preferences->Set(ns, name, text.c_str()))) {
      throw std::bad_alloc();
    }
  }

  // Returns the present value, brought within the bounds.
  Number value() const {
    const auto preferences = oxa::service<IOXAPreferences>(context_);
    char* text = nullptr;
    if (!preferences || oxa::failed(preferences->Get(ns_, name_, &text))) {
      return usual_;
    }
    std::istringstream stream(text);  // under the locale that the preferences write under
    Number number = usual_;
    return stream >> number ? std::clamp(number, bounds_.least, bounds_.most) : usual_;
  }

 private:
  static std::string text_of(Number number) {
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream << number;
    return stream.str();
  }

  IOXAContext* context_;
  const char* ns_;
  const char* name_;
  Number usual_;
  Bounds bounds_;
};

}  // namespace graph
