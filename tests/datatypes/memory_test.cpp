// The type manager and what it holds when memory runs out.
#include "support.h"
#include "support/allocations.h"
#include "support/stubs.h"

using namespace oxa_test;

namespace {

// A context of the library's own, which does not throw.
struct QuietContext {
  QuietContext() {
    EXPECT_EQ(OXACreateContext(IID_IOXAContext, oxa::adopt_into(context)), S_FALSE);
    context->AddToContext(IID_IOXADebugMessage, sink.get());
  }

  oxa::Ref<StubSink> sink = oxa::make<StubSink>();
  oxa::Ref<IOXAContext> context;
};

class TypeManagerMemoryTest : public testing::Test {
 protected:
  TypeManagerMemoryTest() { make_manager(); }
  void make_manager() { EXPECT_EQ(get_manager(quiet_.context.get(), manager_), S_OK); }

  // Adds a type to the namespace p.
  IOXAUserDefinedDataType* add_type() {
    IOXAPluginDataTypeNamespace* name_space = nullptr;
    IOXAUserDefinedDataType* type = nullptr;
    manager_->NewNamespace("p", &name_space);
    EXPECT_EQ(name_space->AddUserDefinedType("point", "struct", &type), S_OK);
    return type;
  }

  // Runs an operation on a fresh manager with its first allocation failing, then with its second,
  // and so on until none fails. `judge` sees each result that came of a failure. Returns how many
  // there were.
  template <class Operation, class Judge>
  unsigned long fail_in_turn(Operation operation, Judge judge) {
    for (unsigned long passing = 0;; ++passing) {
      manager_.reset();
      make_manager();
      OXAResult result = S_OK;
      {
        const FailingAllocation failing(passing);
        result = operation();
        if (!FailingAllocation::happened()) {
          EXPECT_EQ(result, S_FALSE);
          return passing;
        }
      }
      judge(result);
    }
  }

