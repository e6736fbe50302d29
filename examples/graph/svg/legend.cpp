#include "legend.h"

#include <algorithm>
#include <cmath>

namespace graph {
namespace {

constexpr double text_size = 13;
constexpr double legend_width = page_width - margin - legend_left;

struct Class {
  std::size_t size = 0;
  std::size_t largest_node = 0;
};

class Legend {
 public:
  Legend(const Picture& picture, SvgStream& svg) : picture_(picture), svg_(svg) {}

  void write() {
    write_sizes();
    if (picture_.colour.values != nullptr && !picture_.nodes.empty()) {
      if (picture_.colour.kind == GraphColumnKind::category) {
        write_classes();
      } else {
        write_ramp();
      }
    }
    write_widths();
  }

 private:
  void heading(const char* what, const std::string& column) {
    svg_ << "<text class=\"m\" x=\"" << legend_left << "\" y=\"" << y_
         << "\" font-size=\"11\" letter-spacing=\"0.8\">" << what << "</text>\n";
    y_ += 18;
    line(legend_left, column, "t", " font-weight=\"600\"");
    y_ += 14;
  }

  void line(double x, const std::string& text, const char* text_class, const char* more = "") {
    const double room = (legend_left + legend_width - x) / text_size;
    svg_ << "<text class=\"" << text_class << "\" x=\"" << x << "\" y=\"" << y_ << "\" font-size=\""
         << text_size << "\"" << more << ">" << Escaped{shortened(text, room)} << "</text>\n";
  }

  void write_sizes() {
    const Scale& scale = picture_.size;
    if (scale.values == nullptr || picture_.nodes.empty()) {
      return;
    }
    heading("NODE SIZE", scale.column);
    const double middle = (scale.least + scale.most) / 2;
    double previous = NAN;
    for (const double value : {scale.most, middle, scale.least}) {
      if (value == previous) {
        continue;
      }
      previous = value;
      const double radius = radius_of(picture_, value);
      y_ += radius;
      svg_ << "<circle class=\"cn\" cx=\"" << legend_left + picture_.most_radius << "\" cy=\"" << y_
           << "\" r=\"" << radius << "\"/>\n";
      y_ += text_size / 3;
      line(legend_left + 2 * picture_.most_radius + 12, number_text(value), "t");
      y_ += std::max(radius, 8.0) + 4;
    }
    y_ += 30;
  }

  std::vector<Class> classes() const {
    std::vector<Class> found(static_cast<std::size_t>(picture_.colour.most) + 1);
    for (std::size_t node = 0; node < picture_.nodes.size(); ++node) {
      const double value = picture_.colour.values[node];
      if (!(value >= 0)) {
        continue;
      }
      Class& own = found[static_cast<std::size_t>(value)];
      if (own.size++ == 0 ||
          picture_.nodes[node].radius > picture_.nodes[own.largest_node].radius) {
        own.largest_node = node;
      }
    }
    return found;
  }

  void swatch(const std::string& fill, const std::string& text) {
    svg_ << "<circle class=\"" << fill << "\" cx=\"" << legend_left + 7 << "\" cy=\"" << y_ - 4.5
         << "\" r=\"7\"/>\n";
    line(legend_left + 22, text, "t");
    y_ += 22;
  }

  // A class goes by the name of its largest node.
  void write_classes() {
    heading("COLOUR", picture_.colour.column);
    y_ += 6;
    const std::vector<Class> all = classes();
    std::size_t other_nodes = 0;
    for (std::size_t index = 0; index < all.size(); ++index) {
      if (index >= category_colours) {
        other_nodes += all[index].size;
        continue;
      }
      const std::string count =
          all[index].size == 1 ? " alone" : " and " + std::to_string(all[index].size - 1) + " more";
      const double room = (legend_width - 22) / text_size - text_width(count);
      swatch("c" + std::to_string(index),
             shortened(picture_.graph.GetLabel(all[index].largest_node), room) + count);
    }
    if (other_nodes > 0) {
      swatch("cn", count_text(all.size() - category_colours, "smaller group") + ", " +
                       count_text(other_nodes, "node"));
    }
    y_ += 22;
  }

  void write_ramp() {
    heading("COLOUR", picture_.colour.column);
    const double step_width = legend_width / static_cast<double>(ramp_steps);
    for (std::size_t step = 0; step < ramp_steps; ++step) {
      svg_ << "<rect class=\"r" << step << "\" x=\""
           << legend_left + static_cast<double>(step) * step_width << "\" y=\"" << y_
           << "\" width=\"" << step_width + 0.3 << "\" height=\"12\"/>\n";
    }
    y_ += 30;
    line(legend_left, number_text(picture_.colour.least), "t");
    svg_ << "<text class=\"t\" x=\"" << legend_left + legend_width << "\" y=\"" << y_
         << "\" font-size=\"" << text_size << "\" text-anchor=\"end\">"
         << number_text(picture_.colour.most) << "</text>\n";
    y_ += 44;
  }

  void write_widths() {
    const Scale& weight = picture_.weight;
    if (picture_.edges.empty() || weight.least >= weight.most) {
      return;
    }
    heading("LINE WIDTH", "weight");
    for (const double value : {weight.most, (weight.most + weight.least) / 2, weight.least}) {
      y_ += 6;
      svg_ << "<path class=\"k\" stroke-width=\"" << width_of(picture_, value) << "\" d=\"M"
           << legend_left + 3 << " " << y_ - 4.5 << "h40\"/>\n";
      line(legend_left + 58, number_text(value), "t");
      y_ += 16;
    }
  }

  const Picture& picture_;
  SvgStream& svg_;
  double y_ = graph_top + 12;
};

}  // namespace

void write_legend(const Picture& picture, SvgStream& svg) { Legend(picture, svg).write(); }

}  // namespace graph
