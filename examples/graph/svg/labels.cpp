#include "labels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

#include "svg_text.h"

namespace graph {
namespace {

constexpr std::size_t most_labels = 150;
constexpr double longest_label = 16;  // in ems

struct Box {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;

  double area() const { return (right - left) * (bottom - top); }
};

double overlap(const Box& left, const Box& right) {
  const double width = std::min(left.right, right.right) - std::max(left.left, right.left);
  const double height = std::min(left.bottom, right.bottom) - std::max(left.top, right.top);
  return width > 0 && height > 0 ? width * height : 0;
}

Box box_of(const PictureNode& node) {
  // The square of the circle's area: its corners would count as covered otherwise.
  const double half = node.radius * 0.89;
  return {node.x - half, node.y - half, node.x + half, node.y + half};
}

// Places to try, as directions from the node; earlier ones are nicer.
constexpr std::array<std::array<double, 2>, 8> directions = {
    {{0, 1}, {0, -1}, {1, 0}, {-1, 0}, {0.7, 0.7}, {-0.7, 0.7}, {0.7, -0.7}, {-0.7, -0.7}}};

Box box_beside(const PictureNode& node, const std::array<double, 2>& direction, double width,
               double height, double distance) {
  const double x = node.x + direction[0] * (node.radius + distance + width / 2);
  const double y = node.y + direction[1] * (node.radius + distance + height / 2);
  return {x - width / 2, y - height / 2, x + width / 2, y + height / 2};
}

class Placer {
 public:
  explicit Placer(const Picture& picture) : picture_(picture) {}

  std::vector<PictureLabel> place() {
    std::vector<std::size_t> order(picture_.nodes.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
      return picture_.nodes[left].radius > picture_.nodes[right].radius;
    });
    order.resize(std::min(order.size(), most_labels));
    for (const std::size_t node : order) {
      place_one(node);
    }
    return std::move(labels_);
  }

 private:
  void place_one(std::size_t index) {
    const PictureNode& node = picture_.nodes[index];
    PictureLabel label;
    label.text = shortened(picture_.graph.GetLabel(index), longest_label);
    label.font_size = std::clamp(10.5 + node.radius * 0.25, 11.0, 18.0);
    const double width = text_width(label.text) * label.font_size + 2;
    const double height = label.font_size;
    Box best;
    double least = HUGE_VAL;
    const auto consider = [&](const Box& box, double dislike) {
      const double cost = cost_of(box) + dislike * box.area();
      if (cost < least) {
        least = cost;
        best = box;
      }
    };
    for (const double distance : {2.0, 9.0}) {
      for (std::size_t index_of = 0; index_of < directions.size(); ++index_of) {
        const double dislike = 0.02 * static_cast<double>(index_of) + (distance > 2 ? 0.12 : 0);
        consider(box_beside(node, directions[index_of], width, height, distance), dislike);
      }
    }
    const bool crowded = least > 0.6 * best.area();
    if (crowded && taken_.size() > 12) {
      return;
    }
    label.x = (best.left + best.right) / 2;
    label.y = best.bottom - 0.22 * label.font_size;
    taken_.push_back(best);
    labels_.push_back(std::move(label));
  }

  double cost_of(const Box& box) const {
    double cost = 0;
    for (const Box& other : taken_) {
      cost += 4 * overlap(box, other);
    }
    for (const PictureNode& node : picture_.nodes) {
      cost += 2 * overlap(box, box_of(node));
    }
    const Box page{graph_left - 30, graph_top - 10, graph_right + 30, graph_bottom + 20};
    return cost + 10 * (box.area() - overlap(box, page));
  }

  const Picture& picture_;
  std::vector<Box> taken_;
  std::vector<PictureLabel> labels_;
};

}  // namespace

std::vector<PictureLabel> place_labels(const Picture& picture) { return Placer(picture).place(); }

}  // namespace graph
