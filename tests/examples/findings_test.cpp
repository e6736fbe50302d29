#include <cells.h>
#include <checks.h>
#include <findings.h>
#include <graph_values.h>
#include <text.h>

#include <limits>
#include <map>
#include <random>

#include "graph_host.h"
#include "support/capture.h"

namespace {

namespace column = graph::finding_column;

using Edges = std::vector<std::pair<int, int>>;

// A graph of so many nodes, called by their numbers.
oxa::Ref<IGraph> graph_of(int nodes, const Edges& edges) {
  oxa::Ref<IGraph> graph = make_graph();
  std::uint64_t node = 0;
  for (int number = 0; number < nodes; ++number) {
    graph->AddNode(std::to_string(number).c_str(), &node);
  }
  for (const auto& [source, target] : edges) {
    graph->AddEdge(static_cast<std::uint64_t>(source), static_cast<std::uint64_t>(target), 1);
  }
  return graph;
}

class FindingsTest : public testing::Test {
 protected:
  FindingsTest() {
    OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
    manager = prepare_findings(context.get());
    settings = std::make_unique<Settings>(context.get());
  }

  void check(int nodes, const Edges& edges) {
    run_checks(*graph_of(nodes, edges), *settings, *manager);
  }

  void set(const char* path, const char* value) { settings->take({{path, value, "test"}}); }

  IOXADiagnosticCategory& category(const char* name) { return oxa::category(*manager, name); }

  // The rows of a category as "where count", without the count if there is none.
  std::vector<std::string> rows(const char* name) {
    std::vector<std::string> texts;
    for (IOXADiagnostic* row : oxa::diagnostics(category(name))) {
      const OXAVariant count = row->GetValue(column::count);
      texts.push_back(
          graph::value_text(row->GetValue(column::where)) +
          (count.kind == OXAVariant::Kind::Nothing ? "" : " " + graph::value_text(count)));
    }
    return texts;
  }

  std::string counts() { return count_findings(*manager, *settings); }

  std::string table() {
    return oxa_test::written_by([&] { print_findings(*manager, *settings); }).out;
  }

