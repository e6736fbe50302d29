// Walks along categories that grow in number meanwhile.
#pragma once

#include <oxa/IOXADiagnosticCategoryEnum.h>
#include <oxa/sdk/ref.h>

#include <list>
#include <optional>
#include <string_view>

#include "diagnostics/model/model_diagnostics.h"
#include "properties/model/program.h"

namespace oxa_test::model {

// An enumerator over the list of the manager or of a category, and its place in the model.
class CategoryWalk {
 public:
  explicit CategoryWalk(Account& account) : account_(account) {}

  // The letters of what it does.
  static constexpr std::string_view letters = "fFqQ";

  // `owner` is the manager or a category.
  template <class Owner>
  void open(Owner& owner, Categories& expected) {
    oxa::Ref<IOXADiagnosticCategoryEnum> found;
    const OXAResult result = owner.GetDiagnosticCategoryEnum(oxa::adopt_into(found));
    account_.result("GetDiagnosticCategoryEnum", result, S_OK);
    enumerator_ = found;
    list_ = &expected.list;
    cursor_ = list_->begin();
  }

  // The list must not shrink under it.
  void close() { enumerator_.reset(); }

  void run(char letter) {
    if (!enumerator_) {
      return;
    }
    IOXADiagnosticCategory* item = nullptr;
    switch (letter) {
      case 'f': {
        const OXAResult result = enumerator_->GetFirst(&item);
        cursor_ = list_->begin();
        compare(result, item);
        break;
      }
      case 'F': {
        const OXAResult result = enumerator_->GetNext(&item);
        cursor_ = cursor_ == list_->end() ? list_->begin() : std::next(cursor_);
        compare(result, item);
        break;
      }
      case 'q':
        go_on_with_clone();
        break;
      default:
        Account::number("Count", static_cast<long long>(enumerator_->Count()),
                        static_cast<long long>(list_->size()));
        break;
    }
  }

 private:
  void compare(OXAResult result, const IOXADiagnosticCategory* item) {
    const bool is_end = cursor_ == list_->end();
    account_.result("GetFirst, GetNext of categories", result, is_end ? S_FALSE : S_OK);
    Account::same("the category at the cursor", item, is_end ? nullptr : (*cursor_)->twin);
  }

  void go_on_with_clone() {
    oxa::Ref<IOXADiagnosticCategoryEnum> clone;
    const OXAResult result = enumerator_->Clone(oxa::adopt_into(clone));
    account_.result("Clone", result, S_OK);
    enumerator_ = clone;
  }

  Account& account_;
  oxa::Ref<IOXADiagnosticCategoryEnum> enumerator_;
  std::list<Category*>* list_ = nullptr;
  std::list<Category*>::iterator cursor_;
};

}  // namespace oxa_test::model
