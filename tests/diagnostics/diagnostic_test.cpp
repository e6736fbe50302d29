// A row of the table.
#include "diagnostics/OXADiagnostic.h"

#include "table.h"

using namespace oxa_test;
using Kind = OXAVariant::Kind;
using OXA::Diagnostics::Severity;
using OXA::Diagnostics::Type;

namespace {

class DiagnosticTest : public testing::Test {
 protected:
  const char* tool_tip(int id) const {
    char* text = nullptr;
    manager_->GetDiagnosticToolTip(id, &text);
    return text;
  }

  OXAResult result_ = E_FAIL;
  oxa::Ref<IOXADiagnosticsManager> manager_ = oxa::make<OXADiagnosticsManager>();
  oxa::Ref<IOXADiagnostic> row_ = oxa::make<OXADiagnostic>(manager_.get(), result_);
};

void expect_same(const OXAVariant& left, const OXAVariant& right) {
  EXPECT_EQ(left.bits, right.bits);
  EXPECT_EQ(left.text, right.text);
  EXPECT_EQ(left.kind, right.kind);
}

OXAVariant variant(std::uint64_t bits, std::string text, Kind kind) {
  OXAVariant made;
  made.bits = bits;
  made.text = std::move(text);
  made.kind = kind;
  return made;
}

const OXAVariant unset = variant(0, "unset", Kind::Nothing);

TEST_F(DiagnosticTest, HasNothingAtFirst) {
  EXPECT_EQ(result_, S_OK);
  EXPECT_EQ(row_->CheckReference(), 1);
  EXPECT_EQ(manager_->CheckReference(), 1);
  EXPECT_EQ(row_->GetDiagnostic(), -1);
  EXPECT_EQ(row_->GetTerseString(), nullptr);
  EXPECT_EQ(row_->GetVerboseString(), nullptr);
  EXPECT_EQ(row_->GetDiagnosticKeyType(), Type{0});
  EXPECT_EQ(row_->GetDiagnosticKey(), nullptr);
  EXPECT_EQ(row_->GetSeverity(), Severity{0});
}

TEST_F(DiagnosticTest, ItsCellsHoldNothingAtFirst) {
  EXPECT_EQ(cells(*row_), 2);
  expect_same(row_->GetValue(0), OXAVariant());
  expect_same(row_->GetValue(1), OXAVariant());
}

TEST_F(DiagnosticTest, ARowIsMadeEvenOfANullManager) {
  const auto row = oxa::make<OXADiagnostic>(nullptr, result_);
  EXPECT_EQ(result_, E_INVALIDARG);
  EXPECT_EQ(row->CheckReference(), 1);
  expect_same(row->GetValue(0), unset);
}

TEST_F(DiagnosticTest, AColumnThatIsNotThereIsUnset) {
  OXAVariant value = oxa::make_variant(1);
  for (const int column : no_columns) {
    EXPECT_EQ(row_->SetValue(column, value), E_INVALIDARG) << column;
    expect_same(row_->GetValue(column), unset);
  }
  EXPECT_EQ(cells(*row_), 2);
  expect_same(row_->GetValue(0), OXAVariant());
  expect_same(row_->GetValue(1), OXAVariant());
}

// All members are kept, whatever the kind says, and be it none.
const OXAVariant values[] = {
    oxa::make_variant("text"),
    oxa::make_variant(-1.5),
    oxa::make_variant(std::string("a text with \0 zero \0 bytes\0", 27)),
    variant(0x0123456789ABCDEF, "a text that is longer than short ones", Kind::Nothing),
    variant(0xFFFFFFFFFFFFFFFF, "text", Kind::Char),
    variant(1, "true", Kind::Bool),
    variant(0x8000000000000000, "", Kind::Text),
    variant(2, "b", Kind{0x3}),
    variant(3, "c", Kind{0x800}),
    variant(4, "d", Kind{0xFFFFFFFF}),
    OXAVariant(),
    unset,
};

TEST_F(DiagnosticTest, ACellKeepsAllOfAValue) {
  for (const OXAVariant& value : values) {
    OXAVariant given = value;
    EXPECT_EQ(row_->SetValue(1, given), S_OK);
    expect_same(given, value);
    expect_same(row_->GetValue(1), value);
    expect_same(row_->GetValue(0), OXAVariant());
  }
}

TEST_F(DiagnosticTest, ACellHasAValueOfItsOwn) {
  OXAVariant value = oxa::make_variant("a");
  row_->SetValue(0, value);
  value.text = "changed";
  expect_same(row_->GetValue(0), oxa::make_variant("a"));
  OXAVariant copy = row_->GetValue(0);
  copy.text[0] = 'b';
  expect_same(row_->GetValue(0), oxa::make_variant("a"));
}

TEST_F(DiagnosticTest, EachCellMayHaveAnotherKind) {
  row_->Resize(3);
  oxa::set_value(*row_, 0, oxa::make_variant("text"));
  oxa::set_value(*row_, 2, oxa::make_variant(2.5));
  oxa::set_value(*row_, 1, oxa::make_variant(7));
  oxa::set_value(*row_, 0, oxa::make_variant(true));
  EXPECT_EQ(oxa::value_of<bool>(row_->GetValue(0)), true);
  EXPECT_EQ(oxa::value_of<int>(row_->GetValue(1)), 7);
  EXPECT_EQ(oxa::value_of<double>(row_->GetValue(2)), 2.5);
}

TEST_F(DiagnosticTest, ResizingKeepsTheCellsThatStay) {
  oxa::set_value(*row_, 0, oxa::make_variant("a"));
  oxa::set_value(*row_, 1, oxa::make_variant("b"));
  row_->Resize(4);
  EXPECT_EQ(cells(*row_), 4);
  expect_same(row_->GetValue(0), oxa::make_variant("a"));
  expect_same(row_->GetValue(1), oxa::make_variant("b"));
  expect_same(row_->GetValue(2), OXAVariant());
  expect_same(row_->GetValue(3), OXAVariant());
}

TEST_F(DiagnosticTest, ResizingDropsTheCellsBeyond) {
  oxa::set_value(*row_, 0, oxa::make_variant("a"));
  oxa::set_value(*row_, 1, oxa::make_variant("b"));
  row_->Resize(1);
  EXPECT_EQ(cells(*row_), 1);
  row_->Resize(2);
  expect_same(row_->GetValue(0), oxa::make_variant("a"));
  expect_same(row_->GetValue(1), OXAVariant());
  row_->Resize(0);
  EXPECT_EQ(cells(*row_), 0);
  OXAVariant value = oxa::make_variant(1);
  EXPECT_EQ(row_->SetValue(0, value), E_INVALIDARG);
}

TEST_F(DiagnosticTest, ANegativeCountChangesNothing) {
  oxa::set_value(*row_, 1, oxa::make_variant("b"));
  row_->Resize(-1);
  row_->Resize(std::numeric_limits<int>::min());
  EXPECT_EQ(cells(*row_), 2);
  expect_same(row_->GetValue(1), oxa::make_variant("b"));
}

TEST_F(DiagnosticTest, ItsTextsAreThoseOfItsType) {
  int id = -1;
  manager_->RegisterDiagnosticType("other", "another", &id);
  manager_->RegisterDiagnosticType("Self loop", "The edge ends where it begins.", &id);
  EXPECT_EQ(row_->SetDiagnostic(id), S_OK);
  EXPECT_EQ(row_->GetDiagnostic(), id);
  EXPECT_STREQ(row_->GetTerseString(), "Self loop");
  EXPECT_STREQ(row_->GetVerboseString(), "The edge ends where it begins.");
  EXPECT_EQ(row_->GetTerseString(), tool_tip(id));
  manager_->UnregisterDiagnosticType(id);
  EXPECT_EQ(row_->GetDiagnostic(), id);
  EXPECT_EQ(row_->GetTerseString(), nullptr);
  EXPECT_EQ(row_->GetVerboseString(), nullptr);
}

TEST_F(DiagnosticTest, ItsTypeNeedNotBeRegistered) {
  for (const int id : {5, -2, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    EXPECT_EQ(row_->SetDiagnostic(id), S_OK);
    EXPECT_EQ(row_->GetDiagnostic(), id);
    EXPECT_EQ(row_->GetTerseString(), nullptr);
    EXPECT_EQ(row_->GetVerboseString(), nullptr);
  }
  for (int id = 0; id <= 5; ++id) {
    manager_->RegisterDiagnosticType("a", "b", &result_);
  }
  row_->SetDiagnostic(5);
  EXPECT_STREQ(row_->GetTerseString(), "a");
}

TEST_F(DiagnosticTest, TextsRegisterANewTypeEachTime) {
  for (int id = 0; id < 3; ++id) {
    EXPECT_EQ(row_->SetDiagnostic("terse", "verbose"), S_OK);
    EXPECT_EQ(row_->GetDiagnostic(), id);
    EXPECT_STREQ(row_->GetTerseString(), "terse");
    EXPECT_STREQ(row_->GetVerboseString(), "verbose");
  }
  EXPECT_STREQ(tool_tip(0), "terse");
}

TEST_F(DiagnosticTest, NullTextsRegisterNothing) {
  row_->SetDiagnostic(7);
  EXPECT_EQ(row_->SetDiagnostic(nullptr, "verbose"), E_INVALIDARG);
  EXPECT_EQ(row_->SetDiagnostic("terse", nullptr), E_INVALIDARG);
  EXPECT_EQ(row_->SetDiagnostic(nullptr, nullptr), E_INVALIDARG);
  EXPECT_EQ(row_->GetDiagnostic(), 7);
  EXPECT_EQ(tool_tip(0), nullptr);
}

TEST_F(DiagnosticTest, TextsMayBeEmpty) {
  EXPECT_EQ(row_->SetDiagnostic("", ""), S_OK);
  EXPECT_STREQ(row_->GetTerseString(), "");
  EXPECT_STREQ(row_->GetVerboseString(), "");
}

TEST_F(DiagnosticTest, HasAKeyWhichCannotBeTakenBack) {
  int thing = 0;
  EXPECT_EQ(row_->SetDiagnosticKey(&thing), S_OK);
  EXPECT_EQ(row_->SetDiagnosticKey(nullptr), E_INVALIDARG);
  EXPECT_EQ(row_->GetDiagnosticKey(), &thing);
  EXPECT_EQ(row_->SetDiagnosticKey(this), S_OK);
  EXPECT_EQ(row_->GetDiagnosticKey(), this);
}

TEST_F(DiagnosticTest, HasAnySeverityAndTypeOfKey) {
  for (const int number : {1, -1, std::numeric_limits<int>::max(), 0}) {
    EXPECT_EQ(row_->SetSeverity(Severity{number}), S_OK);
    EXPECT_EQ(row_->SetDiagnosticKeyType(Type{-number}), S_OK);
    EXPECT_EQ(row_->GetSeverity(), Severity{number});
    EXPECT_EQ(row_->GetDiagnosticKeyType(), Type{-number});
  }
}

}  // namespace