  oxa::Ref<IOXAContext> context;
  oxa::Ref<IOXADiagnosticsManager> manager;
  std::unique_ptr<Settings> settings;
};

using Rows = std::vector<std::string>;

TEST_F(FindingsTest, ChecksFindWhatTheyLookFor) {
  const struct {
    int nodes;
    Edges edges;
    Rows loops;
    Rows parallel;
    Rows isolated;
  } cases[] = {{0, {}, {}, {}, {}},
               {2, {{0, 1}}, {}, {}, {}},
               {1, {}, {}, {}, {"0"}},
               {2, {{0, 0}, {1, 0}, {0, 0}, {1, 1}}, {"0 2", "1 1"}, {}, {}},
               {2, {{1, 1}, {1, 1}}, {"1 2"}, {}, {"0", "1"}},
               {3, {{1, 0}, {0, 1}, {1, 2}}, {}, {"0 - 1 2"}, {}},
               {4, {{2, 3}, {0, 3}, {3, 2}, {3, 0}, {2, 3}}, {}, {"0 - 3 2", "2 - 3 3"}, {"1"}}};
  for (const auto& each : cases) {
    manager->Clear();
    check(each.nodes, each.edges);
    EXPECT_EQ(rows("self loops"), each.loops);
    EXPECT_EQ(rows("parallel edges"), each.parallel);
    EXPECT_EQ(rows("isolated nodes"), each.isolated);
  }
}

TEST_F(FindingsTest, ParallelEdgesAreThoseThatAPlainCountFinds) {
  std::mt19937 random(7);
  for (int round = 0; round < 50; ++round) {
    Edges edges;
    std::map<std::pair<int, int>, int> joined;
    for (int edge = 0; edge < 40; ++edge) {
      const int source = static_cast<int>(random() % 9);
      const int target = static_cast<int>(random() % 9);
      edges.emplace_back(source, target);
      joined[std::minmax(source, target)] += source != target ? 1 : 0;
    }
    std::multiset<std::string> expected;
    for (const auto& [ends, count] : joined) {
      if (count > 1) {
        expected.insert(std::to_string(ends.first) + " - " + std::to_string(ends.second) + " " +
                        std::to_string(count));
      }
    }
    manager->Clear();
    check(9, edges);
    const Rows found = rows("parallel edges");
    EXPECT_EQ(std::multiset<std::string>(found.begin(), found.end()), expected);
  }
}

TEST_F(FindingsTest, ColumnsHaveHeadersAndOperations) {
  const char* const headers[] = {"Severity", "Finding", "Where", "Count", "Value"};
  ASSERT_EQ(manager->GetColumnCount(), 5);
  for (int index = 0; index < 5; ++index) {
    char* header = nullptr;
    manager->GetColumnHeader(index, &header);
    EXPECT_STREQ(header, headers[index]);
  }
  IOXADiagnosticsManager::Operation operation{};
  manager->GetColumnOperation(column::count, operation);
  EXPECT_EQ(operation, graph::finding_operation::count);
}

TEST_F(FindingsTest, ACheckRegistersOneTypeForAllItsRows) {
  check(3, {{0, 0}, {1, 1}, {2, 2}});
  std::set<int> types;
  for (IOXADiagnostic* row : oxa::diagnostics(category("self loops"))) {
    EXPECT_STREQ(row->GetTerseString(), "self loop");
    EXPECT_STREQ(row->GetVerboseString(), "an edge from a node to itself");
    EXPECT_EQ(row->GetSeverity(), graph::severity::warning);
    types.insert(row->GetDiagnostic());
  }
  EXPECT_EQ(types.size(), 1U);
  char* none = nullptr;
  EXPECT_EQ(manager->GetDiagnosticToolTip(static_cast<int>(all_checks().size()), &none), S_FALSE);
}

TEST_F(FindingsTest, ChecksThatAreOffFindNothing) {
  set("checks::self-loops", "false");
  check(2, {{0, 0}});
  EXPECT_EQ(counts(), "2 isolated nodes");
}

TEST_F(FindingsTest, CountsAddUpWhatTheRowsCount) {
  EXPECT_EQ(counts(), "");
  check(4, {{0, 0}, {0, 0}, {1, 1}, {0, 1}, {1, 0}, {2, 0}});
  EXPECT_EQ(counts(), "3 self loops, 2 parallel edges, 1 isolated node");
}

TEST_F(FindingsTest, LesserSeveritiesAreLeftOut) {
  set(setting::least_severity, "warning");
  check(3, {{0, 0}});
  EXPECT_EQ(counts(), "1 self loop");
  EXPECT_EQ(table().find("isolated"), std::string::npos);
  set(setting::least_severity, "error");
  EXPECT_EQ(counts(), "");
  EXPECT_EQ(table(), "");
}

TEST_F(FindingsTest, TheTableLinesUpAndLeavesOutEmptyColumns) {
  check(3, {{0, 0}, {1, 0}, {0, 1}});
  EXPECT_EQ(table(),
            "CATEGORY        SEVERITY  FINDING        WHERE  COUNT\n"
            "self loops      warning   self loop      0      1\n"
            "parallel edges  warning   parallel edge  0 - 1  2\n"
            "isolated nodes  note      isolated node  2      -\n"
            "\n"
            "self loop      an edge from a node to itself\n"
            "parallel edge  one of several edges that join the same two nodes\n"
            "isolated node  a node that no edge joins to another one\n"
            "\n");
}

TEST_F(FindingsTest, RowsBeyondTheMostAreCounted) {
  set(setting::most_rows, "2");
  check(5, {});
  EXPECT_EQ(table(),
            "CATEGORY        SEVERITY  FINDING        WHERE\n"
            "isolated nodes  note      isolated node  0\n"
            "                note      isolated node  1\n"
            "and 3 more\n"
            "\n"
            "isolated node  a node that no edge joins to another one\n"
            "\n");
  EXPECT_EQ(counts(), "5 isolated nodes");
}

TEST_F(FindingsTest, AsManyRowsAsTheMostAreAllShown) {
  set(setting::most_rows, "5");
  check(5, {});
  EXPECT_EQ(table().find("more"), std::string::npos);
}

TEST_F(FindingsTest, ReportsOfOthersAreShownToo) {
  graph::FindingReport report(*manager,
                              {"theirs", "odd thing", "told\nby others", graph::severity::error});
  report.add("a\nb", {}, oxa::make_variant(0.5));
  EXPECT_EQ(table(),
            "CATEGORY  SEVERITY  FINDING    WHERE  VALUE\n"
            "theirs    error     odd thing  a b    0.5\n"
            "\n"
            "odd thing  told by others\n"
            "\n");
  EXPECT_EQ(counts(), "1 odd thing");
}

TEST_F(FindingsTest, RowsThatSayNothingAreNotesWithoutMeaning) {
  oxa::add_diagnostic(category("theirs"), oxa::create_diagnostic(category("theirs")));
  EXPECT_EQ(table(), "CATEGORY  SEVERITY\ntheirs    note\n\n");
  EXPECT_EQ(counts(), "1 other finding");
}

TEST_F(FindingsTest, UnknownSeveritiesAreShownByTheirNumbers) {
  graph::FindingReport(*manager, {"theirs", "thing", "", OXA::Diagnostics::Severity{9}}).add("a");
  EXPECT_NE(table().find("theirs    9         thing    a"), std::string::npos) << table();
}

// The library leaves the one reference to a subcategory with whoever makes it.
class SubcategoriesTest : public FindingsTest {
 protected:
  ~SubcategoriesTest() override {
    settings.reset();
    manager.reset();
    context.reset();
    for (IOXADiagnosticCategory* each : made) {
      each->ReleaseReference();
    }
  }

