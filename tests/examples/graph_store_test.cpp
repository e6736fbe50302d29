#include <graph_plugin.h>
#include <graph_store.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "support/allocations.h"

namespace {

TEST(GraphStoreTest, ALabelIsOneNode) {
  const oxa::Ref<IGraph> graph = make_graph();
  std::uint64_t first = 9;
  std::uint64_t again = 9;
  EXPECT_EQ(graph->AddNode("a", &first), S_OK);
  EXPECT_EQ(graph->AddNode("a", &again), S_FALSE);
  EXPECT_EQ(first, 0U);
  EXPECT_EQ(again, 0U);
  EXPECT_STREQ(graph->GetLabel(0), "a");
  EXPECT_EQ(graph->GetLabel(1), nullptr);
}

TEST(GraphStoreTest, RefusesEdgesThatMakeNoSense) {
  const oxa::Ref<IGraph> graph = make_graph();
  std::uint64_t node = 0;
  graph->AddNode("a", &node);
  EXPECT_EQ(graph->AddEdge(0, 1, 1), E_INVALIDARG);
  EXPECT_EQ(graph->AddEdge(0, 0, -1), E_INVALIDARG);
  EXPECT_EQ(graph->AddEdge(0, 0, std::numeric_limits<double>::quiet_NaN()), E_INVALIDARG);
  EXPECT_EQ(graph->AddEdge(0, 0, HUGE_VAL), E_INVALIDARG);
  EXPECT_EQ(graph->AddEdge(0, 0, 0), S_OK);
  EXPECT_EQ(graph->GetEdgeCount(), 1U);
  EXPECT_EQ(graph->GetEdge(1, nullptr), E_INVALIDARG);
}

TEST(GraphStoreTest, AColumnIsReplacedInItsPlace) {
  const oxa::Ref<IGraph> graph = make_graph();
  std::uint64_t node = 0;
  graph->AddNode("a", &node);
  const double one = 1;
  const double none = 0;
  EXPECT_EQ(graph->SetColumn("c", GraphColumnKind::measure, &one, 1), S_OK);
  EXPECT_EQ(graph->SetColumn("c", GraphColumnKind::category, &none, 1), S_OK);
  GraphColumnKind kind{};
  const double* values = nullptr;
  EXPECT_EQ(graph->GetColumn("c", &kind, &values), S_OK);
  EXPECT_EQ(kind, GraphColumnKind::category);
  EXPECT_EQ(values[0], 0);
  EXPECT_STREQ(graph->GetColumnName(0), "c");
  EXPECT_EQ(graph->GetColumnName(1), nullptr);
}

TEST(GraphStoreTest, AColumnNeedsAValuePerNode) {
  const oxa::Ref<IGraph> graph = make_graph();
  const double one = 1;
  EXPECT_EQ(graph->SetColumn("c", GraphColumnKind::measure, &one, 1), E_INVALIDARG);
  EXPECT_EQ(graph->SetColumn("c", GraphColumnKind::measure, nullptr, 0), S_OK);
  GraphColumnKind kind{};
  const double* values = nullptr;
  EXPECT_EQ(graph->GetColumn("d", &kind, &values), E_NOTFOUND);
}

// A class number far beyond the number of nodes once made the summary ask for as many groups.
TEST(GraphStoreTest, ACategoryIsTheNumberOfAClass) {
  const oxa::Ref<IGraph> graph = make_graph();
  std::uint64_t node = 0;
  graph->AddNode("a", &node);
  graph->AddNode("b", &node);
  for (const double wrong : {2.0, 1e18, -1.0, 0.5, std::numeric_limits<double>::infinity()}) {
    const double values[] = {0, wrong};
    EXPECT_EQ(graph->SetColumn("c", GraphColumnKind::category, values, 2), E_INVALIDARG) << wrong;
    EXPECT_EQ(graph->GetColumnName(0), nullptr);
  }
  const double values[] = {std::numeric_limits<double>::quiet_NaN(), 1};
  EXPECT_EQ(graph->SetColumn("c", GraphColumnKind::category, values, 2), S_OK);
}

TEST(GraphStoreTest, ANewNodeHasNoValueInExistingColumns) {
  const oxa::Ref<IGraph> graph = make_graph();
  graph->SetColumn("c", GraphColumnKind::measure, nullptr, 0);
  std::uint64_t node = 0;
  graph->AddNode("a", &node);
  GraphColumnKind kind{};
  const double* values = nullptr;
  graph->GetColumn("c", &kind, &values);
  EXPECT_TRUE(std::isnan(values[0]));
}

TEST(GraphStoreTest, RunningOutOfMemoryAddsNothing) {
  oxa_test::fail_each_allocation([] {
    oxa::Ref<IGraph> graph;
    try {
      graph = make_graph();
    } catch (const std::bad_alloc&) {
      return;
    }
    std::uint64_t node = 0;
    const OXAResult result = graph->AddNode("a label that needs memory of its own", &node);
    EXPECT_EQ(graph->GetNodeCount(), result == S_OK ? 1U : 0U);
    EXPECT_TRUE(result == S_OK || result == E_OUTOFMEMORY);
    const double value = 1;
    const char* const name = "a column whose name needs memory of its own";
    const OXAResult set =
        graph->SetColumn(name, GraphColumnKind::measure, &value, graph->GetNodeCount());
    EXPECT_EQ(graph->GetColumnName(0) != nullptr, set == S_OK);
    EXPECT_EQ(graph::find_column(*graph, name) != nullptr, set == S_OK);
  });
}

}  // namespace
