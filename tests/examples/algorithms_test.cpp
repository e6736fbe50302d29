#include <cmath>

#include "graph_host.h"

namespace {

constexpr const char* all_algorithms[] = {"degree",      "closeness", "betweenness", "pagerank",
                                          "eigenvector", "community", "component",   "strength"};

// Two triangles, a-b-c and d-e-f, joined by c-d.
constexpr const char* two_triangles = "a b\nb c\nc a\nd e\ne f\nf d\nc d\n";
constexpr const char* star = "hub a\nhub b\nhub c\nhub d\n";

class AlgorithmsTest : public graph_test::GraphTest {};

TEST_F(AlgorithmsTest, DegreeCountsALoopTwice) {
  read("a b 7\na b 7\na a\n");
  EXPECT_EQ(run("degree"), S_OK);
  EXPECT_EQ(column("degree"), (std::vector<double>{4, 2}));
}

TEST_F(AlgorithmsTest, StrengthAddsUpWeights) {
  read("a b 2.5\na c 1\na a 3\n");
  EXPECT_EQ(run("strength"), S_OK);
  EXPECT_EQ(column("strength"), (std::vector<double>{9.5, 2.5, 1}));
}

TEST_F(AlgorithmsTest, BetweennessOfAStarIsAllAtTheHub) {
  read(star);
  EXPECT_EQ(run("betweenness"), S_OK);
  EXPECT_EQ(column("betweenness"), (std::vector<double>{6, 0, 0, 0, 0}));
}

TEST_F(AlgorithmsTest, BetweennessOfABridge) {
  read(two_triangles);
  run("betweenness");
  EXPECT_EQ(column("betweenness"), (std::vector<double>{0, 0, 6, 6, 0, 0}));
}

TEST_F(AlgorithmsTest, ClosenessIsTheReciprocalOfTheMeanDistance) {
  read(star);
  EXPECT_EQ(run("closeness"), S_OK);
  EXPECT_DOUBLE_EQ(value("closeness", "hub"), 1.0);
  EXPECT_DOUBLE_EQ(value("closeness", "a"), 4.0 / 7.0);
}

TEST_F(AlgorithmsTest, ANodeThatReachesNoneHasNoCloseness) {
  read("a b\nc c\n");
  run("closeness");
  EXPECT_TRUE(std::isnan(value("closeness", "c")));
}

TEST_F(AlgorithmsTest, PageRankAddsUpToOneAndFollowsWeights) {
  read("a b 9\na c 1\n");
  EXPECT_EQ(run("pagerank"), S_OK);
  const std::vector<double> rank = column("pagerank");
  EXPECT_NEAR(rank[0] + rank[1] + rank[2], 1, 1e-9);
  // By hand: a = 0.05 + 0.85 (b + c), b = 0.05 + 0.85 * 0.9 a, c = 0.05 + 0.85 * 0.1 a.
  const double a = (0.05 + 0.85 * 0.1) / (1 - 0.85 * 0.85);
  EXPECT_NEAR(rank[0], a, 1e-6);
  EXPECT_NEAR(rank[1], 0.05 + 0.765 * a, 1e-6);
}

TEST_F(AlgorithmsTest, EigenvectorOfAStarIsOneOverTheRootAtTheLeaves) {
  read(star);
  EXPECT_EQ(run("eigenvector"), S_OK);
  EXPECT_NEAR(value("eigenvector", "hub"), 1, 1e-6);
  EXPECT_NEAR(value("eigenvector", "a"), 0.5, 1e-6);
}

TEST_F(AlgorithmsTest, CommunitiesAreTheTriangles) {
  read(two_triangles);
  EXPECT_EQ(run("community"), S_OK);
  EXPECT_EQ(column("community"), (std::vector<double>{0, 0, 0, 1, 1, 1}));
}

TEST_F(AlgorithmsTest, TheLargestComponentIsNumberZero) {
  read("p q\na b\nb c\nz z\n");
  EXPECT_EQ(run("component"), S_OK);
  EXPECT_EQ(column("component"), (std::vector<double>{1, 1, 0, 0, 0, 2}));
}

TEST_F(AlgorithmsTest, KindsTellMeasuresFromGroups) {
  read(star);
  run("degree");
  run("community");
  GraphColumnKind kind{};
  const double* values = nullptr;
  graph->GetColumn("degree", &kind, &values);
  EXPECT_EQ(kind, GraphColumnKind::measure);
  graph->GetColumn("community", &kind, &values);
  EXPECT_EQ(kind, GraphColumnKind::category);
}

TEST_F(AlgorithmsTest, AllTakeOddGraphs) {
  for (const char* text : {"", "a a", "a a\na a\nb b 0\n", "a b 0\nc d 0\n", "a b\nc d\ne e\n",
                           "a b 1e300\nb c 1e-300\n"}) {
    graph = make_graph();
    read(text);
    for (const char* name : all_algorithms) {
      EXPECT_EQ(run(name), S_OK) << name << " of " << text << ": " << error->text;
      EXPECT_EQ(column(name).size(), graph->GetNodeCount()) << name;
    }
  }
}

TEST_F(AlgorithmsTest, TheSameGraphGivesTheSameValues) {
  const auto values = [&] {
    graph = make_graph();
    std::string text;
    for (int node = 0; node < 300; ++node) {
      text += std::to_string(node % 60) + " " + std::to_string(node * 7 % 61) + "\n";
    }
    read(text);
    run("community");
    return column("community");
  };
  EXPECT_EQ(values(), values());
}

TEST_F(AlgorithmsTest, ReportsAsManyMessagesAsAnnounced) {
  read(two_triangles);
  run("betweenness");
  EXPECT_EQ(progress->frequency, 100);
  EXPECT_EQ(progress->messages, 100);
}

TEST_F(AlgorithmsTest, StopsWhenAskedAndKeepsTheColumnAsItWas) {
  read(two_triangles);
  progress->stop_at = 1;
  EXPECT_EQ(run("betweenness"), E_FAIL);
  EXPECT_EQ(error->text, "");
  EXPECT_TRUE(column("betweenness").empty());
}

TEST_F(AlgorithmsTest, AllRefuseANullGraph) {
  for (const Offered* algorithm : plugins->all<IGraphAlgorithm>()) {
    EXPECT_EQ(algorithm->as<IGraphAlgorithm>().Run(nullptr, nullptr), E_INVALIDARG);
  }
}

}  // namespace
