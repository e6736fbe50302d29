#include "properties/model/property_program.h"

#include <algorithm>
#include <functional>

#include "properties/model/descriptor_program.h"
#include "properties/model/model_properties.h"
#include "properties/model/model_value_text.h"
#include "properties/model/property_library.h"

namespace oxa_test::model {
namespace {

constexpr const char* paths[] = {"",        "a", "a::b",  "::",  ":::",   "a::",  "b",
                                 "a::b::c", "A", nullptr, "::a", "a:::b", "::::", "a::::b"};
constexpr const char* names[] = {"x", "y", "", "b::x", "::", "x y", "X", "b", "\xC3\xA9", nullptr};

class Runner {
 public:
  Runner(std::string_view bytes, Account& account)
      : program_(bytes), account_(account), options_(program_.below(8)) {}

  void run() {
    while (!program_.empty()) {
      run(program_.next());
      check_last_text();
    }
    check_all();
    end();
  }

 private:
  bool on_manager() const { return library_.manager != nullptr; }

  void run(char letter) {
    if (!run_on_either(letter) && on_manager()) {
      run_on_manager(letter);
    }
  }

  // Returns false for what is no operation of preferences or properties.
  bool run_on_either(char letter) {
    switch (letter) {
      case 'r':
        add();
        return true;
      case 's':
        set_text();
        return true;
      case 'g':
        get_text();
        return true;
      case 'l':
        list_values();
        return true;
      case 'T':
        set_type_by_name();
        return true;
      case 'v':
        check_all();
        return true;
      default:
        break;
    }
    constexpr std::string_view on_manager_alone = "uUeEfFSGmM";
    if (on_manager_alone.find(letter) != std::string_view::npos) {
      return false;
    }
    if (property_letters.find(letter) != std::string_view::npos) {
      if (Property* const property = pick()) {
        change(letter, *property);
      }
    }
    return true;
  }

  void run_on_manager(char letter) {
    switch (letter) {
      case 'u': {
        const char* const ns = program_.text(paths);
        const char* const name = program_.text(names);
        account_.result("Unregister(ns, name)", library_.manager->Unregister(ns, name),
                        model_.Unregister(ns, name));
        break;
      }
      case 'U': {
        Property* const property = pick();
        account_.result("Unregister(property)", library_.manager->Unregister(twin_of(property)),
                        model_.Unregister(property));
        break;
      }
      case 'e':
        list_all();
        break;
      case 'E':
        list_namespace();
        break;
      case 'f':
        find_by_id();
        break;
      case 'F':
        find_by_name();
        break;
      case 'S': {
        Property* const property = pick();
        const bool fits = property != nullptr && program_.below(4) < 3;
        const auto kind = fits ? stored_kind(property->data_type) : std::nullopt;
        const OXAVariant value = kind ? program_.variant(*kind) : program_.variant();
        account_.result("SetProperty(property)",
                        library_.values->SetProperty(twin_of(property), value),
                        values_.SetProperty(property, value));
        break;
      }
      case 'G':
        get_variant(pick());
        break;
      case 'm': {
        const char* const ns = program_.text(paths);
        const char* const name = program_.text(names);
        account_.result("RemoveProperty(ns, name)", library_.values->RemoveProperty(ns, name),
                        values_.RemoveProperty(ns, name));
        learn(ns, name);
        break;
      }
      case 'M': {
        Property* const property = pick();
        account_.result("RemoveProperty(property)",
                        library_.values->RemoveProperty(twin_of(property)),
                        values_.RemoveProperty(property));
        break;
      }
      default:
        break;
    }
  }

  void change(char letter, Property& property) {
    switch (letter) {
      case '+':
        account_.number("AddReference", property.twin->AddReference(), ++property.references);
        ++property.held;
        return;
      case '-':
        if (property.held > 0) {
          release(property);
        }
        return;
      case 'C':
        clone(property);
        break;
      default:
        descriptor_.run(letter, property);
        break;
    }
    check_property(property);
  }

  void clone(Property& property) {
    if (program_.drops_output() || model_.all.size() > most_properties) {
      account_.result("Clone", property.twin->Clone(nullptr), E_INVALIDARG);
      return;
    }
    IOXAProperty* copy = nullptr;
    account_.result("Clone", property.twin->Clone(&copy), S_OK);
    Property& expected = *model_.add(property.Clone());
    expected.twin = copy;
    check_property(expected);
  }

  void add() {
    const char* const ns = program_.text(paths);
    const char* const name = program_.text(names);
    if (program_.drops_output()) {
      account_.result("Register", library_.add(ns, name, nullptr), E_INVALIDARG);
    } else if (model_.all.size() <= most_properties) {
      IOXAProperty* property = unset();
      const OXAResult result = library_.add(ns, name, &property);
      compare_found("Register", result, property, model_.Register(ns, name));
    }
  }

