// Names of data types, and back.
#pragma once

#include <oxa/IOXAPropertyDataTypeTranslator.h>
#include <oxa/sdk/implements.h>

#include <functional>
#include <map>
#include <string>

class OXAPropertyDataTypeTranslator final : public oxa::Implements<IOXAPropertyDataTypeTranslator> {
 public:
  // Knows the built-in data types. Throws std::bad_alloc.
  OXAPropertyDataTypeTranslator();

  const char* ToGraphml(OXA::Property::DataType type) override;
  const char* ToString(OXA::Property::DataType type) override;
  OXA::Property::DataType ToType(const char* name) override;
  OXAResult Register(OXA::Property::DataType type, const char* name,
                     const char* graphmlName) override;

  ~OXAPropertyDataTypeTranslator() override = default;

 private:
  struct spelling {
    std::string canonical;
    std::string graphml;
  };

  const spelling* find(OXA::Property::DataType type) const;
  void add(OXA::Property::DataType type, const char* name, const char* graphml_name);

  std::map<std::string, OXA::Property::DataType, std::less<>> types_;  // by name and alias
  std::map<OXA::Property::DataType, spelling> spellings_;
};
