// How a property is shown.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

// What a user interface may use to show a property and to edit its value. Implemented by the
// library; each property has one, handed out by IOXAProperty::ViewHints. It has no references and
// lives as long as its property. Used by one thread at a time. Texts that it returns live until
// they are set again.
class IOXAPropertyViewHints {
 public:
  // Returns the name to show instead of the property's own, null when it is empty.
  virtual const char* Alias() = 0;

  // The three setters of texts. S_OK; E_INVALIDARG for null; E_OUTOFMEMORY with nothing changed.
  virtual OXAResult SetAlias(const char* text) = 0;

  // Returns a sentence that explains the property, null when it is empty.
  virtual const char* Tooltip() = 0;
  virtual OXAResult SetTooltip(const char* text) = 0;

  // Returns the number of the widget to edit it with; 0 at first. The application gives the numbers
  // their meaning; the library itself sets 4, for properties of the data type Bool.
  virtual int Editor() = 0;
  virtual void SetEditor(int editor) = 0;

  // Returns whether to show the property; false at first, so set it for what is to be shown.
  virtual bool Display() = 0;
  virtual void SetDisplayFlag(bool display) = 0;

  // Returns the name of the group to show it in, null when it is empty.
  virtual const char* Group() = 0;
  virtual OXAResult SetGroup(const char* text) = 0;

 protected:
  ~IOXAPropertyViewHints() = default;
};

template <>
struct OXAInterfaceId<IOXAPropertyViewHints> {
  static const _GUID& value() { return IID_IOXAPropertyViewHints; }
};
