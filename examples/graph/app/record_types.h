// The record types that plug-ins declare in extension files beside them.
#pragma once

#include <oxa/oxa.h>

#include <string>
#include <vector>

// A member of a record type. What is not declared is empty.
struct RecordMember {
  std::string name;
  // The name of a built-in data type, or the type string of another record type. "unknown" for a
  // built-in one that there is not, "unknown a::b" for a record type that nobody declares.
  std::string data_type;
  // The values it takes, unless they are all that its data type holds: "0 to 1".
  std::string range;
  std::string default_value;
  std::string tooltip;
};

struct RecordType {
  std::string name_space;
  std::string name;
  std::string kind;
  std::vector<RecordMember> members;
};

// Holds the process's type manager, so that whatever is loaded meanwhile finds it, and ends it.
class RecordTypes {
 public:
  // The context outlives this object.
  explicit RecordTypes(IOXAContext* context);

  // Reads every file of `folder` whose name ends in ".xml", in the order of names. Skips those that
  // are no extension files, and tells of those that hold malformed types, with a sentence on
  // standard error. Throws Problem when the folder cannot be read. A file with which the library's
  // XML reader stops the process, see docs/xml.md, stops the program.
  void load(const std::string& folder);

  // Returns all record types in the order of their namespaces and names.
  std::vector<RecordType> all() const;

 private:
  void load_file(const std::string& folder, const std::wstring& name);
  RecordType describe(IOXAUserDefinedDataType& type) const;
  RecordMember describe(IOXADataElement& member, IOXAUserDefinedDataType& type) const;
  std::string data_type_of(IOXADataElement& member) const;

  IOXAContext* context_;
  oxa::Ref<IOXADirectoryScanner> scanner_;
  oxa::Ref<IOXAPropertyDataTypeTranslator> translator_;
  oxa::Ref<IOXAUserDefinedDataTypeManager> manager_;
};
