// Graphs with attributes, and GraphML on its way in and out.
#pragma once

#include <graph_plugin.h>
#include <graph_values.h>

#include "graph_host.h"

namespace graph_test {

inline constexpr GraphPart all_parts[] = {GraphPart::graph, GraphPart::node, GraphPart::edge};

// A file with everything in it that is read.
inline constexpr const char* full_file = R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- made by hand -->
<graphml xmlns="http://graphml.graphdrawing.org/xmlns" xmlns:oxa="urn:oxa-graph:1"
    xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'
    xsi:schemaLocation="http://graphml.graphdrawing.org/xmlns
      http://graphml.graphdrawing.org/xmlns/1.0/graphml.xsd">
  <desc>nothing</desc>
  <key id="title" for="graph" attr.name="title" attr.type="string"/>
  <key id="age" for="node" attr.name="age" attr.type="int" oxa:min="0" oxa:max="150">
    <desc>Jahre &amp; &#220;ber</desc>
    <default>30</default>
  </key>
  <key id="mood" for="node" attr.name="mood" attr.type="string" oxa:type="enum">
    <oxa:entry name="good" value="1"/><oxa:entry name="bad" value="2"></oxa:entry>
  </key>
  <key id="rank" for="node" attr.name="rank" attr.type="double" oxa:column="measure"/>
  <key id="w" for="edge" attr.name="weight" attr.type="double"><default>2</default></key>
  <key id="all" attr.name="note" attr.type="string"/>
  <key id="y" for="node" yfiles.type="nodegraphics"/>
  <graph id="G" edgedefault="undirected">
    <data key="title">Ein &lt;Titel&gt; &quot;&#x20AC;&quot;</data>
    <node id="a"><data key="age">7</data><data key="mood">2</data>
      <data key="y"><y:Shape a="1"><y:Text>x <b/> y</y:Text><data/></y:Shape></data></node>
    <node id="b"/>
    <edge id="e" source="a" target="b"><data key="w">0.5</data><!-- why --></edge>
    <edge source='b' target='a'><data key="all"> a note </data></edge>
    <node id="c" ><desc>late</desc><data key="rank"> 1.5 </data></node >
  </graph>
</graphml>
)";

// Tells everything of an attribute but its values.
inline std::string description_text(IOXAProperty& property) {
  std::string text = std::string(property.Name()) + " type " +
                     std::to_string(static_cast<int>(property.DataType()));
  if (const char* record_type = property.UserDefinedDataType()) {
    text += std::string(" ") + record_type;
  }
  if (const char* value = property.DefaultValue()) {
    text += std::string(" default ") + value;
  }
  if (property.IsRangeSet()) {
    text += " from " + graph::number_as_text(property.MinimumValue()) + " to " +
            graph::number_as_text(property.MaximumValue());
  }
  for (const char* name : oxa::attribute_names(property)) {
    text += std::string(" ") + name + "=" + oxa::attribute(property, name);
  }
  if (const char* tooltip = property.ViewHints()->Tooltip()) {
    text += std::string(" // ") + tooltip;
  }
  return text;
}

class GraphmlTest : public GraphTest {
 protected:
  GraphmlTest() { empty_graph(); }

  void empty_graph() { graph = make_graph(oxa::service<IOXAPreferences>(context)); }

  // Reads into an empty graph.
  OXAResult read_graphml(const std::string& text) {
    empty_graph();
    error->text.clear();
    return named<IGraphReader>("GraphML").Read(text.data(), text.size(), graph.get(), error.get());
  }

  // Reads keys, and what stands within <graph>.
  OXAResult read_parts(const std::string& keys, const std::string& items) {
    return read_graphml("<graphml>\n" + keys + "\n<graph edgedefault=\"undirected\">\n" + items +
                        "\n</graph></graphml>");
  }

  // Returns what is written; empty after a failure, whose reason is in `error`.
  std::string write_graphml() {
    const auto output = oxa::make<Output>();
    const OXAResult result =
        named<IGraphWriter>("GraphML").Write(graph.get(), nullptr, output.get(), error.get());
    return result == S_OK ? output->text : "";
  }

  // Tells everything of the graph: a line for each attribute, item and column.
  std::string dump() {
    std::string text;
    for (const GraphPart part : all_parts) {
      for (std::uint64_t index = 0; IOXAProperty* property = graph->GetAttribute(part, index);
           ++index) {
        text += part_name(part) + (" " + description_text(*property)) + "\n";
      }
    }
    for (const GraphPart part : all_parts) {
      for (std::uint64_t item = 0; item < graph::item_count(*graph, part); ++item) {
        text += item_text(part, item) + values_text(part, item) + "\n";
      }
    }
    return text + columns_text();
  }

  // Adds an attribute, or finds the one of this name.
  IOXAProperty& attribute(GraphPart part, const char* name, OXA::Property::DataType type) {
    return *graph->GetAttribute(part, graph::add_attribute(*graph, part, name, type));
  }

  OXAResult set(GraphPart part, const char* name, std::uint64_t item, const OXAVariant& value) {
    return graph->SetValue(part, graph::find_attribute(*graph, part, name).value(), item, value);
  }

  std::uint64_t add_node(const char* label) {
    std::uint64_t node = 0;
    graph->AddNode(label, &node);
    return node;
  }

 private:
  static std::string part_name(GraphPart part) {
    return part == GraphPart::graph ? "graph" : part == GraphPart::node ? "node" : "edge";
  }

  std::string item_text(GraphPart part, std::uint64_t item) {
    GraphEdge edge{};
    if (part == GraphPart::node) {
      return std::string("node ") + graph->GetLabel(item);
    }
    if (part == GraphPart::graph || graph->GetEdge(item, &edge) < 0) {
      return "graph";
    }
    return std::string("edge ") + graph->GetLabel(edge.source) + " - " +
           graph->GetLabel(edge.target) + " " + graph::number_as_text(edge.weight);
  }

  std::string values_text(GraphPart part, std::uint64_t item) {
    std::string text;
    for (std::uint64_t index = 0; IOXAProperty* property = graph->GetAttribute(part, index);
         ++index) {
      if (const OXAVariant* value = graph->GetValue(part, index, item)) {
        text += std::string(" ") + property->Name() + "=" + graph::value_text(*value);
      }
    }
    return text;
  }

  std::string columns_text() {
    std::string text;
    for (std::uint64_t index = 0; const char* name = graph->GetColumnName(index); ++index) {
      GraphColumnKind kind{};
      const double* values = graph::find_column(*graph, name, &kind);
      text += std::string("column ") + name + " kind " + std::to_string(static_cast<int>(kind));
      for (std::uint64_t node = 0; node < graph->GetNodeCount(); ++node) {
        text += " " + graph::number_as_text(values[node]);
      }
      text += "\n";
    }
    return text;
  }
};

}  // namespace graph_test
