#include "summary.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numeric>
#include <string>
#include <vector>

#include "text.h"

namespace {

constexpr std::size_t shown = 5;

std::string top_nodes(IGraph& graph, const double* values) {
  std::vector<std::size_t> order;
  for (std::size_t node = 0; node < graph.GetNodeCount(); ++node) {
    if (!std::isnan(values[node])) {
      order.push_back(node);
    }
  }
  const std::size_t count = std::min(shown, order.size());
  std::partial_sort(order.begin(), order.begin() + static_cast<std::ptrdiff_t>(count), order.end(),
                    [&](std::size_t left, std::size_t right) {
                      return values[left] != values[right] ? values[left] > values[right]
                                                           : left < right;
                    });
  std::vector<std::string> pieces;
  for (std::size_t place = 0; place < count; ++place) {
    char number[32];
    std::snprintf(number, sizeof number, " %.4g", values[order[place]]);
    pieces.push_back(graph.GetLabel(order[place]) + std::string(number));
  }
  return pieces.empty() ? "no values" : join(pieces, ", ");
}

std::string group_sizes(IGraph& graph, const double* values) {
  std::vector<std::size_t> sizes;
  for (std::size_t node = 0; node < graph.GetNodeCount(); ++node) {
    if (values[node] >= 0) {
      const auto group = static_cast<std::size_t>(values[node]);
      sizes.resize(std::max(sizes.size(), group + 1));
      ++sizes[group];
    }
  }
  if (sizes.empty()) {
    return "no groups";
  }
  std::vector<std::string> pieces;
  for (std::size_t group = 0; group < std::min(sizes.size(), 2 * shown); ++group) {
    pieces.push_back(std::to_string(sizes[group]));
  }
  if (sizes.size() > pieces.size()) {
    pieces.emplace_back("...");
  }
  const bool single = sizes.size() == 1 && sizes[0] == 1;
  return counted(sizes.size(), "group") + " of " + join(pieces, ", ") +
         (single ? " node" : " nodes");
}

}  // namespace

void print_summary(IGraph& graph) {
  std::vector<std::vector<std::string>> rows;
  for (std::uint64_t column = 0; const char* name = graph.GetColumnName(column); ++column) {
    GraphColumnKind kind{};
    const double* values = nullptr;
    if (graph.GetColumn(name, &kind, &values) >= 0 && kind != GraphColumnKind::position) {
      rows.push_back({name, kind == GraphColumnKind::category ? group_sizes(graph, values)
                                                              : top_nodes(graph, values)});
    }
  }
  print_table(rows);
}
