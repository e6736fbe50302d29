#include "diagnostics/model/diagnostics_program.h"

#include <limits>

#include "diagnostics/model/category_walk.h"
#include "diagnostics/model/checks.h"
#include "diagnostics/model/model_diagnostics.h"

namespace oxa_test::model {
namespace {

using Operation = IOXADiagnosticsManager::Operation;
using Severity = OXA::Diagnostics::Severity;
using Type = OXA::Diagnostics::Type;

constexpr const char* names[] = {"a", "b", "", "a b", "A", "\xC3\xA9", nullptr, "a::b", "c"};
constexpr const char* tips[] = {"short", "long text of more than a few words", "", "short",
                                nullptr};

// What an object is about; nobody looks behind these.
char things[3];
void* const keys[] = {&things[0], &things[1], &things[2], nullptr};

oxa::Ref<IOXADiagnosticsManager> new_manager() {
  oxa::Ref<IOXADiagnosticsManager> manager;
  OXACreateDiagnosticsManager(oxa::adopt_into(manager));
  return manager;
}

class Runner {
 public:
  Runner(std::string_view bytes, Account& account)
      : program_(bytes), account_(account), manager_ends_first_(program_.flag()) {}

  void run() {
    while (!program_.empty()) {
      run(program_.next());
    }
    check_all();
    end();
  }

 private:
  void run(char letter) {
    if (run_on_manager(letter)) {
      return;
    }
    constexpr std::string_view on_categories = "CEWNDAbBkK+-";
    constexpr std::string_view on_diagnostics = "iIvVgGlLpr";
    if (CategoryWalk::letters.find(letter) != std::string_view::npos) {
      walk_.run(letter);
    } else if (on_categories.find(letter) != std::string_view::npos) {
      if (Category* const category = pick(model_.all_categories)) {
        change(letter, *category);
      }
    } else if (on_diagnostics.find(letter) != std::string_view::npos) {
      if (Diagnostic* const diagnostic = pick(model_.all_diagnostics)) {
        change(letter, *diagnostic);
      }
    } else if (letter == 'z') {
      check_all();
    }
  }

  bool run_on_manager(char letter) {
    switch (letter) {
      case 'n': {
        const int count = static_cast<int>(program_.below(9)) - 1;
        account_.result("SetColumnCount", manager_->SetColumnCount(count),
                        model_.SetColumnCount(count));
        check_columns();
        return true;
      }
      case 'h':
        set_column_header();
        return true;
      case 'H':
      case 'o':
        check_columns();
        return true;
      case 'c':
        create_category(*manager_, model_.categories);
        return true;
      case 't':
        register_type();
        return true;
      case 'u': {
        const int id = type_id();
        account_.result("UnregisterDiagnosticType", manager_->UnregisterDiagnosticType(id),
                        E_INVALIDARG);
        model_.types.erase(id);
        check_tips(id);
        return true;
      }
      case 'T':
      case 'x':
        check_tips(type_id());
        return true;
      case 'e':
        list_categories(*manager_, model_.categories);
        return true;
      case 'w':
        walk_.open(*manager_, model_.categories);
        return true;
      case 'O':
        use_own_texts();
        return true;
      case 'Z':
        walk_.close();
        manager_->Clear();
        model_.Clear();
        return true;
      default:
        return false;
    }
  }

  void set_column_header() {
    const int column = static_cast<int>(program_.below(9)) - 1;
    const char* const header = program_.text(tips);
    const auto operation = static_cast<Operation>(program_.below(10) - 3);
    account_.result("SetColumnHeader", manager_->SetColumnHeader(column, header, operation),
                    model_.SetColumnHeader(column, header, operation));
    check_columns();
  }

  void check_columns() {
    Account::number("GetColumnCount", manager_->GetColumnCount(), model_.column_count);
    for (int column = -1; column <= model_.column_count; ++column) {
      check_column(column);
    }
    account_.result("GetColumnHeader", manager_->GetColumnHeader(0, nullptr), E_INVALIDARG);
  }

