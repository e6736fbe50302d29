#include "graphml_host.h"
#include "support/allocations.h"
#include "support/capture.h"

namespace {

class GraphmlReaderTest : public graph_test::GraphmlTest {
 protected:
  std::string labels() {
    std::string text;
    for (std::uint64_t node = 0; node < graph->GetNodeCount(); ++node) {
      text += (node > 0 ? "," : "") + std::string(graph->GetLabel(node));
    }
    return text;
  }
};

TEST_F(GraphmlReaderTest, ReadsEverything) {
  ASSERT_EQ(read_graphml(graph_test::full_file), S_OK) << error->text;
  EXPECT_EQ(dump(),
            "graph title type 1\n"
            "graph note type 1\n"
            "node age type 4 default 30 from 0 to 150 // Jahre & \u00DCber\n"
            "node mood type 12 good=1 bad=2\n"
            "node note type 1\n"
            "edge note type 1\n"
            "graph title=Ein <Titel> \"\u20AC\"\n"
            "node a age=7 mood=2\n"
            "node b\n"
            "node c\n"
            "edge a - b 0.5\n"
            "edge b - a 2 note= a note \n"
            "column rank kind 0 NaN NaN 1.5\n");
}

TEST_F(GraphmlReaderTest, AByteOrderMarkIsPassedOver) {
  EXPECT_EQ(
      read_graphml("\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8'?>\r\n<graphml>\r\n<graph/>"
                   "\r\n</graphml>\r\n"),
      S_OK);
}

TEST_F(GraphmlReaderTest, ReadsValuesOfEachType) {
  const struct {
    const char* type;
    const char* text;
    const char* node;
  } table[] = {
      {"boolean", "True", "node a v=true"},
      {"int", " -3\n", "node a v=-3"},
      {"long", "9223372036854775807", "node a v=9223372036854775807"},
      {"float", "1e3", "node a v=1000"},
      {"double", "-INF", "node a v=-INF"},
      {"string", "", "node a v="},
      {"string", "  ", "node a v=  "},
      {"string", "\xC3\x9C/?>x", "node a v=\xC3\x9C/?>x"},
      {"string", "/a</data><data key=\"k\"></data><data key='k'>", "-"},
      {"string", "&amp;amp;&amp;lt;&apos;", "node a v=&amp;&lt;'"},
      {"string", "1<!-- & -->2<?php ?>3", "node a v=123"},
      {"string", "a\r\nb\rc&#13;", "node a v=a\nb\nc\r"},
      {"string", "\\", "node a v=\\"},
  };
  for (const auto& row : table) {
    const OXAResult result = read_parts(
        "<key id='k' for='node' attr.name='v' attr.type='" + std::string(row.type) + "'/>",
        "<node id='a'><data key='k'>" + std::string(row.text) + "</data></node>");
    EXPECT_EQ(result == S_OK, *row.node != '-') << row.text << ": " << error->text;
    if (result == S_OK) {
      EXPECT_NE(dump().find(std::string(row.node) + "\n"), std::string::npos) << dump();
    }
  }
}

TEST_F(GraphmlReaderTest, IdsAreLabelsAsTheyAre) {
  read_parts("", R"(<node id="a&amp;&quot;b"/><node id='say "\"'/><node id=""/>)"
                 "<node id='x\n\ty&#10;'/><node id='\xC3\xA9\xE6\xBC\xA2'/><node id='a>b/'/><node "
                 "id='c:\\'/>");
  EXPECT_EQ(error->text, "");
  EXPECT_EQ(labels(), "a&\"b,say \"\\\",,x  y\n,\xC3\xA9\xE6\xBC\xA2,a>b/,c:\\");
}

TEST_F(GraphmlReaderTest, NumbersOfNodesGiveWayToTheirLabels) {
  const struct {
    const char* ids[2];
    const char* names[2];
    const char* labels;
  } table[] = {
      {{"n0", "n1"}, {"Ann", "Bob"}, "Ann,Bob"}, {{"0", "17"}, {"Ann", "Bob"}, "Ann,Bob"},
      {{"n0", "n1"}, {"Ann", "Ann"}, "n0,n1"},   {{"n0", "n1"}, {"Ann", nullptr}, "n0,n1"},
      {{"n0", "x"}, {"Ann", "Bob"}, "n0,x"},     {{"n0", "n"}, {"Ann", "Bob"}, "n0,n"},
  };
  for (const char* name : {"name", "label"}) {
    for (const auto& row : table) {
      std::string nodes;
      for (int node = 0; node < 2; ++node) {
        nodes += "<node id='" + std::string(row.ids[node]) + "'>" +
                 (row.names[node] ? "<data key='k'>" + std::string(row.names[node]) + "</data>"
                                  : std::string()) +
                 "</node>";
      }
      EXPECT_EQ(read_parts("<key id='k' for='node' attr.name='" + std::string(name) +
                               "' attr.type='string'/>",
                           nodes),
                S_OK);
      EXPECT_EQ(labels(), row.labels);
    }
  }
}

TEST_F(GraphmlReaderTest, LabelsComeBeforeNames) {
  read_parts(
      "<key id='n' for='node' attr.name='name' attr.type='string'/>"
      "<key id='l' for='node' attr.name='label' attr.type='string'/>",
      "<node id='0'><data key='n'>name</data><data key='l'>label</data></node>"
      "<edge source='0' target='0'/>");
  EXPECT_EQ(dump(),
            "node name type 1\nnode label type 1\ngraph\nnode label name=name label=label\n"
            "edge label - label 1\n");
}

// So it does for the next to come: the finding is up to the program.
TEST_F(GraphmlReaderTest, AValueOutOfItsRangeIsRead) {
  EXPECT_EQ(read_parts("<key id='k' for='node' attr.name='v' attr.type='int' oxa:max='5'/>",
                       "<node id='a'><data key='k'>6</data></node>"),
            S_OK);
  EXPECT_EQ(dump(), "node v type 4 from -2147483648 to 5\ngraph\nnode a v=6\n");
}

TEST_F(GraphmlReaderTest, ExactTypesAreKinds) {
  read_parts(
      "<key id='a' for='graph' attr.name='a' attr.type='int' oxa:type='unsigned short'/>"
      "<key id='b' for='graph' attr.name='b' attr.type='string' oxa:type='hexadecimal'/>"
      "<key id='c' for='graph' attr.name='c' attr.type='string' oxa:type='nobody::declares'/>"
      "<key id='d' for='graph' attr.name='d'/>"
      "<key id='e' for='graph' attr.type='int'/>",
      "");
  EXPECT_EQ(dump(),
            "graph a type 7\ngraph b type 14\ngraph c type 1\ngraph d type 1\ngraph e type 4\n"
            "graph\n");
}

TEST_F(GraphmlReaderTest, EdgesMayBeUndirectedOneByOne) {
  EXPECT_EQ(read_graphml("<graphml><graph edgedefault='directed'><node id='a'/>"
                         "<edge source='a' target='a' directed='false'/></graph></graphml>"),
            S_OK);
  EXPECT_EQ(graph->GetEdgeCount(), 1U);
}

TEST_F(GraphmlReaderTest, GoesOnWithAGraphThatIsThere) {
  add_node("old");
  const std::string text =
      "<graphml><key id='k' for='node' attr.name='v' attr.type='int'/>"
      "<graph><node id='new'><data key='k'>1</data></node><node id='old'/></graph></graphml>";
  auto& reader = named<IGraphReader>("GraphML");
  EXPECT_EQ(reader.Read(text.data(), text.size(), graph.get(), nullptr), S_OK);
  EXPECT_EQ(reader.Read(text.data(), text.size(), graph.get(), nullptr), S_OK);
  EXPECT_EQ(dump(), "node v type 4\ngraph\nnode old\nnode new v=1\n");
}

TEST_F(GraphmlReaderTest, RunningOutOfMemoryIsTold) {
  const std::string text = graph_test::full_file;
  auto& reader = named<IGraphReader>("GraphML");
  const auto preferences = oxa::service<IOXAPreferences>(context);
  oxa_test::written_by([&] {
    const auto failed = oxa_test::fail_each_allocation([&] {
      try {
        const auto fresh = make_graph(preferences);
        const OXAResult result = reader.Read(text.data(), text.size(), fresh.get(), nullptr);
        EXPECT_TRUE(result == S_OK || result == E_OUTOFMEMORY) << result;
      } catch (const std::bad_alloc&) {
      }
    });
    EXPECT_GT(failed, 100U);
  });
}

TEST_F(GraphmlReaderTest, StopsWhenAskedWithoutAText) {
  std::string text = "<graphml><graph>";
  for (int node = 0; node < 10000; ++node) {
    text += "<node id='" + std::to_string(node) + "'/>";
  }
  progress->stop_at = 1;
  EXPECT_EQ(read_graphml(text + "</graph></graphml>"), E_FAIL);
  EXPECT_EQ(error->text, "");
  EXPECT_LT(graph->GetNodeCount(), 5000U);
}

TEST_F(GraphmlReaderTest, NeedsAGraphThatKeepsAttributes) {
  const std::string text =
      "<graphml><key id='k' for='node' attr.name='v' attr.type='int'/><graph/></graphml>";
  graph = make_graph();
  auto& reader = named<IGraphReader>("GraphML");
  EXPECT_EQ(reader.Read(text.data(), text.size(), graph.get(), error.get()), E_FAIL);
  EXPECT_EQ(error->text, "the program keeps no attributes; restart it");
  EXPECT_EQ(reader.Read(nullptr, 0, graph.get(), nullptr), E_INVALIDARG);
}

}  // namespace
