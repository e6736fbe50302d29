#include <algorithm>
#include <cmath>

#include "graph_host.h"

namespace {

class LayoutsTest : public graph_test::GraphTest {
 protected:
  double distance(std::size_t left, std::size_t right) {
    const std::vector<double> x = column("x");
    const std::vector<double> y = column("y");
    return std::hypot(x.at(left) - x.at(right), y.at(left) - y.at(right));
  }
};

TEST_F(LayoutsTest, TheCircleHasOneRadius) {
  read("a b\nb c\nc d\nd e\n");
  EXPECT_EQ(arrange("circle"), S_OK);
  const std::vector<double> x = column("x");
  const std::vector<double> y = column("y");
  for (std::size_t node = 0; node < 5; ++node) {
    EXPECT_NEAR(std::hypot(x[node], y[node]), 1, 1e-12);
  }
}

TEST_F(LayoutsTest, TheCirclePutsCommunitiesSideBySide) {
  read("a x\na b\nx y\nb c\ny z\nc a\nz x\n");
  run("community");
  arrange("circle");
  // Indices: a 0, x 1, b 2.
  EXPECT_LT(distance(0, 2), distance(0, 1) + 1e-9);
}

TEST_F(LayoutsTest, TiedNodesAreCloserThanOthers) {
  read("a b\nb c\nc a\nc d\nd e\ne f\nf g\ng h\nh i\ni g\n");
  EXPECT_EQ(arrange("force"), S_OK);
  EXPECT_LT(distance(0, 1), distance(0, 8));
}

TEST_F(LayoutsTest, AllTakeOddGraphs) {
  for (const char* text : {"", "a a", "a b", "a b 0\na b 5\nc c\nd e\n", "a a\nb b\nc c\n"}) {
    graph = make_graph();
    read(text);
    for (const char* layout : {"force", "circle"}) {
      EXPECT_EQ(arrange(layout), S_OK) << text << ": " << error->text;
      const std::vector<double> x = column("x");
      EXPECT_EQ(x.size(), graph->GetNodeCount());
      EXPECT_TRUE(std::all_of(x.begin(), x.end(), [](double v) { return std::isfinite(v); }));
    }
  }
}

TEST_F(LayoutsTest, NoTwoNodesShareAPlace) {
  read("a b\na c\na d\na e\nf g\nh h\ni i\n");
  arrange("force");
  for (std::size_t left = 0; left < graph->GetNodeCount(); ++left) {
    for (std::size_t right = 0; right < left; ++right) {
      EXPECT_GT(distance(left, right), 0.1) << left << " " << right;
    }
  }
}

TEST_F(LayoutsTest, TheSameGraphGivesTheSamePlaces) {
  read("a b\nb c\nc d\nd a\na e\n");
  arrange("force");
  const std::vector<double> first = column("x");
  arrange("force");
  EXPECT_EQ(column("x"), first);
}

TEST_F(LayoutsTest, ForceStopsWhenAsked) {
  read("a b\nb c\n");
  progress->stop_at = 1;
  EXPECT_EQ(arrange("force"), E_FAIL);
  EXPECT_TRUE(column("x").empty());
}

}  // namespace
