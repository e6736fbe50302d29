// What the miniature plug-ins agree on with the tests that load them.
#pragma once

#include <oxa/IOXAContext.h>
#include <oxa/sdk/guid_text.h>
#include <oxa/sdk/ref.h>

inline constexpr _GUID IID_IJournal = oxa::guid("{6B0E3D0C-57A5-4C3E-9D0B-6E1B5A7F2C41}");
inline constexpr _GUID IID_IEntryPoint = oxa::guid("{C3D5B7E1-2A48-4F0D-9B6C-71E8A4503F92}");
inline constexpr _GUID IID_IGauge = oxa::guid("{0F2C9A77-1E64-4C55-8B7D-3A9E51D0C6B8}");

// How a plug-in tells a test what happens to it. Implemented by the tests, filed in the context.
class IJournal : public IOXAReference {
 public:
  virtual void Note(const char* line) = 0;

 protected:
  ~IJournal() = default;
};

template <>
struct OXAInterfaceId<IJournal> {
  static const _GUID& value() { return IID_IJournal; }
};

// What the entry point of the plug-in as_told does. Implemented by the tests, filed in the context.
class IEntryPoint : public IOXAReference {
 public:
  virtual OXAResult Create(void** out) = 0;

 protected:
  ~IEntryPoint() = default;
};

template <>
struct OXAInterfaceId<IEntryPoint> {
  static const _GUID& value() { return IID_IEntryPoint; }
};

// An interface that the library has never heard of.
class IGauge : public IOXAReference {
 public:
  virtual int Read() = 0;

 protected:
  ~IGauge() = default;
};

// An interface without operations of its own.
class IOffered : public IOXAReference {
 protected:
  ~IOffered() = default;
};

// Notes its end if the context has a journal.
class EndNote {
 public:
  EndNote(IOXAContext* context, const char* line)
      : journal_(oxa::service<IJournal>(context)), line_(line) {}
  EndNote(const EndNote&) = delete;
  EndNote& operator=(const EndNote&) = delete;
  ~EndNote() {
    if (journal_) {
      journal_->Note(line_);
    }
  }

 private:
  oxa::Ref<IJournal> journal_;
  const char* line_;
};

inline void note(IOXAContext* context, const char* line) {
  if (const auto journal = oxa::service<IJournal>(context)) {
    journal->Note(line);
  }
}
