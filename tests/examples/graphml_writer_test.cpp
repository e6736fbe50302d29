#include <record_types.h>

#include <cmath>
#include <cstring>
#include <fstream>
#include <limits>
#include <random>
#include <sstream>

#include "graphml_host.h"
#include "support/allocations.h"
#include "support/capture.h"

using OXA::Property::DataType;

namespace {

// Makes up graphs with attributes of all kinds: the same for the same seed.
class Inventor {
 public:
  explicit Inventor(unsigned seed) : random_(seed) {}

  std::uint64_t below(std::uint64_t limit) { return random_() % limit; }

  std::string text() {
    static constexpr const char* pieces[] = {
        "a",  "Z", "7",   " ",      "\n", "\t", "\r",   "<",      ">",  "&",          "\"",  "'",
        "\\", "/", "]]>", "\u00DC", "?",  "!",  "&lt;", "&amp;a", "--", "\U0001F600", "<b>", "="};
    std::string text;
    for (std::uint64_t count = below(6); count > 0; --count) {
      text += pieces[below(std::size(pieces))];
    }
    return text;
  }

  double real() {
    switch (below(6)) {
      case 0:
        return std::numeric_limits<double>::infinity();
      case 1:
        return std::nan("");
      case 2:
        return -static_cast<double>(below(1000));
      default: {
        double number = 0;
        const std::uint64_t bits = random_();
        std::memcpy(&number, &bits, sizeof number);
        return std::isfinite(number) ? number : 0.1;
      }
    }
  }

  OXAVariant value(DataType type) {
    switch (type) {
      case DataType::Bool:
        return oxa::make_variant(below(2) == 0);
      case DataType::Char:
        return oxa::make_variant(static_cast<char>(random_()));
      case DataType::UnsignedChar:
        return oxa::make_variant(static_cast<unsigned char>(random_()));
      case DataType::Short:
        return oxa::make_variant(static_cast<short>(random_()));
      case DataType::UnsignedShort:
        return oxa::make_variant(static_cast<unsigned short>(random_()));
      case DataType::Int:
        return oxa::make_variant(static_cast<int>(random_()));
      case DataType::UnsignedInt:
        return oxa::make_variant(static_cast<unsigned int>(random_()));
      case DataType::LongLong:
        return oxa::make_variant(static_cast<long long>(random_()));
      case DataType::UnsignedLongLong:
        return oxa::make_variant(static_cast<unsigned long long>(random_() >> 1));
      case DataType::Float:
        return oxa::make_variant(static_cast<float>(static_cast<double>(random_()) / 3e9));
      case DataType::Double:
        return oxa::make_variant(real());
      default:
        return oxa::make_variant(text());
    }
  }

 private:
  std::mt19937_64 random_;
};

class GraphmlWriterTest : public graph_test::GraphmlTest {
 protected:
  // Expects that what is written reads back equal, and is then written as it was.
  void expect_round_trip() {
    const std::string before = dump();
    const std::string written = write_graphml();
    ASSERT_NE(written, "") << error->text;
    ASSERT_EQ(read_graphml(written), S_OK) << error->text << "\n" << written;
    EXPECT_EQ(dump(), before) << written;
    EXPECT_EQ(write_graphml(), written);
  }

  void invent_attributes(Inventor& inventor) {
    for (const GraphPart part : graph_test::all_parts) {
      for (int type = 0; type < static_cast<int>(DataType::UserDefined); ++type) {
        if (inventor.below(2) == 0) {
          invent_attribute(inventor, part, static_cast<DataType>(type));
        }
      }
    }
  }

  void invent_attribute(Inventor& inventor, GraphPart part, DataType type) {
    const std::string name = "v" + inventor.text() + std::to_string(static_cast<int>(type));
    IOXAProperty& property = attribute(part, name.c_str(), type);
    if (inventor.below(2) == 0) {
      property.SetRange(property.MinimumValue() / 3, property.MaximumValue() / 7);
      property.SetDefaultValue(graph::value_text(inventor.value(type)).c_str());
    }
    if (inventor.below(3) == 0) {
      property.ViewHints()->SetTooltip(("d" + inventor.text()).c_str());
      for (int entry = 0; type != DataType::Enum && entry < 3; ++entry) {
        property.AddAttribute(inventor.text().c_str(), inventor.text().c_str());
      }
    }
    for (std::uint64_t item = 0; item < graph::item_count(*graph, part); ++item) {
      if (inventor.below(3) > 0) {
        set(part, name.c_str(), item, inventor.value(type));
      }
    }
  }