  void check_column(int column) {
    const auto index = static_cast<std::size_t>(column);
    const bool has = model_.has(column);
    const OXAResult expected = has ? S_OK : E_INVALIDARG;
    char* header = things;
    account_.result("GetColumnHeader", manager_->GetColumnHeader(column, &header), expected);
    Account::text("a header", shown(header), shown(has ? model_.headers[index].c_str() : nullptr));
    Operation operation{77};
    account_.result("GetColumnOperation", manager_->GetColumnOperation(column, operation),
                    expected);
    Account::number("an operation", static_cast<int>(operation),
                    has ? static_cast<int>(model_.operations[index]) : 77);
  }

  // What was given out may be given back.
  void use_own_texts() {
    char* header = nullptr;
    if (manager_->GetColumnHeader(0, &header) == S_OK) {
      account_.result("SetColumnHeader", manager_->SetColumnHeader(0, header, Operation{5}), S_OK);
      model_.operations[0] = Operation{5};
    }
    const int id = type_id();
    char* text = nullptr;
    if (manager_->GetDiagnosticToolTip(id, &text) == S_OK) {
      int added = 0;
      account_.result("RegisterDiagnosticType",
                      manager_->RegisterDiagnosticType(text, text, &added), S_OK);
      const std::string copy = model_.tips(id)->first;
      Account::number("the id of a type", added,
                      model_.RegisterDiagnosticType(copy.c_str(), copy.c_str()));
      check_tips(added);
    }
    check_columns();
  }

  void register_type() {
    const char* const tool_tip = program_.text(tips);
    const char* const status_tip = program_.text(tips);
    if (program_.drops_output()) {
      account_.result("RegisterDiagnosticType",
                      manager_->RegisterDiagnosticType(tool_tip, status_tip, nullptr),
                      E_INVALIDARG);
      return;
    }
    int id = -7;
    account_.result("RegisterDiagnosticType",
                    manager_->RegisterDiagnosticType(tool_tip, status_tip, &id), S_OK);
    Account::number("the id of a type", id, model_.RegisterDiagnosticType(tool_tip, status_tip));
    check_tips(id);
  }

  int type_id() {
    const int id = static_cast<int>(program_.below(12)) - 1;
    return id == 10 ? std::numeric_limits<int>::min() : id;
  }

  void check_tips(int id) {
    const Diagnostics::Tips* const expected = model_.tips(id);
    char* tool_tip = things;
    char* status_tip = things;
    account_.result("GetDiagnosticToolTip", manager_->GetDiagnosticToolTip(id, &tool_tip),
                    expected != nullptr ? S_OK : S_FALSE);
    account_.result("GetDiagnosticStatusTip", manager_->GetDiagnosticStatusTip(id, &status_tip),
                    expected != nullptr ? S_OK : S_FALSE);
    Account::text("a tool tip", shown(tool_tip),
                  shown(expected != nullptr ? expected->first.c_str() : nullptr));
    Account::text("a status tip", shown(status_tip),
                  shown(expected != nullptr ? expected->second.c_str() : nullptr));
    account_.result("GetDiagnosticToolTip", manager_->GetDiagnosticToolTip(id, nullptr),
                    E_INVALIDARG);
    account_.result("GetDiagnosticStatusTip", manager_->GetDiagnosticStatusTip(id, nullptr),
                    E_INVALIDARG);
  }

  // `owner` is the manager or a category.
  template <class Owner>
  void create_category(Owner& owner, Categories& expected_owner) {
    const char* const name = program_.text(names);
    if (program_.drops_output() || model_.all_categories.size() >= most_categories) {
      account_.result("CreateCategory", owner.CreateCategory(name, nullptr), E_INVALIDARG);
      return;
    }
    IOXADiagnosticCategory* category = nullptr;
    const OXAResult result = owner.CreateCategory(name, &category);
    const auto [expected, expected_category] = expected_owner.CreateCategory(model_, name);
    account_.result("CreateCategory", result, expected);
    if (expected == S_OK) {
      expected_category->twin = category;
    }
    if (expected_category != nullptr) {
      Account::same("CreateCategory", category, expected_category->twin);
      check(*expected_category);
    }
  }

