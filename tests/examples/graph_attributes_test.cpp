// Attributes of graphs: what describes them, their values, and which of these are out of range.
#include <attribute_values.h>

#include <cmath>
#include <limits>

#include "graphml_host.h"
#include "support/allocations.h"

using OXA::Property::DataType;

namespace {

class GraphAttributesTest : public graph_test::GraphmlTest {
 protected:
  OXAResult add(GraphPart part, const char* name, DataType type) {
    std::uint64_t number = 0;
    return graph->AddAttribute(part, name, type, &number);
  }
};

TEST_F(GraphAttributesTest, ANameIsOneAttributeOfEachPart) {
  EXPECT_EQ(add(GraphPart::node, "age", DataType::Int), S_OK);
  EXPECT_EQ(add(GraphPart::node, "age", DataType::Int), S_FALSE);
  EXPECT_EQ(add(GraphPart::node, "age", DataType::Short), E_TYPEMISMATCH);
  EXPECT_EQ(add(GraphPart::edge, "age", DataType::Short), S_OK);
  std::uint64_t number = 9;
  EXPECT_EQ(graph->AddAttribute(GraphPart::node, "name", DataType::String, &number), S_OK);
  EXPECT_EQ(number, 1U);
  EXPECT_EQ(graph->AddAttribute(GraphPart::node, "age", DataType::Int, &number), S_FALSE);
  EXPECT_EQ(number, 0U);
  EXPECT_EQ(graph->GetAttribute(GraphPart::node, 2), nullptr);
  EXPECT_EQ(graph->GetAttribute(GraphPart{3}, 0), nullptr);
}

TEST_F(GraphAttributesTest, RefusesAttributesThatMakeNoSense) {
  EXPECT_EQ(add(GraphPart::node, "", DataType::Int), E_INVALIDARG);
  EXPECT_EQ(add(GraphPart::node, nullptr, DataType::Int), E_INVALIDARG);
  EXPECT_EQ(add(GraphPart::node, "a", OXA::Property::NoDataType), E_INVALIDARG);
  EXPECT_EQ(add(GraphPart{3}, "a", DataType::Int), E_INVALIDARG);
  EXPECT_EQ(add(GraphPart::edge, "weight", DataType::Double), E_INVALIDARG);
  EXPECT_EQ(add(GraphPart::node, "weight", DataType::Double), S_OK);
  EXPECT_EQ(graph->AddAttribute(GraphPart::node, "a", DataType::Int, nullptr), E_INVALIDARG);
  EXPECT_EQ(graph->GetAttribute(GraphPart::edge, 0), nullptr);
}

TEST_F(GraphAttributesTest, AnAttributeIsDescribedByAProperty) {
  IOXAProperty& age = attribute(GraphPart::node, "age", DataType::Int);
  EXPECT_STREQ(age.Name(), "age");
  EXPECT_STREQ(age.Namespace(), "graph::node");
  EXPECT_EQ(age.DataType(), DataType::Int);
  EXPECT_TRUE(age.Supports("graph", "node"));
  EXPECT_FALSE(age.Supports("graph", "edge"));
  EXPECT_TRUE(attribute(GraphPart::edge, "a", DataType::Int).Supports("graph", "edge"));
  EXPECT_TRUE(attribute(GraphPart::graph, "a", DataType::Int).Supports("graph", "graph"));
}

// A range can only be narrowed, so a description that graphs shared would shrink from one to the
// next.
TEST_F(GraphAttributesTest, EachGraphDescribesItsOwnAttributes) {
  IOXAProperty& first = attribute(GraphPart::node, "age", DataType::Int);
  first.SetRange(0, 10);
  first.SetDefaultValue("5");
  const int id = first.ID();
  empty_graph();
  EXPECT_EQ(graph_test::description_text(attribute(GraphPart::node, "age", DataType::Double)),
            "age type 11");
  EXPECT_EQ(attribute(GraphPart::node, "age", DataType::Double).ID(), id);
}

TEST_F(GraphAttributesTest, AttributesAreNotAmongTheSettingsThatHaveAValue) {
  attribute(GraphPart::node, "age", DataType::Int);
  set(GraphPart::node, "age", add_node("a"), oxa::make_variant(3));
  const auto preferences = oxa::service<IOXAPreferences>(context);
  for (IOXAProperty* setting : oxa::settings(*preferences)) {
    EXPECT_STRNE(setting->Namespace(), "graph::node");
  }
}

TEST_F(GraphAttributesTest, DescriptionsOutliveTheContext) {
  IOXAProperty& age = attribute(GraphPart::node, "age", DataType::Int);
  plugins.reset();
  context.reset();
  EXPECT_STREQ(age.Name(), "age");
}

TEST_F(GraphAttributesTest, WithoutPreferencesThereAreNoAttributes) {
  graph = make_graph();
  EXPECT_EQ(add(GraphPart::node, "age", DataType::Int), E_NOTFOUND);
}

TEST_F(GraphAttributesTest, AValueHasTheKindOfItsDataType) {
  add_node("a");
  attribute(GraphPart::node, "age", DataType::Int);
  EXPECT_EQ(graph->GetValue(GraphPart::node, 0, 0), nullptr);
  EXPECT_EQ(graph->SetValue(GraphPart::node, 0, 0, oxa::make_variant(3)), S_OK);
  EXPECT_EQ(graph->SetValue(GraphPart::node, 0, 0, oxa::make_variant(4.0)), E_TYPEMISMATCH);
  ASSERT_NE(graph->GetValue(GraphPart::node, 0, 0), nullptr);
  EXPECT_EQ(oxa::value_of<int>(*graph->GetValue(GraphPart::node, 0, 0)), 3);
  EXPECT_EQ(graph->SetValue(GraphPart::node, 0, 0, OXAVariant()), S_OK);
  EXPECT_EQ(graph->GetValue(GraphPart::node, 0, 0), nullptr);
}

TEST_F(GraphAttributesTest, ValuesBelongToItemsThatAreThere) {
  add_node("a");
  for (const GraphPart part : graph_test::all_parts) {
    attribute(part, "age", DataType::Int);
  }
  const OXAVariant three = oxa::make_variant(3);
  EXPECT_EQ(graph->SetValue(GraphPart::graph, 0, 0, three), S_OK);
  EXPECT_EQ(graph->SetValue(GraphPart::graph, 0, 1, three), E_INVALIDARG);
  EXPECT_EQ(graph->SetValue(GraphPart::node, 0, 1, three), E_INVALIDARG);
  EXPECT_EQ(graph->SetValue(GraphPart::node, 1, 0, three), E_INVALIDARG);
  EXPECT_EQ(graph->SetValue(GraphPart::edge, 0, 0, three), E_INVALIDARG);
  graph->AddEdge(0, 0, 1);
  EXPECT_EQ(graph->SetValue(GraphPart::edge, 0, 0, three), S_OK);
  EXPECT_EQ(graph->GetValue(GraphPart::node, 0, 7), nullptr);
  EXPECT_EQ(graph->GetValue(GraphPart::node, 7, 0), nullptr);
  EXPECT_EQ(graph->GetValue(GraphPart{3}, 0, 0), nullptr);
}

TEST_F(GraphAttributesTest, RunningOutOfMemoryChangesNothing) {
  const oxa::Ref<IOXAPreferences> preferences = oxa::service<IOXAPreferences>(context);
  oxa_test::fail_each_allocation([&] {
    oxa::Ref<IGraph> fresh;
    try {
      fresh = make_graph(preferences);
    } catch (const std::bad_alloc&) {
      return;
    }
    std::uint64_t number = 0;
    const OXAResult added =
        fresh->AddAttribute(GraphPart::graph, "a long name of it", DataType::String, &number);
    EXPECT_EQ(fresh->GetAttribute(GraphPart::graph, 0) != nullptr, added == S_OK);
    OXAVariant text;
    text.kind = OXAVariant::Kind::Text;
    const OXAResult set = fresh->SetValue(GraphPart::graph, 0, 0, text);
    EXPECT_EQ(fresh->GetValue(GraphPart::graph, 0, 0) != nullptr, set == S_OK);
  });
}

TEST_F(GraphAttributesTest, TellsValuesOutOfTheirRange) {
  for (const char* label : {"a", "b", "c", "d"}) {
    add_node(label);
  }
  attribute(GraphPart::node, "free", DataType::Int);
  attribute(GraphPart::node, "share", DataType::Double).SetRange(0, 1);
  attribute(GraphPart::graph, "year", DataType::Short).SetRange(1900, 2000);
  set(GraphPart::node, "free", 0, oxa::make_variant(1000));
  set(GraphPart::node, "share", 0, oxa::make_variant(1.5));
  set(GraphPart::node, "share", 1, oxa::make_variant(1.0));
  set(GraphPart::node, "share", 3, oxa::make_variant(std::nan("")));
  set(GraphPart::graph, "year", 0, oxa::make_variant(short{1899}));
  const auto found = values_out_of_range(*graph);
  ASSERT_EQ(found.size(), 2U);
  EXPECT_STREQ(found[0].description->Name(), "year");
  EXPECT_EQ(found[0].items, std::vector<std::uint64_t>{0});
  EXPECT_EQ(found[1].part, GraphPart::node);
  EXPECT_EQ(found[1].attribute, 1U);
  EXPECT_EQ(found[1].items, (std::vector<std::uint64_t>{0, 3}));
}

TEST_F(GraphAttributesTest, RangesOfLargeIntegersAreExact) {
  const long long limit = 1LL << 53;
  add_node("a");
  attribute(GraphPart::node, "n", DataType::LongLong).SetRange(0, static_cast<double>(limit));
  set(GraphPart::node, "n", 0, oxa::make_variant(limit));
  EXPECT_TRUE(values_out_of_range(*graph).empty());
  set(GraphPart::node, "n", 0, oxa::make_variant(limit + 1));
  EXPECT_EQ(values_out_of_range(*graph).size(), 1U);
}

TEST_F(GraphAttributesTest, TextsHaveNoRange) {
  attribute(GraphPart::graph, "t", DataType::String).SetRange(5, 6);
  set(GraphPart::graph, "t", 0, oxa::make_variant("1"));
  EXPECT_TRUE(values_out_of_range(*graph).empty());
}

}  // namespace
