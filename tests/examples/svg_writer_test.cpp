#include <cmath>
#include <limits>

#include "graph_host.h"

namespace {

class SvgWriterTest : public graph_test::GraphTest {
 protected:
  OXAResult write() {
    output->text.clear();
    return named<IGraphWriter>("SVG picture")
        .Write(graph.get(), options.get(), output.get(), error.get());
  }

  void draw(const char* text) {
    read(text);
    arrange("circle");
    EXPECT_EQ(write(), S_OK) << error->text;
  }

  std::size_t count(const std::string& part) const {
    std::size_t found = 0;
    for (std::size_t at = 0; (at = output->text.find(part, at)) != std::string::npos; ++at) {
      ++found;
    }
    return found;
  }

  oxa::Ref<graph_test::Output> output = oxa::make<graph_test::Output>();
  oxa::Ref<graph_test::Options> options = oxa::make<graph_test::Options>();
};

TEST_F(SvgWriterTest, DrawsEveryNodeEdgeAndLabel) {
  draw("a b\nb c\n");
  EXPECT_EQ(count("<circle class=\"n "), 3U);
  EXPECT_EQ(count("<path class=\"e\""), 2U);
  EXPECT_EQ(count("<text class=\"l\""), 3U);
  EXPECT_EQ(count("3 nodes, 2 edges"), 2U);
}

TEST_F(SvgWriterTest, EscapesWhatThePersonWrote) {
  options->values["title"] = "x < \"y\" & z";
  draw("\"<b>&\" b\n");
  EXPECT_EQ(count("<b>"), 0U);
  EXPECT_GE(count("&lt;b&gt;&amp;</text>"), 1U);
  EXPECT_GE(count("x &lt; &quot;y&quot; &amp; z</text>"), 1U);
}

TEST_F(SvgWriterTest, LeavesOutWhatXmlDoesNotAllow) {
  std::uint64_t node = 0;
  graph->AddNode("a\x01\xFF\xEF\xBF\xBF\x1B z", &node);
  arrange("circle");
  EXPECT_EQ(write(), S_OK);
  EXPECT_GE(count(">a z</text>"), 1U);
}

TEST_F(SvgWriterTest, ThemesAreRulesInOneFile) {
  read("a b");
  arrange("circle");
  write();
  EXPECT_EQ(count("prefers-color-scheme:dark"), 1U);
  options->values["theme"] = "light";
  write();
  EXPECT_EQ(count("prefers-color-scheme"), 0U);
  EXPECT_EQ(count(".bg{fill:#ffffff}"), 1U);
  options->values["theme"] = "dark";
  write();
  EXPECT_EQ(count(".bg{fill:#14181d}"), 1U);
}

TEST_F(SvgWriterTest, SizeShowsTheMeasureByArea) {
  options->values["size"] = "degree";
  read("a b\na c\na d\na e\n");
  run("degree");
  draw("");
  EXPECT_EQ(count("r=\"30\""), 2U) << "the largest node and its legend";
  EXPECT_EQ(count("r=\"15\""), 5U) << "a quarter of the degree, half of the radius";
}

TEST_F(SvgWriterTest, TheLegendNamesGroupsByTheirLargestNode) {
  options->values["color"] = "community";
  read("a b\nb c\nc a\nd e\ne f\nf d\nc d\n");
  run("community");
  draw("");
  EXPECT_EQ(count("and 2 more</text>"), 2U);
  EXPECT_EQ(count("class=\"e ec0\""), 3U);
  EXPECT_EQ(count("class=\"e\""), 1U) << "the tie between the groups has no colour";
}

TEST_F(SvgWriterTest, TheRampEndsAtLeastAndMost) {
  options->values["color"] = "degree";
  read("a b\na c\na d\n");
  run("degree");
  draw("");
  EXPECT_EQ(count("<circle class=\"n r8\""), 1U);
  EXPECT_EQ(count("<circle class=\"n r0\""), 3U);
}

TEST_F(SvgWriterTest, NodesWithoutAValueAreGrey) {
  options->values["color"] = "v";
  read("a b");
  const double values[] = {std::numeric_limits<double>::quiet_NaN(), 1};
  graph->SetColumn("v", GraphColumnKind::measure, values, 2);
  draw("");
  EXPECT_EQ(count("<circle class=\"n cn\""), 1U);
  EXPECT_EQ(count("nan"), 0U);
}

TEST_F(SvgWriterTest, DrawsEmptyGraphsLoopsAndParallelEdges) {
  draw("");
  EXPECT_EQ(count("0 nodes, 0 edges"), 2U);
  EXPECT_EQ(count("nan"), 0U);
  draw("a a\n");
  EXPECT_EQ(count("1 node, 1 edge<"), 2U);
  draw("a b\na b\nb a\n");
  EXPECT_EQ(count("<path class=\"e\""), 4U);
  EXPECT_EQ(count("Q"), 2U) << "the second and third edge bend";
}

TEST_F(SvgWriterTest, RefusesWhatMakesNoSense) {
  const struct {
    const char* option;
    const char* value;
    const char* error;
  } table[] = {
      {"theme", "pink", "there is no theme \"pink\"; use auto, light or dark"},
      {"size", "x9", "the graph has no column \"x9\"; run the algorithm that makes it"},
      {"size", "community",
       "sizes cannot show \"community\", whose values are no quantities; size by a measure"},
  };
  read("a b");
  run("community");
  arrange("circle");
  for (const auto& row : table) {
    options->values = {{row.option, row.value}};
    EXPECT_EQ(write(), E_INVALIDARG);
    EXPECT_EQ(error->text, row.error);
    EXPECT_EQ(output->text, "");
  }
}

TEST_F(SvgWriterTest, AGraphWithoutPlacesIsRefused) {
  read("a b");
  EXPECT_EQ(write(), E_INVALIDARG);
  EXPECT_EQ(error->text, "the nodes have no places; run a layout first");
}

TEST_F(SvgWriterTest, GivesUpWhenTheOutputFailsOrTheHostStops) {
  read("a b");
  arrange("circle");
  output->fails = true;
  EXPECT_EQ(write(), E_FAIL);
  EXPECT_EQ(error->text, "");
  output->fails = false;
  progress->stop_at = 1;
  EXPECT_EQ(write(), E_FAIL);
  EXPECT_EQ(output->text, "");
}

}  // namespace
