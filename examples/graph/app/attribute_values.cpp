#include "attribute_values.h"

#include <graph_plugin.h>
#include <graph_values.h>

namespace {

// A long double holds every number of every data type as it is.
bool out_of_range(const OXAVariant& value, IOXAProperty& description) {
  bool out = false;
  graph::with_number(value, [&](auto number) {
    const auto exact = static_cast<long double>(number);
    out = !(exact >= description.MinimumValue() && exact <= description.MaximumValue());
  });
  return out;
}

}  // namespace

std::vector<ValuesOutOfRange> values_out_of_range(IGraph& graph) {
  std::vector<ValuesOutOfRange> found;
  for (const GraphPart part : {GraphPart::graph, GraphPart::node, GraphPart::edge}) {
    const std::uint64_t count = graph::item_count(graph, part);
    for (std::uint64_t attribute = 0;
         IOXAProperty* description = graph.GetAttribute(part, attribute); ++attribute) {
      ValuesOutOfRange values{part, attribute, description, {}};
      for (std::uint64_t item = 0; description->IsRangeSet() && item < count; ++item) {
        const OXAVariant* value = graph.GetValue(part, attribute, item);
        if (value != nullptr && out_of_range(*value, *description)) {
          values.items.push_back(item);
        }
      }
      if (!values.items.empty()) {
        found.push_back(std::move(values));
      }
    }
  }
  return found;
}