  // Values are set by name more often than a name is picked by chance.
  void set_type_by_name() {
    const char* const ns = program_.text(paths);
    const char* const name = program_.text(names);
    const FoundProperty found = model_.FindProperty(ns, name);
    if (found.property != nullptr) {
      descriptor_.set_type(*found.property);
    }
  }

  void set_text() {
    const char* const ns = program_.text(paths);
    const char* const name = program_.text(names);
    const char* const text = program_.text(value_texts);
    last_text_ = nullptr;
    const OXAResult result = library_.set(ns, name, text);
    account_.result("SetProperty(ns, name)", result, values_.SetProperty(ns, name, text));
    learn(ns, name);
  }

  void get_text() {
    const char* const ns = program_.text(paths);
    const char* const name = program_.text(names);
    last_text_ = nullptr;
    if (program_.drops_output()) {
      account_.result("GetProperty(ns, name)", library_.get(ns, name, nullptr), E_INVALIDARG);
      return;
    }
    char unset[] = "unset";
    char* text = unset;
    const OXAResult result = library_.get(ns, name, &text);
    const Values::Text expected = values_.GetProperty(ns, name);
    account_.result("GetProperty(ns, name)", result, expected.result);
    if (ns != nullptr && name != nullptr) {
      last_text_ = text;
      // A text with a zero byte ends there.
      expected_last_text_ = expected.text ? shown(expected.text->c_str()) : shown(nullptr);
      learn(ns, name);
    }
  }

  // A text stays until the next conversion.
  void check_last_text() {
    if (last_text_ != nullptr) {
      Account::text("the text that GetProperty gave", shown(last_text_), expected_last_text_);
    }
  }

  void get_variant(Property* property) {
    OXAVariant value;
    value.text = "unset";
    value.bits = 77;
    const OXAResult result = library_.values->GetProperty(twin_of(property), value);
    const Values::Stored expected = values_.GetProperty(property);
    account_.result("GetProperty(property)", result, expected.result);
    if (expected.result != S_OK) {
      Account::text("GetProperty(property) that fails", whole(value), "0 77 'unset'");
    } else if (expected.value.is_copy) {
      Account::text("GetProperty(property)", whole(value), whole(expected.value.variant));
    } else {
      Account::text("GetProperty(property)", meaning(value), meaning(expected.value.variant));
    }
  }

  void find_by_id() {
    const int digit = static_cast<int>(program_.below(12)) - 1;
    const auto id = static_cast<unsigned long>(digit) + (digit == 10 ? 1UL << 32U : 0);
    if (program_.drops_output()) {
      account_.result("FindProperty(id)", library_.manager->FindProperty(id, nullptr),
                      E_INVALIDARG);
      return;
    }
    IOXAProperty* property = unset();
    const OXAResult result = library_.manager->FindProperty(id, &property);
    compare_found("FindProperty(id)", result, property, model_.FindProperty(id));
  }

  void find_by_name() {
    const char* const ns = program_.text(paths);
    const char* const name = program_.text(names);
    IOXAProperty* property = unset();
    const OXAResult result = library_.manager->FindProperty(ns, name, &property);
    compare_found("FindProperty(ns, name)", result, property, model_.FindProperty(ns, name));
  }

  // Of those that are gone there is an address, which is not looked behind.
  void compare_found(const char* operation, OXAResult result, IOXAProperty* property,
                     const FoundProperty& expected) {
    account_.result(operation, result, expected.result);
    if (expected.property != nullptr && expected.property->twin == nullptr) {
      expected.property->twin = property;
      check_property(*expected.property);
    } else if (result != E_INVALIDARG) {
      Account::same(operation, property, twin_of(expected.property));
    }
  }

  void list_all() {
    if (program_.drops_output()) {
      account_.result("GetPropertyEnum", library_.manager->GetPropertyEnum(nullptr), E_INVALIDARG);
      return;
    }
    oxa::Ref<IOXAPropertyEnum> found;
    const OXAResult result = library_.manager->GetPropertyEnum(oxa::adopt_into(found));
    account_.result("GetPropertyEnum", result, S_OK);
    compare_tree(listed(*found), model_.in({}, true));
  }

  void list_namespace() {
    const char* const ns = program_.text(paths);
    const bool recursive = program_.flag();
    if (program_.drops_output()) {
      account_.result("GetPropertyEnum(ns)",
                      library_.manager->GetPropertyEnum(ns, recursive, nullptr), E_INVALIDARG);
      return;
    }
    oxa::Ref<IOXAPropertyEnum> found;
    const OXAResult result =
        library_.manager->GetPropertyEnum(ns, recursive, oxa::adopt_into(found));
    account_.result("GetPropertyEnum(ns)", result, ns == nullptr ? E_UNEXPECTED : S_OK);
    if (result == S_OK) {
      compare_tree(listed(*found), model_.in(Properties::path_of(ns), recursive));
    } else {
      Account::same("GetPropertyEnum(ns) that fails", found.get(), nullptr);
    }
  }