  void invent_columns(Inventor& inventor) {
    const std::uint64_t count = graph->GetNodeCount();
    std::vector<double> values(count);
    for (double& value : values) {
      value = inventor.real();
    }
    graph->SetColumn("rank", GraphColumnKind::measure, values.data(), count);
    graph->SetColumn("x", GraphColumnKind::position, values.data(), count);
    for (double& value : values) {
      value = static_cast<double>(inventor.below(count));
    }
    graph->SetColumn("group <1>", GraphColumnKind::category, values.data(), count);
  }

  void invent_graph(unsigned seed) {
    Inventor inventor(seed);
    empty_graph();
    for (std::uint64_t node = inventor.below(12); node > 0; --node) {
      add_node(inventor.text().c_str());
    }
    const std::uint64_t count = graph->GetNodeCount();
    for (std::uint64_t edge = count == 0 ? 0 : inventor.below(20); edge > 0; --edge) {
      const double weight = std::abs(inventor.real());
      graph->AddEdge(inventor.below(count), inventor.below(count),
                     std::isfinite(weight) ? weight : 1);
    }
    invent_attributes(inventor);
    if (inventor.below(2) == 0) {
      invent_columns(inventor);
    }
  }
};

TEST_F(GraphmlWriterTest, WritesWhatOthersReadAndTheRestBeside) {
  add_node("a<b>");
  graph->AddEdge(0, 0, 0.1);
  IOXAProperty& age = attribute(GraphPart::node, "age", DataType::UnsignedShort);
  age.SetRange(0, 150);
  age.SetDefaultValue("30");
  age.ViewHints()->SetTooltip("in years");
  attribute(GraphPart::graph, "kind", DataType::Enum).AddAttribute("friends", "1");
  set(GraphPart::node, "age", 0, oxa::make_variant(static_cast<unsigned short>(7)));
  set(GraphPart::graph, "kind", 0, oxa::make_variant("1"));
  const double class_of_a = 0;
  graph->SetColumn("group", GraphColumnKind::category, &class_of_a, 1);
  const std::string written = write_graphml();
  EXPECT_EQ(written.substr(written.find("<graphml")),
            "<graphml  xmlns=\"http://graphml.graphdrawing.org/xmlns\"  "
            "xmlns:oxa=\"urn:oxa-graph:1\">\n"
            "   <key  id=\"d0\"  for=\"graph\"  attr.name=\"kind\"  attr.type=\"string\"  "
            "oxa:type=\"enum\">\n"
            "      <oxa:entry  name=\"friends\"  value=\"1\"/>\n"
            "   </key>\n"
            "   <key  id=\"d1\"  for=\"node\"  attr.name=\"age\"  attr.type=\"int\"  "
            "oxa:type=\"unsigned short\"  oxa:min=\"0\"  oxa:max=\"150\">\n"
            "      <desc>in years</desc>\n"
            "      <default>30</default>\n"
            "   </key>\n"
            "   <key  id=\"d2\"  for=\"node\"  attr.name=\"group\"  attr.type=\"int\"  "
            "oxa:column=\"category\"/>\n"
            "   <key  id=\"d3\"  for=\"edge\"  attr.name=\"weight\"  attr.type=\"double\"/>\n"
            "   <graph  edgedefault=\"undirected\">\n"
            "      <data  key=\"d0\">1</data>\n"
            "      <node  id=\"a&lt;b&gt;\">\n"
            "         <data  key=\"d1\">7</data>\n"
            "         <data  key=\"d2\">0</data>\n"
            "      </node>\n"
            "      <edge  source=\"a&lt;b&gt;\"  target=\"a&lt;b&gt;\">\n"
            "         <data  key=\"d3\">0.1</data>\n"
            "      </edge>\n"
            "   </graph>\n"
            "</graphml>\n");
}

TEST_F(GraphmlWriterTest, AnEmptyGraphReadsBack) { expect_round_trip(); }

TEST_F(GraphmlWriterTest, InventedGraphsReadBackEqual) {
  for (unsigned seed = 0; seed < 30 && !HasFailure(); ++seed) {
    invent_graph(seed);
    expect_round_trip();
  }
}

TEST_F(GraphmlWriterTest, NumbersReadBackEqual) {
  add_node("a");
  add_node("b");
  const double columns[] = {0.1 + 0.2, std::numeric_limits<double>::denorm_min()};
  graph->SetColumn("c", GraphColumnKind::measure, columns, 2);
  attribute(GraphPart::node, "f", DataType::Float);
  set(GraphPart::node, "f", 0, oxa::make_variant(0.1F));
  expect_round_trip();
  EXPECT_EQ(column("c"), (std::vector<double>{columns[0], columns[1]}));
  EXPECT_EQ(graph->GetValue(GraphPart::node, 0, 0)->float_value, 0.1F);
}

// A text of ten thousand letters was cut by nobody, one of a hundred thousand would be.
TEST_F(GraphmlWriterTest, LongTextsReadBackOrAreRefused) {
  attribute(GraphPart::graph, "t", DataType::String);
  for (const std::size_t size : {10000U, 99988U}) {
    set(GraphPart::graph, "t", 0, oxa::make_variant(" " + std::string(size - 1, 'x')));
    expect_round_trip();
  }
  set(GraphPart::graph, "t", 0, oxa::make_variant(std::string(99989, 'x')));
  EXPECT_EQ(write_graphml(), "");
  EXPECT_EQ(error->text,
            "a value is longer than the 99988 bytes that can be read again; shorten it");
}

TEST_F(GraphmlWriterTest, LongLabelsReadBackOrAreRefused) {
  add_node((std::string(4085, 'x') + "\\\r").c_str());
  expect_round_trip();
  empty_graph();
  add_node((std::string(4086, 'x') + "\\\r").c_str());
  EXPECT_EQ(write_graphml(), "");
  EXPECT_EQ(error->text,
            "the label of node 1 is longer than the 4095 bytes that can be read again; shorten it");
}

TEST_F(GraphmlWriterTest, RefusesWhatGraphmlCannotHold) {
  add_node("ok");
  add_node("a\x01");
  EXPECT_EQ(write_graphml(), "");
  EXPECT_EQ(error->text, "the label of node 2 has a character that GraphML cannot hold; remove it");
  empty_graph();
  add_node("\xFF");
  EXPECT_EQ(write_graphml(), "");
  empty_graph();
  attribute(GraphPart::graph, "n", DataType::UnsignedLongLong);
  set(GraphPart::graph, "n", 0, oxa::make_variant(9223372036854775808ULL));
  EXPECT_EQ(write_graphml(), "");
  EXPECT_EQ(error->text,
            "the value 9223372036854775808 is greater than all that GraphML has a data type for; "
            "leave it out");
}

TEST_F(GraphmlWriterTest, RefusesWhatItsReaderRefuses) {
  attribute(GraphPart::graph, "mood", DataType::Enum);
  set(GraphPart::graph, "mood", 0, oxa::make_variant("good"));
  expect_round_trip();
  graph->GetAttribute(GraphPart::graph, 0)->AddAttribute("good", "1");
  EXPECT_EQ(write_graphml(), "");
  EXPECT_EQ(error->text,
            "the value \"good\" of \"mood\" is none of its entries; correct one of them");
  set(GraphPart::graph, "mood", 0, oxa::make_variant("1"));
  expect_round_trip();
  graph->GetAttribute(GraphPart::graph, 0)->SetDefaultValue("2");
  EXPECT_EQ(write_graphml(), "");
  EXPECT_EQ(error->text, "the value \"2\" of \"mood\" is none of its entries; correct one of them");
  empty_graph();
  attribute(GraphPart::edge, "n", DataType::Int).SetDefaultValue("many");
  EXPECT_EQ(write_graphml(), "");
  EXPECT_EQ(error->text, "the default \"many\" of \"n\" is not of its data type; correct it");
}

// The attribute may be what an earlier run has computed and another program has kept.
TEST_F(GraphmlWriterTest, AColumnTakesThePlaceOfAnAttribute) {
  add_node("a");
  attribute(GraphPart::node, "degree", DataType::Double);
  attribute(GraphPart::edge, "degree", DataType::Double);
  set(GraphPart::node, "degree", 0, oxa::make_variant(1.0));
  const double two = 2;
  graph->SetColumn("degree", GraphColumnKind::measure, &two, 1);
  ASSERT_EQ(read_graphml(write_graphml()), S_OK) << error->text;
  EXPECT_EQ(dump(), "edge degree type 11\ngraph\nnode a\ncolumn degree kind 0 2\n");
}

TEST_F(GraphmlWriterTest, RecordTypesThatNobodyDeclaresAreTexts) {
  attribute(GraphPart::graph, "t", DataType::UserDefined);
  ASSERT_EQ(read_graphml(write_graphml()), S_OK);
  EXPECT_EQ(dump(), "graph t type 1\ngraph\n");
}

TEST_F(GraphmlWriterTest, RecordTypesKeepTheirNames) {
  RecordTypes records(context.get());
  records.load(OXA_GRAPH_PLUGINS);
  attribute(GraphPart::node, "place", DataType::UserDefined)
      .SetUserDefinedDataType("force_layout::point");
  set(GraphPart::node, "place", add_node("a"), oxa::make_variant("1 2"));
  expect_round_trip();
  EXPECT_EQ(dump(), "node place type 16 force_layout::point\ngraph\nnode a place=1 2\n");
}

TEST_F(GraphmlWriterTest, LongIntegersHaveANameThatOthersKnow) {
  const auto translator = oxa::service<IOXAPropertyDataTypeTranslator>(context);
  write_graphml();
  write_graphml();
  EXPECT_STREQ(translator->ToGraphml(DataType::LongLong), "long");
  EXPECT_EQ(translator->ToType("int64"), DataType::LongLong);
}

TEST_F(GraphmlWriterTest, FailsWithItsOutputAndWhenAsked) {
  const auto output = oxa::make<graph_test::Output>();
  auto& writer = named<IGraphWriter>("GraphML");
  output->fails = true;
  EXPECT_EQ(writer.Write(graph.get(), nullptr, output.get(), error.get()), E_FAIL);
  output->fails = false;
  progress->stop_at = 1;
  EXPECT_EQ(writer.Write(graph.get(), nullptr, output.get(), error.get()), E_FAIL);
  EXPECT_EQ(error->text, "");
  EXPECT_EQ(writer.Write(nullptr, nullptr, output.get(), nullptr), E_INVALIDARG);
  EXPECT_EQ(writer.Write(graph.get(), nullptr, nullptr, nullptr), E_INVALIDARG);
}

TEST_F(GraphmlWriterTest, RunningOutOfMemoryIsTold) {
  add_node("a node with a label");
  graph->AddEdge(0, 0, 1);
  attribute(GraphPart::node, "text", DataType::Enum).AddAttribute("a", "a value of some length");
  set(GraphPart::node, "text", 0, oxa::make_variant("a value of some length"));
  auto& writer = named<IGraphWriter>("GraphML");
  const auto output = oxa::make<graph_test::Output>();
  output->text.reserve(10000);
  const std::string whole = write_graphml();
  oxa_test::written_by([&] {
    const auto failed = oxa_test::fail_each_allocation([&] {
      output->text.clear();
      const OXAResult result = writer.Write(graph.get(), nullptr, output.get(), nullptr);
      EXPECT_TRUE(result == E_OUTOFMEMORY || (result == S_OK && output->text == whole)) << result;
    });
    EXPECT_GT(failed, 50U);
  });
}

TEST_F(GraphmlWriterTest, TheSampleIsTheDataSet) {
  const auto content = [](const char* path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
  };
  ASSERT_EQ(read(content(OXA_GRAPH_DATA "/les_miserables.txt")), S_OK);
  const std::string written = write_graphml();
  EXPECT_TRUE(written == content(OXA_GRAPH_DATA "/les_miserables.graphml"))
      << "the file differs from what is written";
  const std::string before = dump();
  EXPECT_EQ(read_graphml(written), S_OK);
  EXPECT_EQ(dump(), before);
}

}  // namespace
