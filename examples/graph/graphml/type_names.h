// How GraphML names data types.
#pragma once

#include <oxa/IOXAContext.h>
#include <oxa/IOXAPropertyDataTypeTranslator.h>
#include <oxa/sdk/ref.h>

#include <string>

namespace graph {

// The context's translator between data types and names, for files that other programs read.
// GraphML has boolean, int, long, float, double and string. So 64-bit integers get the name "long"
// in GraphML, which puts "int64" in place of the translator's own name for them; there was none
// that any other program knows.
class TypeNames {
 public:
  // Throws a Failure when the context has no translator.
  explicit TypeNames(IOXAContext* context);

  // Returns the data type of a name, NoDataType for one that is not known.
  OXA::Property::DataType type(const std::string& name) const;

  // Returns the canonical name of a data type.
  std::string name(OXA::Property::DataType type) const;

  // Returns GraphML's name for a data type, or that of a wider one that holds the same: "int" for
  // char and short, with and without unsigned, and "long" for unsigned int and, as long as the
  // values fit, unsigned long long. Throws a Failure for a data type that has none.
  std::string in_files(OXA::Property::DataType type) const;

 private:
  oxa::Ref<IOXAPropertyDataTypeTranslator> translator_;
};

}  // namespace graph