  void list_values() {
    oxa::Ref<IOXAPropertyEnum> found;
    if (program_.drops_output()) {
      account_.result("GetPropertyEnum of values", library_.with_value(nullptr), E_INVALIDARG);
      return;
    }
    const OXAResult result = library_.with_value(oxa::adopt_into(found));
    account_.result("GetPropertyEnum of values", result, S_OK);
    compare_sets(listed(*found), values_.with_value());
  }

  std::vector<IOXAProperty*> listed(IOXAPropertyEnum& enumerator) const {
    std::vector<IOXAProperty*> items;
    IOXAProperty* item = nullptr;
    for (OXAResult result = enumerator.GetFirst(&item); result == S_OK;
         result = enumerator.GetNext(&item)) {
      items.push_back(item);
    }
    Account::number("Count", static_cast<long long>(enumerator.Count()),
                    static_cast<long long>(items.size()));
    return items;
  }

  static void compare_sets(std::vector<IOXAProperty*> items,
                           const std::vector<Property*>& expected) {
    std::vector<IOXAProperty*> twins;
    std::transform(expected.begin(), expected.end(), std::back_inserter(twins), twin_of);
    std::sort(items.begin(), items.end(), std::less<>());
    std::sort(twins.begin(), twins.end(), std::less<>());
    Account::number("the listed properties are those of the model", items == twins, true);
  }

  // The properties of a namespace precede those of the namespaces in it, and stand together with
  // them.
  static void compare_tree(const std::vector<IOXAProperty*>& items,
                           const std::vector<Property*>& expected) {
    compare_sets(items, expected);
    std::vector<Path> owners;
    for (IOXAProperty* item : items) {
      owners.push_back(Properties::path_of(item->Namespace()));
    }
    for (std::size_t first = 0; first < owners.size(); ++first) {
      std::size_t shared = owners[first].size();
      for (std::size_t next = first + 1; next < owners.size(); ++next) {
        const std::size_t now_shared = parts_shared(owners[first], owners[next]);
        Account::number("a namespace stands together", now_shared <= shared, true);
        Account::number("a namespace precedes those in it",
                        now_shared < owners[next].size() || owners[first] == owners[next], true);
        shared = now_shared;
      }
    }
  }

  static std::size_t parts_shared(const Path& left, const Path& right) {
    const auto end = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    return static_cast<std::size_t>(end.first - left.begin());
  }

  // Looks up the counterpart of what was registered on the way.
  void learn(const char* ns, const char* name) {
    const FoundProperty found = model_.FindProperty(ns, name);
    if (found.property != nullptr && found.property->twin == nullptr) {
      library_.add(ns, name, &found.property->twin);
      check_property(*found.property);
    }
  }

  // One that is alive; null now and then.
  Property* pick() {
    std::vector<Property*> alive = {nullptr};
    for (Property& property : model_.all) {
      if (property.references > 0) {
        alive.push_back(&property);
      }
    }
    std::rotate(alive.begin(), alive.begin() + 1, alive.end());
    return program_.of(alive);
  }

  static IOXAProperty* twin_of(const Property* property) {
    return property == nullptr ? nullptr : property->twin;
  }

  // What an output is before the operation; it is not looked behind.
  IOXAProperty* unset() { return reinterpret_cast<IOXAProperty*>(this); }

  static void check_property(Property& property) {
    Account::text("a property", describe(*property.twin), describe(property));
  }

  void check_all() {
    for (Property& property : model_.all) {
      if (property.references > 0) {
        check_property(property);
      }
    }
  }

  void release(Property& property) {
    --property.held;
    account_.number("ReleaseReference", property.twin->ReleaseReference(), --property.references);
  }

  // What is held outlives the manager.
  void end() {
    if (on_manager()) {
      account_.number("references to the manager", library_.manager->CheckReference(), 2);
    }
    if ((options_ & 4U) != 0) {
      library_.manager.reset();
    }
    library_.values.reset();
    library_.manager.reset();
    library_.preferences.reset();
    model_.end();
    check_all();
    for (Property& property : model_.all) {
      while (property.held > 0) {
        release(property);
      }
    }
  }

  static constexpr std::size_t most_properties = 64;

  Program program_;
  Account& account_;
  unsigned options_;
  DescriptorProgram descriptor_{program_, account_, (options_ & 2U) != 0};
  LibraryProperties library_{(options_ & 1U) != 0};
  Properties model_;
  Values values_{model_};
  const char* last_text_ = nullptr;
  std::string expected_last_text_;
};

}  // namespace

void run_property_program(std::string_view bytes, Account& account) {
  Runner(bytes, account).run();
}

}  // namespace oxa_test::model
