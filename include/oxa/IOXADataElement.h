// A member of a user-defined data type.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/data_type.h>
#include <oxa/result.h>

// A name, a data type, a range, a default value and a help text. Implemented by the library; made
// by IOXAUserDefinedDataType::CreateElement. It does not reference the type that made it, which
// must outlive calls of Namespace. Used by one thread at a time while it is changed.
//
// Texts that it returns live until the same one is set again, or the element ends.
class IOXADataElement : public IOXAReference {
 public:
  // Returns the name, null when it is empty, as it is until it is set.
  virtual const char* Name() = 0;

  // Returns what Namespace of the type that made it returns.
  virtual const char* Namespace() = 0;

  // Returns the data type, NoDataType until it is set.
  virtual OXA::Property::DataType Type() = 0;

  // Returns the help text, null when it is empty, as it is until it is set.
  virtual const char* Tooltip() = 0;

  // Returns the type string of a member whose data type is UserDefined, null when it is empty, as
  // it is until it is set. IOXAUserDefinedDataTypeManager::GetUserType resolves it.
  virtual const char* UserDefinedType() = 0;

  // Returns the default value as text, null when it is empty; "0" until it is set.
  virtual const char* DefaultValue() = 0;

  // Return the bounds of the range, which belong to it; 0 until one is set.
  virtual double MinimumValue() = 0;
  virtual double MaximumValue() = 0;

  // Tells whether a range has been set, by SetRange or by the first SetDataType: that of each
  // member from a file has.
  virtual bool IsRangeSet() = 0;

  // Replaces the name. Once the element is in a type, that still knows it by the name before.
  // S_OK; E_INVALIDARG for null; E_OUTOFMEMORY with nothing changed.
  virtual OXAResult SetName(const char* name) = 0;

  // Sets the data type. If there is no range yet, the range becomes that of the type's values: 0 to
  // 1 for types that hold no number, and for Float and Double from the smallest positive normal
  // value on, so set a range where negative values or 0 belong. S_OK.
  virtual OXAResult SetDataType(OXA::Property::DataType type) = 0;

  // Replaces the help text, with the results of SetName.
  virtual OXAResult SetTooltip(const char* text) = 0;

  // Sets the range. Equal bounds are a range, and so are bounds that are NaN.
  // S_OK; E_INVALIDARG when `minimum` is greater than `maximum`, with nothing changed.
  virtual OXAResult SetRange(double minimum, double maximum) = 0;

  // Replace the default value and the type string, with the results of SetName.
  virtual OXAResult SetDefaultValue(const char* text) = 0;
  virtual OXAResult SetUserDefinedTypeString(const char* text) = 0;

 protected:
  ~IOXADataElement() = default;
};
