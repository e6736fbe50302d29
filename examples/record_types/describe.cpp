// Prints the record types that an extension file declares.
#include <oxa/oxa.h>

#include <cstdio>

namespace {

// Returns a text for people; `fallback` where there is none.
const char* text_or(const char* text, const char* fallback) {
  return text != nullptr ? text : fallback;
}

void print_member(IOXADataElement& member, IOXAPropertyDataTypeTranslator& translator) {
  const char* type = member.UserDefinedType();
  if (type == nullptr) {
    type = text_or(translator.ToString(member.Type()), "of unknown type");
  }
  std::printf("  %s: %s, %g to %g, default \"%s\"", member.Name(), type, member.MinimumValue(),
              member.MaximumValue(), text_or(member.DefaultValue(), ""));
  if (member.Tooltip() != nullptr) {
    std::printf(" (%s)", member.Tooltip());
  }
  std::printf("\n");
}

}  // namespace

// [snippet: describe]
int main(int count, char** arguments) {
  if (count != 2) {
    return 2;
  }
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  const auto manager = oxa::type_manager(context);
  if (!manager) {  // empty, too, where there is no context
    return 2;
  }
  const OXAResult result = manager->Load(oxa::widen(arguments[1]).c_str());
  if (oxa::failed(result)) {  // the message sink may have said more
    std::fprintf(stderr, "%s: %s\n", arguments[1], oxa::result_text(result));
    return 1;
  }
  const auto translator = oxa::service<IOXAPropertyDataTypeTranslator>(context);
  for (IOXAPluginDataTypeNamespace* plugin : oxa::namespaces(*manager)) {
    for (IOXAUserDefinedDataType* type : oxa::types(*plugin)) {
      std::printf("%s::%s, %s\n", plugin->Name(), type->Name(), type->Type());
      for (IOXADataElement* member : oxa::elements(*type)) {
        print_member(*member, *translator);
      }
    }
  }
  return 0;
}
// [snippet end]
