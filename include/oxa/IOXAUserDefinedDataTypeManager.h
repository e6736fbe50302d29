// The record types of all plug-ins, and the extension files that declare them.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/export.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

class IOXAContext;
class IOXAPluginDataTypeNamespace;
class IOXAUserDefinedDataType;

// Reads extension files, keeps a namespace for each plug-in that they name, and resolves type
// strings. Implemented by the library, one per process; made by OXACreateUserDefinedDataTypeManager
// and not filed in the context. The host keeps a reference as long as plug-ins run: with the last
// one all types end. Namespaces and types are only ever added; those it hands out are borrowed and
// live as long as the manager. It does not reference its context, which must outlive calls of Load
// and LoadAll; whoever calls these holds a reference to the manager throughout.
// docs/extension-files.md tells what the files hold.
//
// Built by one thread; then several may look things up as long as nobody registers names with the
// translator, but only one at a time may walk the namespaces, whose position the manager keeps.
// oxa::namespaces (sdk/data_types.h) walks them in a range-for.
class IOXAUserDefinedDataTypeManager : public IOXAReference {
 public:
  // Reads one extension file. What stops it is told to the message sink of the context, if there is
  // one; a malformed `<data_type>` is told and cut short, and does not stop it. Types that were
  // read before a failure stay. For want of memory types and members may be missing without a
  // failure.
  // The file is read by a document of the context's parser. One of the library that nobody else
  // references is ended with its tree; any other is released.
  // S_FALSE on success; E_INVALIDARG for a null path and for an empty `type` or `plugin`;
  // E_NOTFOUND when one of these, or any `<data_type>`, is missing; E_INVALIDDATA for a file
  // without a root, with another root than `<extension>`, or with another `type` than "data";
  // E_OPENFAILED; E_UNEXPECTED for malformed XML, and when the context gave no parser;
  // E_OUTOFMEMORY; what a host's own parser and its documents return, and E_POINTER if they succeed
  // without an object.
  virtual OXAResult Load(const wchar_t* path) = 0;

  // Reads the files of a folder whose names contain ".xml", in the order in which the directory
  // scanner of the context gives them, by the path made of `folder`, "/" and the name. The first
  // one that fails is told to the message sink and ends it. The message sink must not use the
  // scanner meanwhile, nor call LoadAll: the files that were not read yet would be forgotten.
  // S_FALSE when all were read; the result of the Load that failed; E_INVALIDARG for null;
  // E_BADENVIRONMENT when the folder cannot be opened; E_UNEXPECTED when the context had no
  // scanner; E_OUTOFMEMORY.
  virtual OXAResult LoadAll(const wchar_t* folder) = 0;

  // Adds a namespace and stores it, borrowed. The name may be empty; type strings do not
  // find one with "::" or "$".
  // S_OK; S_ALREADYEXISTS when it was there, with `*ns` stored; E_INVALIDARG for a null argument;
  // E_OUTOFMEMORY with `*ns` null.
  virtual OXAResult NewNamespace(const char* name, IOXAPluginDataTypeNamespace** ns) = 0;

  // Moves to the first namespace and stores it, borrowed. The order is not specified.
  // S_OK; S_FALSE when there is none, with `*ns` null; E_INVALIDARG for a null `ns`.
  virtual OXAResult GetFirstNamespace(IOXAPluginDataTypeNamespace** ns) = 0;

  // Moves to the next namespace, with the results of GetFirstNamespace. Not allowed before
  // GetFirstNamespace or after S_FALSE.
  virtual OXAResult GetNextNamespace(IOXAPluginDataTypeNamespace** ns) = 0;

  // Finds a namespace by its name, which is compared byte by byte, and stores it, borrowed.
  // S_OK; E_INVALIDARG for a null argument; E_NOTFOUND with `*ns` null.
  virtual OXAResult FindNamespace(const char* name, IOXAPluginDataTypeNamespace** ns) = 0;

  // Tells whether GetUserType succeeds for a type string; false for null.
  virtual bool TypeDefined(const char* name) = 0;

  // Resolves a type string. It is a name that the translator knows, or "namespace::type"; what
  // follows a further "::" is ignored. Either may stand between "$" and "%": of a string with
  // exactly one "$" only what follows it counts, up to its "%" if it has exactly one; of one with
  // more
  // "$", only what precedes the first. Blanks are part of the names.
  // S_OK, with the type, borrowed, or null for a built-in one, so test the pointer as well;
  // E_INVALIDARG for a null argument; E_NOTFOUND for any other string, with `*type` null;
  // E_OUTOFMEMORY.
  virtual OXAResult GetUserType(const char* name, IOXAUserDefinedDataType** type) = 0;

 protected:
  ~IOXAUserDefinedDataTypeManager() = default;
};

template <>
struct OXAInterfaceId<IOXAUserDefinedDataTypeManager> {
  static const _GUID& value() { return IID_IOXAUserDefinedDataTypeManager; }
};

// Hands out the type manager of the process, making it if there is none; the caller owns one
// reference to `*out`. It takes the translator, the directory scanner and the XML parser that
// `context` holds at that moment. Once there is a manager, `context` is ignored and may be null.
// The manager ends with its last reference. Calls must overlap neither with one another nor with
// that.
// S_OK; E_INVALIDARG for a null `out`, and for a null context when there is no manager;
// E_NOINTERFACE for an id other than IID_IOXAUserDefinedDataTypeManager; E_OUTOFMEMORY, or the
// result of fetching the XML parser. `*out` is null after a failure.
extern "C" OXA_EXPORT OXAResult OXACreateUserDefinedDataTypeManager(IOXAContext* context,
                                                                    const _GUID& iid, void** out);