  QuietContext quiet_;
  oxa::Ref<IOXAUserDefinedDataTypeManager> manager_;
};

TEST(TypeManagerFactoryMemoryTest, AFailureLeavesNone) {
  const QuietContext quiet;
  const auto translator = oxa::service<IOXAPropertyDataTypeTranslator>(quiet.context);
  const std::int64_t references = translator->CheckReference();
  const unsigned long failures = fail_each_allocation([&] {
    oxa::Ref<IOXAUserDefinedDataTypeManager> manager;
    const OXAResult result = get_manager(quiet.context.get(), manager);
    const bool failed = FailingAllocation::happened();
    EXPECT_EQ(result, failed ? E_OUTOFMEMORY : S_OK);
    EXPECT_EQ(manager == nullptr, failed);
    EXPECT_EQ(has_manager(), !failed);
    EXPECT_EQ(translator->CheckReference(), failed ? references : references + 1);
  });
  EXPECT_GE(failures, 1);
}

const std::string long_text = " with a name that is longer than short ones";

// Each container grows meanwhile, so that all that this takes fails as well.
const int growth = 40;

TEST_F(TypeManagerMemoryTest, NewNamespace) {
  for (int number = 0; number < growth; ++number) {
    const std::string name = std::to_string(number) + long_text;
    const unsigned long failures = fail_each_allocation([&] {
      IOXAPluginDataTypeNamespace* made = nullptr;
      IOXAPluginDataTypeNamespace* found = nullptr;
      const OXAResult result = manager_->NewNamespace(name.c_str(), &made);
      const bool failed = FailingAllocation::happened();
      EXPECT_EQ(result, failed ? E_OUTOFMEMORY : S_OK);
      EXPECT_EQ(made == nullptr, failed);
      EXPECT_EQ(manager_->FindNamespace(name.c_str(), &found), failed ? E_NOTFOUND : S_OK);
    });
    EXPECT_GE(failures, 2);
  }
  EXPECT_EQ(outline(*manager_).size(), growth);
}

TEST_F(TypeManagerMemoryTest, AddUserDefinedType) {
  add_type();
  IOXAPluginDataTypeNamespace* name_space = nullptr;
  manager_->FindNamespace("p", &name_space);
  for (int number = 0; number < growth; ++number) {
    const std::string name = std::to_string(number) + long_text;
    const unsigned long failures = fail_each_allocation([&] {
      IOXAUserDefinedDataType* made = nullptr;
      IOXAUserDefinedDataType* found = nullptr;
      const OXAResult result =
          name_space->AddUserDefinedType(name.c_str(), long_text.c_str(), &made);
      const bool failed = FailingAllocation::happened();
      EXPECT_EQ(result, failed ? E_OUTOFMEMORY : S_OK);
      EXPECT_EQ(made == nullptr, failed);
      EXPECT_EQ(name_space->FindUserDefinedType(name.c_str(), &found), failed ? E_NOTFOUND : S_OK);
    });
    EXPECT_GE(failures, 3);
  }
  int count = 0;
  for ([[maybe_unused]] IOXAUserDefinedDataType* type : oxa::types(*name_space)) {
    ++count;
  }
  EXPECT_EQ(count, growth + 1);
}

TEST_F(TypeManagerMemoryTest, CreateElement) {
  IOXAUserDefinedDataType* const type = add_type();
  int marker = 0;
  const unsigned long failures = fail_each_allocation([&] {
    auto* element = reinterpret_cast<IOXADataElement*>(&marker);
    const OXAResult result = type->CreateElement(&element);
    const auto made = oxa::Ref<IOXADataElement>::adopt(element);
    EXPECT_EQ(result, FailingAllocation::happened() ? E_OUTOFMEMORY : S_OK);
    EXPECT_EQ(made == nullptr, FailingAllocation::happened());
  });
  EXPECT_GE(failures, 1);
}

TEST_F(TypeManagerMemoryTest, AddElement) {
  IOXAUserDefinedDataType* const type = add_type();
  for (int number = 0; number < growth; ++number) {
    oxa::Ref<IOXADataElement> element;
    type->CreateElement(oxa::adopt_into(element));
    element->SetName((std::to_string(number) + long_text).c_str());
    const unsigned long failures = fail_each_allocation([&] {
      const OXAResult result = type->AddElement(element.get());
      const bool failed = FailingAllocation::happened();
      EXPECT_EQ(result, failed ? E_OUTOFMEMORY : S_OK);
      EXPECT_EQ(element->CheckReference(), 1);
      EXPECT_EQ(type->ElementCount(), failed ? number : number + 1);
    });
    EXPECT_GE(failures, 1);
    static_cast<void>(element.detach());
  }
  EXPECT_EQ(add_member(*type, ("0" + long_text).c_str()), E_ALREADYEXISTS);
}

TEST_F(TypeManagerMemoryTest, SettersOfTexts) {
  oxa::Ref<IOXADataElement> element;
  add_type()->CreateElement(oxa::adopt_into(element));
  for (const auto& [set, get] : element_texts) {
    (element.get()->*set)("before");
    const unsigned long failures = fail_each_allocation([&, set = set, get = get] {
      const OXAResult result = (element.get()->*set)(long_text.c_str());
      const bool failed = FailingAllocation::happened();
      EXPECT_EQ(result, failed ? E_OUTOFMEMORY : S_OK);
      EXPECT_STREQ((element.get()->*get)(), failed ? "before" : long_text.c_str());
    });
    EXPECT_GE(failures, 1);
  }
}

TEST_F(TypeManagerMemoryTest, DataTypesAndRangesNeedNone) {
  oxa::Ref<IOXADataElement> element;
  add_type()->CreateElement(oxa::adopt_into(element));
  const unsigned long before = made_allocations();
  EXPECT_EQ(element->SetDataType(DataType::Int), S_OK);
  EXPECT_EQ(element->SetRange(1, 2), S_OK);
  EXPECT_EQ(made_allocations(), before);
}

TEST_F(TypeManagerMemoryTest, GetUserType) {
  IOXAUserDefinedDataType* const point = add_type();
  for (const char* type_string :
       {"x$unsigned long long%3", "unsigned long long$a$b", "x$p::point%2", "p::point"}) {
    int marker = 0;
    fail_each_allocation([&] {
      auto* type = reinterpret_cast<IOXAUserDefinedDataType*>(&marker);
      const OXAResult result = manager_->GetUserType(type_string, &type);
      const bool failed = FailingAllocation::happened();
      EXPECT_EQ(result, failed ? E_OUTOFMEMORY : S_OK) << type_string;
      EXPECT_TRUE(type == nullptr || (type == point && !failed)) << type_string;
    });
    fail_each_allocation([&] {
      const bool defined = manager_->TypeDefined(type_string);
      EXPECT_EQ(defined, !FailingAllocation::happened()) << type_string;
    });
  }
}

// Two types with members whose texts all need memory of their own.
std::string long_file() {
  const auto member = [](const char* name) {
    return "<member name=\"" + (name + long_text) + "\" type=\" p::type" + long_text +
           "\" range_min=\"1\" range_max=\"2\" tooltip=\"tip" + long_text + "\" default=\"value" +
           long_text + "\"/>";
  };
  return R"(<extension type="data" plugin="p"><data_type name="a" type="s">)" + member("x") +
         member("y") + R"(</data_type><data_type name="b" type="s">)" + member("z") +
         "</data_type></extension>";
}

// For want of memory members may be missing, but those that are there are whole and in order.
void expect_whole_members(IOXAUserDefinedDataTypeManager& manager) {
  for (IOXAPluginDataTypeNamespace* name_space : oxa::namespaces(manager)) {
    for (IOXAUserDefinedDataType* type : oxa::types(*name_space)) {
      std::string names = type->Name() == std::string("a") ? "xy" : "z";
      for (IOXADataElement* member : oxa::elements(*type)) {
        const std::size_t place = names.find(member->Name()[0]);
        ASSERT_NE(place, std::string::npos);
        EXPECT_EQ(member->Name(), names[place] + long_text);
        names.erase(0, place + 1);
        EXPECT_EQ(member->Type(), DataType::UserDefined);
        EXPECT_EQ(member->UserDefinedType(), "p::type" + long_text);
        EXPECT_EQ(member->MinimumValue(), 1.0);
        EXPECT_EQ(member->MaximumValue(), 2.0);
        EXPECT_EQ(member->Tooltip(), "tip" + long_text);
        EXPECT_EQ(member->DefaultValue(), "value" + long_text);
      }
    }
  }
}

bool is_of_memory(OXAResult result) {
  return result == E_OUTOFMEMORY || result == E_OPENFAILED || result == E_UNEXPECTED ||
         result == S_FALSE;
}

TEST_F(TypeManagerMemoryTest, Load) {
  const MemoryFile file(long_file());
  const std::wstring path = file.path();
  const Lines all{"p: a(x" + long_text + " y" + long_text + ") b(z" + long_text + ")"};
  const auto load = [&] { return manager_->Load(path.c_str()); };
  int cut = 0;
  const unsigned long failures = fail_in_turn(load, [&](OXAResult result) {
    EXPECT_TRUE(is_of_memory(result)) << result;
    EXPECT_EQ(quiet_.sink->CheckReference(), 2);  // the test's and the context's
    expect_whole_members(*manager_);
    cut += result == S_FALSE && outline(*manager_) != all ? 1 : 0;
    EXPECT_EQ(load(), S_FALSE);
    EXPECT_TRUE(manager_->TypeDefined("p::a"));
    EXPECT_TRUE(manager_->TypeDefined("p::b"));
    expect_whole_members(*manager_);
  });
  EXPECT_GE(failures, 20);
  EXPECT_GE(cut, 1);
  EXPECT_EQ(outline(*manager_), all);
}

TEST_F(TypeManagerMemoryTest, LoadAll) {
  const TemporaryFolder folder;
  folder.write("a.xml", long_file());
  folder.write("b.xml", R"(<extension type="data" plugin="q"><data_type name="c" type="s"/>
                           </extension>)");
  const std::wstring path = wide(folder.path());
  const auto load_all = [&] { return manager_->LoadAll(path.c_str()); };
  const unsigned long failures = fail_in_turn(load_all, [&](OXAResult result) {
    EXPECT_TRUE(is_of_memory(result)) << result;
    EXPECT_EQ(quiet_.sink->CheckReference(), 2);
    expect_whole_members(*manager_);
    EXPECT_EQ(load_all(), S_FALSE);
    EXPECT_TRUE(manager_->TypeDefined("p::b"));
    EXPECT_TRUE(manager_->TypeDefined("q::c"));
  });
  EXPECT_GE(failures, 25);
}

}  // namespace
