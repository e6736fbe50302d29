// The snippets of docs/extension-files.md.
#include <gtest/gtest.h>
#include <oxa/oxa.h>

#include <string>
#include <utility>

namespace {

// [snippet: declare]
OXAResult declare_position(IOXAUserDefinedDataTypeManager& manager) {
  IOXAPluginDataTypeNamespace* plugin = nullptr;
  OXAResult result = manager.NewNamespace("streets", &plugin);
  if (oxa::failed(result)) {
    return result;
  }
  IOXAUserDefinedDataType* position = nullptr;
  result = plugin->AddUserDefinedType("position", "struct", &position);
  if (oxa::failed(result)) {
    return result;  // E_ALREADYEXISTS if a file has declared it
  }
  const std::pair<const char*, double> angles[] = {{"longitude", 180}, {"latitude", 90}};
  for (const auto& [name, most] : angles) {
    oxa::Ref<IOXADataElement> member;
    position->CreateElement(oxa::adopt_into(member));
    if (!member || oxa::failed(member->SetName(name))) {
      return E_OUTOFMEMORY;
    }
    member->SetDataType(OXA::Property::DataType::Double);
    member->SetRange(-most, most);
    result = oxa::add_element(*position, std::move(member));
    if (oxa::failed(result)) {
      return result;
    }
  }
  return S_OK;
}
// [snippet end]

TEST(DeclarationRemedyTest, TypesNeedNoFile) {
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  const auto manager = oxa::type_manager(context);
  EXPECT_EQ(declare_position(*manager), S_OK);
  EXPECT_EQ(declare_position(*manager), E_ALREADYEXISTS);
  IOXAUserDefinedDataType* position = oxa::find_type(*manager, "streets::position");
  ASSERT_NE(position, nullptr);
  std::string members;
  for (IOXADataElement* member : oxa::elements(*position)) {
    members += member->Name() + (" to " + std::to_string(member->MaximumValue())) + ' ';
  }
  EXPECT_EQ(members, "longitude to 180.000000 latitude to 90.000000 ");
}

}  // namespace