  IOXADiagnosticCategory& make(IOXADiagnosticCategory& parent, const char* name) {
    made.push_back(&oxa::category(parent, name));
    return *made.back();
  }

  static void add(IOXADiagnosticCategory& category, const char* where) {
    oxa::Ref<IOXADiagnostic> row = oxa::create_diagnostic(category);
    oxa::set_value(*row, column::where, oxa::make_variant(where));
    oxa::add_diagnostic(category, std::move(row));
  }

  std::vector<IOXADiagnosticCategory*> made;
};

TEST_F(SubcategoriesTest, FollowTheirCategoryAndBearItsName) {
  IOXADiagnosticCategory& one = category("one");
  add(category("two"), "d");
  add(make(make(one, "inner"), "innermost"), "b");
  add(make(one, "last"), "c");
  add(one, "a");
  EXPECT_EQ(table(),
            "CATEGORY               SEVERITY  WHERE\n"
            "one                    note      a\n"
            "one: inner: innermost  note      b\n"
            "one: last              note      c\n"
            "two                    note      d\n"
            "\n");
  EXPECT_EQ(counts(), "4 other findings");
}

TEST_F(FindingsTest, ValuesOutOfTheirRangeAreNamed) {
  const auto graph = make_graph(oxa::service<IOXAPreferences>(context));
  std::uint64_t number = 0;
  for (const char* label : {"Ann", "Bob"}) {
    graph->AddNode(label, &number);
  }
  graph->AddEdge(0, 1, 1);
  for (const GraphPart part : {GraphPart::graph, GraphPart::node, GraphPart::edge}) {
    graph->AddAttribute(part, "age", OXA::Property::DataType::Int, &number);
    graph->GetAttribute(part, 0)->SetRange(0, 120);
    graph->SetValue(part, 0, 0, oxa::make_variant(121));
  }
  graph->SetValue(GraphPart::node, 0, 1, oxa::make_variant(120));
  run_checks(*graph, *settings, *manager);
  EXPECT_EQ(rows("values out of range"), (Rows{"the graph: age", "Ann: age", "Ann - Bob: age"}));
  EXPECT_EQ(counts(), "3 out-of-range values");
  IOXADiagnostic* row = nullptr;
  category("values out of range").GetFirst(&row);
  EXPECT_EQ(oxa::value_of<int>(row->GetValue(column::value)), 121);
}

TEST(FindingReportTest, WhatAHostHasNoColumnsForIsLeftOut) {
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  const auto manager = oxa::service<IOXADiagnosticsManager>(context);
  graph::FindingReport(*manager, {"theirs", "odd thing", "", graph::severity::note}).add("a", 3);
  IOXADiagnostic* row = nullptr;
  EXPECT_EQ(oxa::category(*manager, "theirs").GetFirst(&row), S_OK);
  EXPECT_STREQ(row->GetTerseString(), "odd thing");
}

TEST(CellsTest, EveryKindHasATextAndACount) {
  const struct {
    OXAVariant cell;
    const char* text;
    unsigned long long count;
  } cases[] = {
      {{}, "", 1},
      {oxa::make_variant(true), "true", 1},
      {oxa::make_variant(false), "false", 1},
      {oxa::make_variant('A'), "65", 65},
      {oxa::make_variant(static_cast<unsigned char>(200)), "200", 200},
      {oxa::make_variant(static_cast<short>(-3)), "-3", 1},
      {oxa::make_variant(static_cast<unsigned short>(60000)), "60000", 60000},
      {oxa::make_variant(0), "0", 0},
      {oxa::make_variant(7U), "7", 7},
      {oxa::make_variant(std::numeric_limits<long long>::min()), "-9223372036854775808", 1},
      {oxa::make_variant(std::numeric_limits<unsigned long long>::max()), "18446744073709551615",
       std::numeric_limits<unsigned long long>::max()},
      {oxa::make_variant(0.1F), "0.1", 1},
      {oxa::make_variant(2.5), "2.5", 1},
      {oxa::make_variant("Zoë"), "Zoë", 1}};
  for (const auto& each : cases) {
    EXPECT_EQ(graph::value_text(each.cell), each.text);
    EXPECT_EQ(cell_count(each.cell), each.count) << each.text;
  }
}

}  // namespace
