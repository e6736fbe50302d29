#include "datatypes/OXAUserDefinedDataTypeManager.h"

#include <oxa/IOXADebugMessage.h>
#include <oxa/sdk/guard.h>

#include <string>

#include "core/factory.h"
#include "core/utf.h"
#include "datatypes/extension_file.h"
#include "datatypes/type_string.h"

namespace {

// The one manager of the process; it holds no reference.
OXAUserDefinedDataTypeManager* process_manager = nullptr;

}  // namespace

// Kept: only the last of the three must be there
// (TypeManagerFactoryTest.OnlyTheParserMustBeThere).
OXAUserDefinedDataTypeManager::OXAUserDefinedDataTypeManager(IOXAContext* context,
                                                             OXAResult& result)
    : context_(context) {
  if (context_ == nullptr) {
    result = E_INVALIDARG;
    return;
  }
  context_->GetInterface(IID_IOXAPropertyDataTypeTranslator, oxa::adopt_into(translator_));
  context_->GetInterface(IID_IOXADirectoryScanner, oxa::adopt_into(scanner_));
  result = context_->GetInterface(IID_IOXAXMLParser, oxa::adopt_into(parser_));
}

OXAResult OXAUserDefinedDataTypeManager::Load(const wchar_t* path) {
  if (path == nullptr) {
    return E_INVALIDARG;
  }
  if (!parser_) {
    return E_UNEXPECTED;
  }
  return oxa::guard([&] {
    const auto sink = oxa::service<IOXADebugMessage>(context_);
    return read_extension_file(path, {*this, builder_, *parser_, translator_.get(), sink.get()});
  });
}

// Kept: the first file that fails ends it (TypeManagerFolderTest.TheFirstFailureEndsIt).
OXAResult OXAUserDefinedDataTypeManager::LoadAll(const wchar_t* folder) {
  if (folder == nullptr) {
    return E_INVALIDARG;
  }
  if (!scanner_) {
    return E_UNEXPECTED;
  }
  return oxa::guard([&] {
    OXAResult result = scanner_->Scan(folder, "*.xml");
    if (result < 0) {
      return result;
    }
    const auto sink = oxa::service<IOXADebugMessage>(context_);
    wchar_t* found = nullptr;
    for (result = scanner_->GetFirst(&found); result == S_OK; result = scanner_->GetNext(&found)) {
      const std::wstring name = found;  // a copy: a sink that scans would free it
      result = Load((folder + (L"/" + name)).c_str());
      if (result < 0) {
        if (sink) {
          sink->EmitError("Loading XML (%s) failed!", oxa::to_utf8(name.c_str()).c_str());
        }
        break;
      }
    }
    return result;
  });
}

// Kept: a namespace that is there is a success of its own (TypeManagerTest.MakesANamespaceOnce).
OXAResult OXAUserDefinedDataTypeManager::NewNamespace(const char* name,
                                                      IOXAPluginDataTypeNamespace** ns) {
  if (name == nullptr || ns == nullptr) {
    return E_INVALIDARG;
  }
  *ns = namespaces_.find(name);
  if (*ns != nullptr) {
    return S_ALREADYEXISTS;
  }
  return oxa::guard([&] {
    OXAResult result = S_OK;
    auto made = oxa::make<OXAPluginDataTypeNamespace>(context_, this, name, result);
    if (result >= 0) {
      namespaces_.add(oxa::thin_string(name), made.get());
      *ns = made.detach();
    }
    return result;
  });
}

OXAResult OXAUserDefinedDataTypeManager::GetFirstNamespace(IOXAPluginDataTypeNamespace** ns) {
  return namespaces_.first(ns);
}

OXAResult OXAUserDefinedDataTypeManager::GetNextNamespace(IOXAPluginDataTypeNamespace** ns) {
  return namespaces_.next(ns);
}

OXAResult OXAUserDefinedDataTypeManager::FindNamespace(const char* name,
                                                       IOXAPluginDataTypeNamespace** ns) {
  if (name == nullptr || ns == nullptr) {
    return E_INVALIDARG;
  }
  *ns = namespaces_.find(name);
  return *ns == nullptr ? E_NOTFOUND : S_OK;
}

bool OXAUserDefinedDataTypeManager::TypeDefined(const char* name) {
  IOXAUserDefinedDataType* type = nullptr;
  return GetUserType(name, &type) >= 0;
}

OXAResult OXAUserDefinedDataTypeManager::GetUserType(const char* name,
                                                     IOXAUserDefinedDataType** type) {
  if (name == nullptr || type == nullptr) {
    return E_INVALIDARG;
  }
  *type = nullptr;
  return oxa::guard([&] {
    const std::string_view named = named_type(name);
    if (named.empty()) {
      return E_NOTFOUND;
    }
    const OXASimpleStringDecoder path("::", named);
    if (path.count() == 1) {
      return is_built_in(named) ? S_OK : E_NOTFOUND;
    }
    // Kept: pieces after the second are ignored (TypeStringTest.ResolvesToTypes).
    const OXAPluginDataTypeNamespace* name_space = namespaces_.find(path.first());
    *type = name_space == nullptr ? nullptr : name_space->find(path.second());
    return *type == nullptr ? E_NOTFOUND : S_OK;
  });
}

// `name` is part of a terminated text, and copied only if it is not the end of that.
bool OXAUserDefinedDataTypeManager::is_built_in(std::string_view name) const {
  if (!translator_) {
    return false;
  }
  const bool terminated = *(name.data() + name.size()) == '\0';
  const OXA::Property::DataType type = terminated ? translator_->ToType(name.data())
                                                  : translator_->ToType(std::string(name).c_str());
  return type != OXA::Property::NoDataType;
}

OXAUserDefinedDataTypeManager::~OXAUserDefinedDataTypeManager() {
  translator_.reset();
  scanner_.reset();
  parser_.reset();
  if (process_manager == this) {
    process_manager = nullptr;
  }
}

OXAResult OXACreateUserDefinedDataTypeManager(IOXAContext* context, const _GUID& iid, void** out) {
  return run_factory(out, [&] {
    if (iid != IID_IOXAUserDefinedDataTypeManager) {
      return E_NOINTERFACE;
    }
    // One without references is ending: a service that it releases has called this.
    if (process_manager != nullptr && process_manager->CheckReference() > 0) {
      process_manager->AddReference();
      *out = static_cast<IOXAUserDefinedDataTypeManager*>(process_manager);
      return S_OK;
    }
    if (context == nullptr) {
      return E_INVALIDARG;
    }
    OXAResult result = S_OK;
    auto manager = oxa::make<OXAUserDefinedDataTypeManager>(context, result);
    if (result >= 0) {
      process_manager = manager.get();
      *out = static_cast<IOXAUserDefinedDataTypeManager*>(manager.detach());
    }
    return result;
  });
}
