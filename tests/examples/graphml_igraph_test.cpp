// igraph's own reader and writer of GraphML at the other end.
#include <igraph.h>

#include <cstdio>
#include <cstdlib>

#include "graphml_host.h"

using OXA::Property::DataType;

namespace {

class GraphmlIgraphTest : public graph_test::GraphmlTest {
 protected:
  GraphmlIgraphTest() : table_(igraph_set_attribute_table(&igraph_cattribute_table)) {}
  ~GraphmlIgraphTest() override {
    if (there_) {
      igraph_destroy(&peer_);
    }
    igraph_set_attribute_table(table_);
  }

  void igraph_reads(std::string text) {
    std::FILE* file = fmemopen(text.data(), text.size(), "r");
    there_ = igraph_read_graph_graphml(&peer_, file, 0) == IGRAPH_SUCCESS;
    std::fclose(file);
    ASSERT_TRUE(there_) << text;
  }

  std::string igraph_writes() {
    char* bytes = nullptr;
    std::size_t size = 0;
    std::FILE* file = open_memstream(&bytes, &size);
    igraph_write_graph_graphml(&peer_, file, 1);
    std::fclose(file);
    std::string text(bytes, size);
    std::free(bytes);
    return text;
  }

  void make_peer(igraph_integer_t nodes) {
    igraph_empty(&peer_, nodes, IGRAPH_UNDIRECTED);
    there_ = true;
  }

  igraph_t peer_;
  bool there_ = false;

 private:
  igraph_attribute_table_t* table_;
};

TEST_F(GraphmlIgraphTest, ReadsWhatIsWritten) {
  // Of an & in an id igraph makes "&#38;".
  for (const char* label : {"a", "b <c>", "\u00C9ponine \"x\""}) {
    add_node(label);
  }
  graph->AddEdge(0, 1, 0.1);
  graph->AddEdge(2, 2, 3);
  IOXAProperty& age = attribute(GraphPart::node, "age", DataType::Short);
  age.SetRange(0, 150);
  age.ViewHints()->SetTooltip("years");
  set(GraphPart::node, "age", 1, oxa::make_variant(short{42}));
  attribute(GraphPart::node, "mood", DataType::Enum).AddAttribute("good", "1");
  set(GraphPart::node, "mood", 2, oxa::make_variant("1"));
  attribute(GraphPart::edge, "old", DataType::Bool);
  set(GraphPart::edge, "old", 1, oxa::make_variant(true));
  attribute(GraphPart::edge, "count", DataType::LongLong);
  set(GraphPart::edge, "count", 0, oxa::make_variant(1LL << 40));
  attribute(GraphPart::graph, "title", DataType::String);
  set(GraphPart::graph, "title", 0, oxa::make_variant(" <T> \u00FC"));
  const double ranks[] = {0.1 + 0.2, -1e300, HUGE_VAL};
  graph->SetColumn("rank", GraphColumnKind::measure, ranks, 3);

  igraph_reads(write_graphml());
  ASSERT_EQ(igraph_vcount(&peer_), 3);
  ASSERT_EQ(igraph_ecount(&peer_), 2);
  EXPECT_FALSE(igraph_is_directed(&peer_));
  for (igraph_integer_t node = 0; node < 3; ++node) {
    EXPECT_STREQ(VAS(&peer_, "id", node), graph->GetLabel(static_cast<std::uint64_t>(node)));
    EXPECT_EQ(VAN(&peer_, "rank", node), ranks[node]);
  }
  EXPECT_EQ(IGRAPH_FROM(&peer_, 1), 2);
  EXPECT_EQ(IGRAPH_TO(&peer_, 1), 2);
  EXPECT_EQ(EAN(&peer_, "weight", 0), 0.1);
  EXPECT_EQ(VAN(&peer_, "age", 1), 42);
  EXPECT_STREQ(VAS(&peer_, "mood", 2), "1");
  EXPECT_TRUE(EAB(&peer_, "old", 1));
  EXPECT_EQ(EAN(&peer_, "count", 0), static_cast<double>(1LL << 40));
  EXPECT_STREQ(GAS(&peer_, "title"), " <T> \u00FC");
}

TEST_F(GraphmlIgraphTest, WritesWhatIsRead) {
  make_peer(2);
  igraph_add_edge(&peer_, 0, 1);
  igraph_add_edge(&peer_, 1, 1);
  SETVAS(&peer_, "name", 0, "a <&> \"b\"");
  SETVAS(&peer_, "name", 1, "\u00DC\n2");
  SETVAN(&peer_, "age", 0, 0.1);
  SETVAB(&peer_, "old", 1, true);
  SETEAN(&peer_, "weight", 0, 2.5);
  SETEAN(&peer_, "weight", 1, 0);
  SETGAS(&peer_, "title", "T");
  ASSERT_EQ(read_graphml(igraph_writes()), S_OK) << error->text;
  EXPECT_EQ(dump(),
            "graph title type 1\n"
            "node name type 1\n"
            "node age type 11\n"
            "node old type 0\n"
            "graph title=T\n"
            "node a <&> \"b\" name=a <&> \"b\" age=0.1 old=false\n"
            "node \u00DC\n2 name=\u00DC\n2 old=true\n"
            "edge a <&> \"b\" - \u00DC\n2 2.5\n"
            "edge \u00DC\n2 - \u00DC\n2 0\n");
}

TEST_F(GraphmlIgraphTest, DirectedFilesAreRefused) {
  igraph_empty(&peer_, 2, IGRAPH_DIRECTED);
  there_ = true;
  igraph_add_edge(&peer_, 0, 1);
  EXPECT_EQ(read_graphml(igraph_writes()), E_INVALIDDATA);
  EXPECT_NE(error->text.find("has a directed edge"), std::string::npos) << error->text;
}

}  // namespace
