#include "record_types.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <tuple>

#include "collected_errors.h"
#include "folder.h"
#include "problem.h"
#include "text.h"

using OXA::Property::DataType;

namespace {

std::string said(const std::string& error) { return "the library says " + in_quotes(error); }

// Why nothing of a file was read. What the library says first is the cause of what it says next.
std::string reason_of(OXAResult result, const std::vector<std::string>& errors) {
  if (!errors.empty()) {
    return said(errors.front());
  }
  switch (result) {
    case E_INVALIDDATA:
      return "it holds no element";
    case E_NOTFOUND:
    case E_INVALIDARG:
      return "its <extension> has no type=\"data\" or holds no <data_type>";
    default:
      return oxa::result_text(result);
  }
}

// The shortest text for a bound; those from files were read in single precision.
std::string number(double value) {
  char text[32];
  const auto single = static_cast<float>(value);
  const auto end = static_cast<double>(single) == value
                       ? std::to_chars(text, text + sizeof text, single)
                       : std::to_chars(text, text + sizeof text, value);
  return {text, end.ptr};
}

std::string range_text(double least, double most) {
  const bool from = std::isfinite(least);
  const bool to = std::isfinite(most);
  if (from && to) {
    return least < most ? number(least) + " to " + number(most) : number(least);
  }
  return from ? number(least) + " or more" : to ? number(most) + " or less" : "any number";
}

// Tells whether a member has the range that its data type brings along.
bool has_usual_range(IOXADataElement& member, IOXAUserDefinedDataType& type) {
  oxa::Ref<IOXADataElement> fresh;
  if (oxa::failed(type.CreateElement(oxa::adopt_into(fresh)))) {
    return false;
  }
  fresh->SetDataType(member.Type());
  return fresh->MinimumValue() == member.MinimumValue() &&
         fresh->MaximumValue() == member.MaximumValue();
}

// Tells whether "0", which every member has until another default is given, means nothing to it.
bool is_no_number(DataType type) {
  return type == DataType::String || type == DataType::Enum || type == DataType::Code ||
         type == DataType::File || type == DataType::UserDefined ||
         type == OXA::Property::NoDataType;
}

}  // namespace

RecordTypes::RecordTypes(IOXAContext* context)
    : context_(context),
      scanner_(oxa::service<IOXADirectoryScanner>(context)),
      translator_(oxa::service<IOXAPropertyDataTypeTranslator>(context)),
      manager_(oxa::type_manager(context)) {
  if (!scanner_ || !translator_ || !manager_) {
    throw Problem("the library gives no record types; reinstall it");
  }
}

void RecordTypes::load(const std::string& folder) {
  for (const std::wstring& name : names_in(*scanner_, folder, L".xml")) {
    load_file(folder, name);
  }
}

void RecordTypes::load_file(const std::string& folder, const std::wstring& name) {
  const std::string shown_path = folder + "/" + oxa::narrow(name);
  const CollectedErrors errors(context_);
  const OXAResult result = manager_->Load((oxa::widen(folder) + L"/" + name).c_str());
  if (oxa::failed(result)) {
    report_skipped(
        "record types in", shown_path, reason_of(result, errors.texts()),
        result == E_OPENFAILED ? "check or remove the file" : "correct or remove the file");
    return;
  }
  for (const std::string& error : errors.texts()) {
    report_skipped("malformed part of the record types in", shown_path, said(error),
                   "correct the file");
  }
}

std::vector<RecordType> RecordTypes::all() const {
  std::vector<RecordType> found;
  for (IOXAPluginDataTypeNamespace* name_space : oxa::namespaces(*manager_)) {
    for (IOXAUserDefinedDataType* type : oxa::types(*name_space)) {
      found.push_back(describe(*type));
    }
  }
  std::sort(found.begin(), found.end(), [](const RecordType& left, const RecordType& right) {
    return std::tie(left.name_space, left.name) < std::tie(right.name_space, right.name);
  });
  return found;
}

RecordType RecordTypes::describe(IOXAUserDefinedDataType& type) const {
  RecordType described{text_of(type.Namespace()), text_of(type.Name()), text_of(type.Type()), {}};
  for (IOXADataElement* member : oxa::elements(type)) {
    described.members.push_back(describe(*member, type));
  }
  return described;
}

RecordMember RecordTypes::describe(IOXADataElement& member, IOXAUserDefinedDataType& type) const {
  RecordMember described{text_of(member.Name()), data_type_of(member), "",
                         text_of(member.DefaultValue()), text_of(member.Tooltip())};
  if (!has_usual_range(member, type)) {
    described.range = range_text(member.MinimumValue(), member.MaximumValue());
  } else if (member.Type() == DataType::Float || member.Type() == DataType::Double) {
    described.range = "above 0";  // which a default of 0 is not
  }
  if (described.default_value == "0" && is_no_number(member.Type())) {
    described.default_value.clear();
  }
  return described;
}

std::string RecordTypes::data_type_of(IOXADataElement& member) const {
  if (member.Type() == DataType::UserDefined) {
    const std::string name = text_of(member.UserDefinedType());
    return manager_->TypeDefined(member.UserDefinedType()) ? name : "unknown " + name;
  }
  const char* name = translator_->ToString(member.Type());
  return name != nullptr ? name : "unknown";
}
