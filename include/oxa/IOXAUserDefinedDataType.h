// A record type that a plug-in declares.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/result.h>

class IOXADataElement;

// A name, a kind and an ordered list of members. Implemented by the library; made by
// IOXAPluginDataTypeNamespace::AddUserDefinedType. It owns a reference to each member. Built by one
// thread; then several may read it, but only one at a time may walk the members, whose position the
// type keeps. oxa::elements (sdk/data_types.h) walks them in a range-for.
//
// Texts that it returns live as long as the type. Types and members from files share their memory:
// one that is kept beyond the manager keeps it all.
class IOXAUserDefinedDataType : public IOXAReference {
 public:
  // Returns the name, null when it is empty.
  virtual const char* Name() = 0;

  // Returns the name of the namespace, null when it is empty.
  virtual const char* Namespace() = 0;

  // Returns the kind, null when it is empty: what its `type` says where it is declared, such as
  // "struct". It means something to those who use the type, and nothing to the library.
  virtual const char* Type() = 0;

  // Makes a member that is not in the type yet; the caller owns one reference to `*element`.
  // S_OK; E_INVALIDARG for a null `element`; E_OUTOFMEMORY with `*element` null.
  virtual OXAResult CreateElement(IOXADataElement** element) = 0;

  // Appends a member and takes over the caller's reference to it. It must be in no type yet. Names
  // are compared as they were when their members were added.
  // S_OK; E_INVALIDARG for null and for a member without a name; E_ALREADYEXISTS for a name that
  // the type has; E_OUTOFMEMORY. After a failure nothing is changed and the reference is still the
  // caller's.
  virtual OXAResult AddElement(IOXADataElement* element) = 0;

  // Moves to the first member and stores it, borrowed.
  // S_OK; S_FALSE when there is none, with `*element` null; E_INVALIDARG for a null `element`.
  virtual OXAResult GetFirstElement(IOXADataElement** element) = 0;

  // Moves to the next member, with the results of GetFirstElement. After S_FALSE it starts over
  // with the first member. Call GetFirstElement before.
  virtual OXAResult GetNextElement(IOXADataElement** element) = 0;

  // Returns the number of members.
  virtual int ElementCount() = 0;

 protected:
  ~IOXAUserDefinedDataType() = default;
};