  template <class Owner>
  void list_categories(Owner& owner, const Categories& expected) {
    account_.result("GetDiagnosticCategoryEnum", owner.GetDiagnosticCategoryEnum(nullptr),
                    E_INVALIDARG);
    oxa::Ref<IOXADiagnosticCategoryEnum> found;
    const OXAResult result = owner.GetDiagnosticCategoryEnum(oxa::adopt_into(found));
    account_.result("GetDiagnosticCategoryEnum", result, S_OK);
    IOXADiagnosticCategory* item = nullptr;
    found->GetFirst(&item);
    for (Category* category : expected.list) {
      Account::same("a listed category", item, category->twin);
      found->GetNext(&item);
    }
    Account::same("the end of the categories", item, nullptr);
  }

  void change(char letter, Category& category) {
    switch (letter) {
      case 'C':
        create_category(*category.twin, category.subcategories);
        break;
      case 'E':
        list_categories(*category.twin, category.subcategories);
        break;
      case 'W':
        walk_.open(*category.twin, category.subcategories);
        break;
      case 'N': {
        const char* const name =
            program_.below(6) == 5 ? category.twin->GetName() : program_.text(names);
        const OXAResult expected = category.SetName(name);
        account_.result("SetName", category.twin->SetName(name), expected);
        break;
      }
      case 'D':
        create_diagnostic(category);
        break;
      case 'A':
        add_diagnostic(category, pick(model_.all_diagnostics));
        break;
      case 'b':
        walk("GetFirst", category, &IOXADiagnosticCategory::GetFirst, &Category::GetFirst);
        break;
      case 'B':
        if (category.can_go_on()) {
          walk("GetNext", category, &IOXADiagnosticCategory::GetNext, &Category::GetNext);
        }
        break;
      case 'k': {
        void* const key = program_.of(keys);
        account_.result("SetCategoryKey", category.twin->SetCategoryKey(key),
                        key == nullptr ? E_INVALIDARG : S_OK);
        category.key = key == nullptr ? category.key : key;
        break;
      }
      case 'K':
        category.key_type = static_cast<Type>(program_.below(10) - 3);
        account_.result("SetCategoryKeyType", category.twin->SetCategoryKeyType(category.key_type),
                        S_OK);
        break;
      case '+':
        add_reference(category);
        break;
      default:
        walk_.close();
        release_held(category);
        return;
    }
    check(category);
  }

  void create_diagnostic(Category& category) {
    if (program_.drops_output() || model_.all_diagnostics.size() >= most_diagnostics) {
      account_.result("CreateDiagnostic", category.twin->CreateDiagnostic(nullptr), E_INVALIDARG);
      return;
    }
    IOXADiagnostic* diagnostic = nullptr;
    account_.result("CreateDiagnostic", category.twin->CreateDiagnostic(&diagnostic), S_OK);
    Diagnostic& expected = *model_.CreateDiagnostic();
    expected.twin = diagnostic;
    check(expected);
  }

  // The category takes over a reference, of which there is one if need be.
  void add_diagnostic(Category& category, Diagnostic* diagnostic) {
    if (diagnostic == nullptr) {
      account_.result("AddDiagnostic", category.twin->AddDiagnostic(nullptr), E_INVALIDARG);
      return;
    }
    if (diagnostic->held == 0) {
      add_reference(*diagnostic);
    }
    account_.result("AddDiagnostic", category.twin->AddDiagnostic(diagnostic->twin), S_OK);
    category.AddDiagnostic(diagnostic);
    --diagnostic->held;
    check(*diagnostic);
  }

  void walk(const char* operation, Category& category,
            OXAResult (IOXADiagnosticCategory::*step)(IOXADiagnostic**),
            Diagnostic* (Category::*expected_step)()) {
    if (program_.drops_output()) {
      account_.result(operation, (category.twin->*step)(nullptr), E_INVALIDARG);
      return;
    }
    IOXADiagnostic* diagnostic = nullptr;
    const OXAResult result = (category.twin->*step)(&diagnostic);
    const Diagnostic* const expected = (category.*expected_step)();
    account_.result(operation, result, expected != nullptr ? S_OK : S_FALSE);
    Account::same(operation, diagnostic, expected != nullptr ? expected->twin : nullptr);
  }

