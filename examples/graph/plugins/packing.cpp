#include "packing.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace graph {
namespace {

constexpr double gap = 1.0;
// Pictures are a little wider than high.
constexpr double wanted_aspect = 1.3;

struct Box {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
  double width() const { return right - left; }
  double height() const { return bottom - top; }
};

Box box_of(const std::vector<Point>& points) {
  Box box;
  if (!points.empty()) {
    box = {points[0].x, points[0].y, points[0].x, points[0].y};
  }
  for (const Point& point : points) {
    box.left = std::min(box.left, point.x);
    box.right = std::max(box.right, point.x);
    box.top = std::min(box.top, point.y);
    box.bottom = std::max(box.bottom, point.y);
  }
  return box;
}

Point centre_of(const std::vector<Point>& points) {
  Point sum{0, 0};
  for (const Point& point : points) {
    sum.x += point.x;
    sum.y += point.y;
  }
  const auto count = static_cast<double>(points.size());
  return {sum.x / count, sum.y / count};
}

// The angle of the axis along which the points spread most.
double main_axis(const std::vector<Point>& points, Point centre) {
  double xx = 0;
  double yy = 0;
  double xy = 0;
  for (const Point& point : points) {
    xx += (point.x - centre.x) * (point.x - centre.x);
    yy += (point.y - centre.y) * (point.y - centre.y);
    xy += (point.x - centre.x) * (point.y - centre.y);
  }
  return std::atan2(2 * xy, xx - yy) / 2;
}

// Moves every point a share of the way to where its rank would put it.
void even_out_along(double Point::*axis, std::vector<Point>& points) {
  constexpr double share = 0.5;
  std::vector<std::size_t> order(points.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
    return points[left].*axis < points[right].*axis;
  });
  const double least = points[order.front()].*axis;
  const double step = (points[order.back()].*axis - least) / static_cast<double>(points.size() - 1);
  for (std::size_t rank = 0; rank < order.size(); ++rank) {
    double& place = points[order[rank]].*axis;
    place += share * (least + static_cast<double>(rank) * step - place);
  }
}

void stretch(std::vector<Point>& points) {
  constexpr double most = 1.5;
  const Box box = box_of(points);
  if (box.height() <= 0) {
    return;
  }
  const double factor = std::clamp(box.width() / (box.height() * wanted_aspect), 1.0, most);
  for (Point& point : points) {
    point.y *= factor;
  }
}

// Returns whether the points were closer than `wanted`.
bool push_apart(Point& left, Point& right, double wanted) {
  const double dx = right.x - left.x;
  const double dy = right.y - left.y;
  const double distance = std::hypot(dx, dy);
  if (distance >= wanted || distance <= 0) {
    return false;
  }
  const double push = (wanted - distance) / (2 * distance);
  left = {left.x - dx * push, left.y - dy * push};
  right = {right.x + dx * push, right.y + dy * push};
  return true;
}

}  // namespace

void turn_and_scale(Part& part) {
  if (part.points.empty()) {
    return;
  }
  const Point centre = centre_of(part.points);
  const double angle = main_axis(part.points, centre);
  double reach = 0;
  for (Point& point : part.points) {
    const double x = point.x - centre.x;
    const double y = point.y - centre.y;
    point = {x * std::cos(angle) + y * std::sin(angle), y * std::cos(angle) - x * std::sin(angle)};
    reach = std::max(reach, std::hypot(point.x, point.y));
  }
  const double scale = reach > 0 ? std::sqrt(static_cast<double>(part.points.size())) / reach : 1;
  for (Point& point : part.points) {
    point = {point.x * scale, point.y * scale};
  }
}

void even_out(Part& part) {
  constexpr std::size_t fewest = 12;
  if (part.points.size() >= fewest) {
    even_out_along(&Point::x, part.points);
    even_out_along(&Point::y, part.points);
    stretch(part.points);
  }
}

void loosen(Part& part) {
  constexpr std::size_t most_points = 1000;
  constexpr int most_rounds = 60;
  const Box box = box_of(part.points);
  const double share = box.width() * box.height() / static_cast<double>(part.points.size());
  const double wanted = 0.6 * std::sqrt(share);
  bool moved = part.points.size() <= most_points;
  for (int round = 0; moved && round < most_rounds; ++round) {
    moved = false;
    for (std::size_t left = 0; left < part.points.size(); ++left) {
      for (std::size_t right = left + 1; right < part.points.size(); ++right) {
        moved = push_apart(part.points[left], part.points[right], wanted) || moved;
      }
    }
  }
}

void pack(std::vector<Part>& parts) {
  std::stable_sort(parts.begin(), parts.end(), [](const Part& left, const Part& right) {
    return left.points.size() > right.points.size();
  });
  double area = 0;
  double widest = 0;
  for (const Part& part : parts) {
    const Box box = box_of(part.points);
    area += (box.width() + gap) * (box.height() + gap);
    widest = std::max(widest, box.width());
  }
  const double row_width = std::max(widest, std::sqrt(area * wanted_aspect));
  double x = 0;
  double y = 0;
  double row_height = 0;
  for (Part& part : parts) {
    const Box box = box_of(part.points);
    if (x > 0 && x + box.width() > row_width) {
      y += row_height + gap;
      x = row_height = 0;
    }
    for (Point& point : part.points) {
      point = {point.x - box.left + x, point.y - box.top + y};
    }
    x += box.width() + gap;
    row_height = std::max(row_height, box.height());
  }
}

}  // namespace graph
