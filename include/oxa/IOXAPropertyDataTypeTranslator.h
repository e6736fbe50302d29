// Names of data types, and back.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/data_type.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

// Translates between data types, their names, and the names of GraphML attribute types. Implemented
// by the library; every context holds one under IID_IOXAPropertyDataTypeTranslator, where a host
// may file its own. Names are compared byte by byte: case matters. Concurrent calls are safe while
// nobody calls Register.
//
// Texts that it returns live until another name of the same data type is registered with a GraphML
// name, or the translator ends.
class IOXAPropertyDataTypeTranslator : public IOXAReference {
 public:
  // Returns the GraphML attribute type of a data type, null when there is none.
  virtual const char* ToGraphml(OXA::Property::DataType type) = 0;

  // Returns the canonical name of a data type, null when there is none.
  virtual const char* ToString(OXA::Property::DataType type) = 0;

  // Returns the data type of a name or alias, UserDefined for any other name that contains "$" or
  // "::", and NoDataType for the rest. `name` must not be null.
  virtual OXA::Property::DataType ToType(const char* name) = 0;

  // Adds a name for a data type, which may be any number from 0 on. With a GraphML name, both
  // replace the type's earlier ones; with null the name is an alias, which ToType alone knows.
  // Names are never removed.
  // S_OK; E_INVALIDARG for a null name or a negative type; E_ALREADYEXISTS for a name that is
  // known, whatever it stands for; E_OUTOFMEMORY. After a failure nothing is changed.
  virtual OXAResult Register(OXA::Property::DataType type, const char* name,
                             const char* graphmlName) = 0;

 protected:
  ~IOXAPropertyDataTypeTranslator() = default;
};

template <>
struct OXAInterfaceId<IOXAPropertyDataTypeTranslator> {
  static const _GUID& value() { return IID_IOXAPropertyDataTypeTranslator; }
};