  void change(char letter, Diagnostic& diagnostic) {
    switch (letter) {
      case 'i':
        add_reference(diagnostic);
        break;
      case 'I':
        release_held(diagnostic);
        return;
      case 'v': {
        const int column = static_cast<int>(program_.below(9)) - 1;
        OXAVariant value = program_.variant();
        account_.result("SetValue", diagnostic.twin->SetValue(column, value),
                        diagnostic.SetValue(column, value));
        break;
      }
      case 'g':
        diagnostic.type = type_id();
        account_.result("SetDiagnostic(id)", diagnostic.twin->SetDiagnostic(diagnostic.type), S_OK);
        break;
      case 'G': {
        const char* const terse = program_.text(tips);
        const char* const verbose = program_.text(tips);
        account_.result("SetDiagnostic(texts)", diagnostic.twin->SetDiagnostic(terse, verbose),
                        diagnostic.SetDiagnostic(model_, terse, verbose));
        break;
      }
      case 'l': {
        void* const key = program_.of(keys);
        account_.result("SetDiagnosticKey", diagnostic.twin->SetDiagnosticKey(key),
                        key == nullptr ? E_INVALIDARG : S_OK);
        diagnostic.key = key == nullptr ? diagnostic.key : key;
        break;
      }
      case 'L':
        diagnostic.key_type = static_cast<Type>(program_.below(10) - 3);
        account_.result("SetDiagnosticKeyType",
                        diagnostic.twin->SetDiagnosticKeyType(diagnostic.key_type), S_OK);
        break;
      case 'p':
        diagnostic.severity = static_cast<Severity>(program_.below(10) - 3);
        account_.result("SetSeverity", diagnostic.twin->SetSeverity(diagnostic.severity), S_OK);
        break;
      case 'r': {
        const int count = static_cast<int>(program_.below(9)) - 1;
        diagnostic.twin->Resize(count);
        diagnostic.Resize(count);
        break;
      }
      default:
        break;
    }
    check(diagnostic);
  }

  void check(const Category& category) { check_category(account_, category); }
  void check(const Diagnostic& diagnostic) { check_diagnostic(model_, diagnostic); }

  void check_all() {
    for (const Category& category : model_.all_categories) {
      if (category.references > 0) {
        check(category);
        list_categories(*category.twin, category.subcategories);
      }
    }
    for (const Diagnostic& diagnostic : model_.all_diagnostics) {
      if (diagnostic.references > 0) {
        check(diagnostic);
      }
    }
    list_categories(*manager_, model_.categories);
    check_columns();
  }

  // One that is alive; null now and then.
  template <class Objects>
  typename Objects::value_type* pick(Objects& objects) {
    std::vector<typename Objects::value_type*> alive;
    for (auto& object : objects) {
      if (object.references > 0) {
        alive.push_back(&object);
      }
    }
    alive.push_back(nullptr);
    return program_.of(alive);
  }

  template <class Object>
  void add_reference(Object& object) {
    ++object.held;
    Account::number("AddReference", object.twin->AddReference(), ++object.references);
  }

  template <class Object>
  void release_held(Object& object) {
    if (object.held > 0) {
      --object.held;
      Diagnostics::release(object);
      Account::number("ReleaseReference", object.twin->ReleaseReference(), object.references);
    }
  }

  // One that ends leaves its subcategories, which are further back.
  void release_all() {
    for (Category& category : model_.all_categories) {
      while (category.held > 0) {
        release_held(category);
      }
    }
    for (Diagnostic& diagnostic : model_.all_diagnostics) {
      while (diagnostic.held > 0) {
        release_held(diagnostic);
      }
    }
  }

  void end() {
    walk_.close();
    if (!manager_ends_first_) {
      release_all();
    }
    Account::number("references to the manager", manager_->CheckReference(), 1);
    manager_.reset();
    model_.Clear();
    release_all();
  }

  static constexpr std::size_t most_categories = 48;
  static constexpr std::size_t most_diagnostics = 96;

  Program program_;
  Account& account_;
  bool manager_ends_first_;
  oxa::Ref<IOXADiagnosticsManager> manager_ = new_manager();
  Diagnostics model_;
  CategoryWalk walk_{account_};
};

}  // namespace

void run_diagnostics_program(std::string_view bytes, Account& account) {
  Runner(bytes, account).run();
}

}  // namespace oxa_test::model
