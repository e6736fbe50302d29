// What describes a property.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/data_type.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

#include <cstdint>

class IOXAPropertyViewHints;

namespace OXA {
namespace Property {

// What kind of property it is. The application gives the numbers their meaning; the library stores
// them. `Type{3}` makes one.
enum class Type : std::int32_t {};

}  // namespace Property
}  // namespace OXA

// Describes one named, typed property: its identity, data type, default, range, flags, how to show
// it, attributes, and what supports it. Values are kept elsewhere, by id. Implemented by the
// library; made when a property is registered, as by IOXAPreferences::Add, and by Clone. Used by
// one thread at a time.
//
// Texts that it returns or stores in an output are its own: they live until that field changes or
// the property ends.
class IOXAProperty : public IOXAReference {
 public:
  // Makes a copy of all of it, id and namespace included, which is registered nowhere; the caller
  // owns one reference to `*out`.
  // S_OK; E_INVALIDARG for a null `out`; E_UNEXPECTED for want of memory, with `*out` null.
  virtual OXAResult Clone(IOXAProperty** out) = 0;

  // Returns the id that it was given when it was registered, or the last one given to SetID.
  virtual int ID() = 0;

  // Returns the name and the path of the namespace; either may be an empty text.
  virtual const char* Name() = 0;
  virtual const char* Namespace() = 0;

  // Returns what SetPropertyType stored; 0 until then.
  virtual OXA::Property::Type Type() = 0;

  // Returns what SetDataType stored; NoDataType until then.
  virtual OXA::Property::DataType DataType() = 0;

  // Returns the type string of the record type, null when there is none.
  virtual const char* UserDefinedDataType() = 0;

  // Returns the default value, null until one is set. Nothing applies it: that is up to its users.
  virtual const char* DefaultValue() = 0;

  // Returns the flag of SetDependency, which is free for use; false at first.
  virtual bool HasDependency() = 0;

  // Tells whether SetRange has succeeded.
  virtual bool IsRangeSet() = 0;

  // Return the bounds: those of SetRange, or the natural ones of the data type. Of 64-bit integers
  // the maximum is the next power of two; of what holds no number, and before there is a data type,
  // they are 0 and 1. Nothing compares values with them: that is up to their users.
  virtual double MinimumValue() = 0;
  virtual double MaximumValue() = 0;

  // Returns the namespace, "::" and the name. Two properties may have the same: "b::c" in "a" and
  // "c" in "a::b".
  virtual const char* FullNamespace() = 0;

  // Returns the flag of SetMutable, which is free for use; false at first.
  virtual bool IsMutable() = 0;

  // Replaces the id. Values are found by it, so those stored so far are not found any more; the
  // manager knows the property by its first id.
  virtual void SetID(int id) = 0;

  // Sets the range, which for a number can only be narrowed. Set the data type before.
  // S_OK; E_UNEXPECTED without a data type; for integers and floating-point numbers E_FAIL for
  // bounds out of the present ones or out of order, and for negative ones of an unsigned type. For
  // other data types, Bool included, nothing is checked. After a failure nothing is changed.
  virtual OXAResult SetRange(double minimum, double maximum) = 0;

  // Names the record type of a UserDefined property, by a type string that the type manager of the
  // process resolves; and sets the bounds, unless SetRange has set them, by what follows the first
  // "$": those of the built-in type if it is one of int, long, long long, with or without unsigned,
  // double and float, and otherwise, char and short included, 0 and 1.
  // S_OK; E_INVALIDARG for null and for a type that is not defined; E_UNEXPECTED when the data type
  // is not UserDefined; E_OUTOFMEMORY. E_INVALIDARG also when the process has no type manager.
  // After a failure nothing is changed.
  virtual OXAResult SetUserDefinedDataType(const char* name) = 0;

  // Stores the default value, which may be empty.
  // S_OK; E_INVALIDARG for null; E_OUTOFMEMORY with nothing changed.
  virtual OXAResult SetDefaultValue(const char* text) = 0;

  // Stores a flag that is free for use.
  virtual void SetDependency(bool dependency) = 0;

  // Stores the kind of property.
  virtual void SetPropertyType(OXA::Property::Type type) = 0;

  // Stores the data type and takes its natural bounds, whether a range was set or not; that flag
  // stays. For Bool it also makes 4 the editor of the view hints. Values that are stored already
  // are not converted.
  virtual void SetDataType(OXA::Property::DataType type) = 0;

  // Makes Supports true for every category and name that is not empty.
  virtual void SetSupportAllNodes(bool all) = 0;

  // Stores a flag that is free for use.
  virtual void SetMutable(bool is_mutable) = 0;

  // Returns how to show the property; borrowed, never null, and lives as long as the property.
  virtual IOXAPropertyViewHints* ViewHints() = 0;

  // Returns the number of attributes.
  virtual unsigned long GetAttributeCount() = 0;

  // Removes all attributes.
  virtual void ClearAttributes() = 0;

  // Adds an attribute. Of an Enum property the attributes are the enumeration: their names are the
  // entries, their values what is stored.
  // S_OK; E_INVALIDARG for a null argument; E_ALREADYEXISTS for a name that is there; E_UNEXPECTED
  // for want of memory. After a failure nothing is changed.
  virtual OXAResult AddAttribute(const char* name, const char* value) = 0;

  // Moves to the first attribute, in the order in which they were added, and stores its name.
  // S_OK; S_FALSE when there is none, with `*name` null; E_INVALIDARG for a null `name`.
  virtual OXAResult GetFirstAttribute(char** name) = 0;

  // Moves to the next attribute, with the results of GetFirstAttribute. Not allowed before
  // GetFirstAttribute or after S_FALSE.
  virtual OXAResult GetNextAttribute(char** name) = 0;

  // Finds the value of an attribute.
  // S_OK; E_INVALIDARG for a null argument; E_NOTFOUND with `*value` null.
  virtual OXAResult GetAttributeValue(const char* name, char** value) = 0;

  // Finds an attribute that has a value, which is compared byte by byte, and stores its name. Of
  // several it is not specified which.
  // S_OK; E_INVALIDARG for a null argument; E_NOTFOUND with `*name` null.
  virtual OXAResult GetAttributeFromValue(const char* value, char** name) = 0;

  // Tells whether AddSupport was given these two, or SetSupportAllNodes true. False for a null or
  // empty argument, whatever that flag says.
  virtual bool Supports(const char* category, const char* name) = 0;

  // Adds what has the property: a name in a category, such as a kind of node. They are compared
  // byte by byte.
  // S_OK, also when it was there; E_INVALIDARG for a null argument; E_OUTOFMEMORY with nothing
  // changed.
  virtual OXAResult AddSupport(const char* category, const char* name) = 0;

  // Returns the flag of SetSupportAllNodes; false at first.
  virtual bool SupportsAllNodes() = 0;

 protected:
  ~IOXAProperty() = default;
};

template <>
struct OXAInterfaceId<IOXAProperty> {
  static const _GUID& value() { return IID_IOXAProperty; }
};
