#include "graph_host.h"

namespace {

class EdgeListReaderTest : public graph_test::GraphTest {
 protected:
  // Edges as text: "a b 1; c d 2".
  std::string edges() {
    std::string text;
    GraphEdge edge{};
    for (std::uint64_t index = 0; graph->GetEdge(index, &edge) >= 0; ++index) {
      char weight[32];
      std::snprintf(weight, sizeof weight, " %g", edge.weight);
      text += (index > 0 ? "; " : "") + std::string(graph->GetLabel(edge.source)) + "," +
              graph->GetLabel(edge.target) + weight;
    }
    return text;
  }
};

TEST_F(EdgeListReaderTest, ReadsWellFormedText) {
  const struct {
    const char* text;
    const char* edges;
  } table[] = {
      {"", ""},
      {"\n\n  \t\n", ""},
      {"# nothing\n", ""},
      {"a b\n", "a,b 1"},
      {"a b", "a,b 1"},
      {"a b 2.5\r\nb c 1e3\r\n", "a,b 2.5; b,c 1000"},
      {"\ta\t \tb  0 \t", "a,b 0"},
      {"a b 3 # why", "a,b 3"},
      {"C# a#b\n", "C#,a#b 1"},
      {"\"x y\" \"# z\" 4\n", "x y,# z 4"},
      {R"("say \"hi\"" "back\\slash")", R"(say "hi",back\slash 1)"},
      {"\"\" b", ",b 1"},
      {"\xEF\xBB\xBF\xC3\x89ponine \xE6\xBC\xA2\n", "\xC3\x89ponine,\xE6\xBC\xA2 1"},
      {"a a\na b\nb a\n", "a,a 1; a,b 1; b,a 1"},
  };
  for (const auto& row : table) {
    graph = make_graph();
    EXPECT_EQ(read(row.text), S_OK) << row.text;
    EXPECT_EQ(edges(), row.edges) << row.text;
  }
}

TEST_F(EdgeListReaderTest, NamesTheLineOfMalformedText) {
  const struct {
    std::string text;
    const char* error;
  } table[] = {
      {"a b\n\n# x\nc\n",
       "line 4 has one field where source and target are expected; write two labels separated by "
       "blanks"},
      {"a b 1 2",
       "line 1 has 4 fields where source, target and weight are expected; quote labels that hold "
       "blanks"},
      {"a b\r\na b x\r\n",
       "line 2 has the weight \"x\", which is not a finite number; write a number such as 2.5, or "
       "quote labels that hold blanks"},
      {"a b nan",
       "line 1 has the weight \"nan\", which is not a finite number; write a number such as 2.5, "
       "or quote labels that hold blanks"},
      {"a b inf",
       "line 1 has the weight \"inf\", which is not a finite number; write a number such as 2.5, "
       "or quote labels that hold blanks"},
      {"a b 1x",
       "line 1 has the weight \"1x\", which is not a finite number; write a number such as 2.5, or "
       "quote labels that hold blanks"},
      {"a b 1e999", "line 1 has the weight \"1e999\", which is out of range; scale the weights"},
      {"a b -2", "line 1 has the negative weight -2; write a weight of 0 or more"},
      {"\"a b", "line 1 has a label whose quote is not closed; end it with \""},
      {"\"a\\", "line 1 has a label whose quote is not closed; end it with \""},
      {"\"a\"b c",
       "line 1 has text right behind a closing quote; put a blank there, or \\\" for a quote "
       "inside "
       "the label"},
      {"a b\n\xE9 b", "line 2 is not UTF-8 text; save the file as UTF-8"},
      {std::string("a\0 b", 4), "line 1 is not UTF-8 text; save the file as UTF-8"},
  };
  for (const auto& row : table) {
    graph = make_graph();
    EXPECT_EQ(read(row.text), E_INVALIDDATA) << row.text;
    EXPECT_EQ(error->text, row.error);
  }
}

TEST_F(EdgeListReaderTest, RefusesNullArguments) {
  IGraphReader& reader = named<IGraphReader>("edge list");
  EXPECT_EQ(reader.Read(nullptr, 0, graph.get(), nullptr), E_INVALIDARG);
  EXPECT_EQ(reader.Read("a b", 3, nullptr, nullptr), E_INVALIDARG);
  EXPECT_EQ(reader.Read("a", 1, graph.get(), nullptr), E_INVALIDDATA);
}

TEST_F(EdgeListReaderTest, StopsWhenAskedWithoutAText) {
  std::string text;
  for (int line = 0; line < 10000; ++line) {
    text += "a b\n";
  }
  progress->stop_at = 1;
  EXPECT_EQ(read(text), E_FAIL);
  EXPECT_EQ(error->text, "");
  EXPECT_LT(graph->GetEdgeCount(), 5000U);
}

}  // namespace
