#include "igraph_bridge.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <string>

namespace graph {
namespace {

constexpr int percent = 100;
constexpr unsigned long seed = 20;

// igraph's handlers take no argument that could carry these.
IOXAProgressIndicator* active_progress = nullptr;
int reported_percent = 0;
std::array<char, 256> last_reason;

void keep_reason(const char* reason, const char*, int, igraph_error_t) {
  // Each caller on the way out reports again, without a reason.
  if (*reason != '\0') {
    std::snprintf(last_reason.data(), last_reason.size(), "%s", reason);
  }
  IGRAPH_FINALLY_FREE();
}

void ignore_warning(const char*, const char*, int) {}

igraph_error_t stop_if_inactive(void*) {
  if (active_progress == nullptr || active_progress->IsActive()) {
    return IGRAPH_SUCCESS;
  }
  IGRAPH_FINALLY_FREE();
  return IGRAPH_INTERRUPTED;
}

igraph_error_t report(const char* message, igraph_real_t done, void* data) {
  if (active_progress != nullptr) {
    for (; reported_percent < percent && reported_percent < done; ++reported_percent) {
      active_progress->UpdateMessage(message);
    }
  }
  return stop_if_inactive(data);
}

}  // namespace

void check_igraph(igraph_error_t code) {
  switch (code) {
    case IGRAPH_SUCCESS:
      return;
    case IGRAPH_ENOMEM:
      throw Failure(E_OUTOFMEMORY);
    case IGRAPH_INTERRUPTED:
      throw Failure(E_FAIL);
    default:
      throw Failure(E_FAIL,
                    std::string("igraph says \"") +
                        (last_reason[0] != '\0' ? last_reason.data() : igraph_strerror(code)) +
                        "\"; choose another one or a part of the graph");
  }
}

IgraphScope::IgraphScope(IOXAContext* context)
    : progress_(oxa::service<IOXAProgressIndicator>(context)),
      error_handler_(igraph_set_error_handler(keep_reason)),
      warning_handler_(igraph_set_warning_handler(ignore_warning)),
      interruption_handler_(igraph_set_interruption_handler(stop_if_inactive)),
      progress_handler_(igraph_set_progress_handler(report)) {
  active_progress = progress_.get();
  reported_percent = 0;
  last_reason[0] = '\0';
  if (progress_) {
    progress_->SetHeartbeatFrequency(percent);
  }
  igraph_rng_seed(igraph_rng_default(), seed);
}

IgraphScope::~IgraphScope() {
  active_progress = nullptr;
  igraph_set_progress_handler(progress_handler_);
  igraph_set_interruption_handler(interruption_handler_);
  igraph_set_warning_handler(warning_handler_);
  igraph_set_error_handler(error_handler_);
}

std::vector<double> IgraphVector::values() const {
  const double* first = VECTOR(vector_);
  return {first, first + igraph_vector_size(&vector_)};
}

std::vector<std::size_t> IgraphIntegers::values() const {
  std::vector<std::size_t> all;
  all.reserve(static_cast<std::size_t>(igraph_vector_int_size(&vector_)));
  for (igraph_integer_t index = 0; index < igraph_vector_int_size(&vector_); ++index) {
    all.push_back(static_cast<std::size_t>(VECTOR(vector_)[index]));
  }
  return all;
}

IgraphGraph::IgraphGraph(std::size_t node_count, const std::vector<GraphEdge>& edges) {
  const auto edge_count = static_cast<igraph_integer_t>(edges.size());
  IgraphIntegers ends;
  check_igraph(igraph_vector_int_reserve(ends.get(), 2 * edge_count));
  check_igraph(igraph_vector_reserve(weights_.get(), edge_count));
  double most = 0;
  for (const GraphEdge& edge : edges) {
    most = std::max(most, edge.weight);
  }
  for (const GraphEdge& edge : edges) {
    igraph_vector_int_push_back(ends.get(), static_cast<igraph_integer_t>(edge.source));
    igraph_vector_int_push_back(ends.get(), static_cast<igraph_integer_t>(edge.target));
    igraph_vector_push_back(weights_.get(), most > 0 ? edge.weight / most : 0);
  }
  check_igraph(igraph_create(&graph_, ends.get(), static_cast<igraph_integer_t>(node_count),
                             IGRAPH_UNDIRECTED));
}

void set_categories(IGraph& graph, const char* name, const std::vector<std::size_t>& classes) {
  struct Class {
    std::size_t size = 0;
    std::size_t first = std::numeric_limits<std::size_t>::max();
    std::size_t number = 0;
  };
  std::vector<Class> known(classes.size());
  for (std::size_t node = 0; node < classes.size(); ++node) {
    Class& own = known.at(classes[node]);
    own.number = classes[node];
    own.first = std::min(own.first, node);
    ++own.size;
  }
  std::sort(known.begin(), known.end(), [](const Class& left, const Class& right) {
    return left.size != right.size ? left.size > right.size : left.first < right.first;
  });
  std::vector<double> rank(classes.size());
  for (std::size_t index = 0; index < known.size() && known[index].size > 0; ++index) {
    rank[known[index].number] = static_cast<double>(index);
  }
  std::vector<double> values;
  values.reserve(classes.size());
  for (const std::size_t number : classes) {
    values.push_back(rank[number]);
  }
  set_column(graph, name, GraphColumnKind::category, values);
}

}  // namespace graph
