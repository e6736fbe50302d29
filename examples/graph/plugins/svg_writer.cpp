// Draws a laid-out graph as an SVG picture that follows the reader's light or dark theme.
#include <oxa/sdk/plugin.h>

#include <algorithm>
#include <cmath>

#include "labels.h"
#include "legend.h"
#include "picture.h"
#include "svg_stream.h"

namespace {

using graph::Escaped;
using graph::Picture;
using graph::PictureEdge;
using graph::PictureNode;
using graph::SvgStream;

void write_head(const Picture& picture, SvgStream& svg) {
  const std::string counts = graph::count_text(picture.nodes.size(), "node") + ", " +
                             graph::count_text(picture.edges.size(), "edge");
  const std::string title = picture.title.empty() ? "Graph" : picture.title;
  svg << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << graph::page_width << "\" height=\""
      << graph::page_height << "\" viewBox=\"0 0 " << graph::page_width << " " << graph::page_height
      << "\" role=\"img\" aria-labelledby=\"title counts\">\n"
      << "<title id=\"title\">" << Escaped{title} << "</title>\n"
      << "<desc id=\"counts\">" << counts << "</desc>\n"
      << "<style>\n"
      << graph::style_sheet(picture.theme) << "</style>\n"
      << "<rect class=\"bg\" width=\"100%\" height=\"100%\"/>\n";
  const double room = (graph::page_width - 2 * graph::margin) / 26;
  svg << "<text class=\"t\" x=\"" << graph::margin
      << "\" y=\"58\" font-size=\"26\" font-weight=\"700\">"
      << Escaped{graph::shortened(title, room)} << "</text>\n"
      << "<text class=\"m\" x=\"" << graph::margin << "\" y=\"83\" font-size=\"15\">" << counts
      << "</text>\n";
}

// A loop leaves its node to the upper right; a parallel edge bends away from the ones before it.
void write_path(const Picture& picture, const PictureEdge& edge, SvgStream& svg) {
  const PictureNode& source = picture.nodes[edge.source];
  const PictureNode& target = picture.nodes[edge.target];
  const auto twin = static_cast<double>(edge.twin);
  svg << "M" << source.x << " " << source.y;
  if (edge.source == edge.target) {
    const double reach = 1.6 * source.radius + 12 + 8 * twin;
    svg << "C" << source.x + reach << " " << source.y - 0.4 * reach << " " << source.x + 0.4 * reach
        << " " << source.y - reach << " " << source.x << " " << source.y;
  } else if (edge.twin == 0) {
    svg << "L" << target.x << " " << target.y;
  } else {
    const double side = edge.twin % 2 == 0 ? -1 : 1;
    const double bend = side * 0.12 * std::ceil(twin / 2);
    svg << "Q" << (source.x + target.x) / 2 - bend * (target.y - source.y) << " "
        << (source.y + target.y) / 2 + bend * (target.x - source.x) << " " << target.x << " "
        << target.y;
  }
}

// Ties within a class take its colour.
void write_edges(const Picture& picture, SvgStream& svg) {
  const bool classes = picture.colour.kind == GraphColumnKind::category;
  svg << "<g>\n";
  for (const PictureEdge& edge : picture.edges) {
    const std::string& fill = picture.nodes[edge.source].fill;
    const bool inside = classes && picture.colour.values != nullptr && fill != "cn" &&
                        fill == picture.nodes[edge.target].fill;
    svg << "<path class=\"e" << (inside ? " e" + fill : std::string()) << "\" stroke-width=\""
        << edge.width << "\" d=\"";
    write_path(picture, edge, svg);
    svg << "\"/>\n";
  }
  svg << "</g>\n";
}

void write_tip(IGraph& graph, std::size_t node, SvgStream& svg) {
  svg << "<title>" << Escaped{graph.GetLabel(node)};
  for (std::uint64_t column = 0; const char* name = graph.GetColumnName(column); ++column) {
    GraphColumnKind kind{};
    const double* values = graph::find_column(graph, name, &kind);
    if (values != nullptr && kind != GraphColumnKind::position) {
      const double shift = kind == GraphColumnKind::category ? 1 : 0;
      svg << "\n" << Escaped{name} << " " << graph::number_text(values[node] + shift);
    }
  }
  svg << "</title>";
}

// Small nodes come last, so that none is hidden behind a large one.
void write_nodes(const Picture& picture, SvgStream& svg) {
  std::vector<std::size_t> order(picture.nodes.size());
  for (std::size_t node = 0; node < order.size(); ++node) {
    order[node] = node;
  }
  std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
    return picture.nodes[left].radius > picture.nodes[right].radius;
  });
  svg << "<g>\n";
  for (const std::size_t index : order) {
    const PictureNode& node = picture.nodes[index];
    svg << "<circle class=\"n " << node.fill << "\" cx=\"" << node.x << "\" cy=\"" << node.y
        << "\" r=\"" << node.radius << "\">";
    write_tip(picture.graph, index, svg);
    svg << "</circle>\n";
  }
  svg << "</g>\n";
}

void write_labels(const Picture& picture, SvgStream& svg) {
  svg << "<g pointer-events=\"none\">\n";
  for (const graph::PictureLabel& label : place_labels(picture)) {
    svg << "<text class=\"l\" x=\"" << label.x << "\" y=\"" << label.y << "\" font-size=\""
        << label.font_size << "\">" << Escaped{label.text} << "</text>\n";
  }
  svg << "</g>\n";
}

class SvgWriter final : public graph::Writer {
 public:
  explicit SvgWriter(IOXAContext* context) : Writer("SVG picture", ".svg"), context_(context) {}

 private:
  void write(IGraph& graph, IGraphOptions* options, IGraphOutput& output) override {
    const auto progress = oxa::service<IOXAProgressIndicator>(context_);
    const Picture picture = graph::make_picture(graph, options);
    SvgStream svg(output, progress.get());
    write_head(picture, svg);
    write_edges(picture, svg);
    write_nodes(picture, svg);
    write_labels(picture, svg);
    write_legend(picture, svg);
    svg << "</svg>\n";
    svg.flush();
  }

  IOXAContext* context_;
};

}  // namespace

OXA_PLUGIN("SVG pictures", "1.0", oxa::offer<SvgWriter>(IID_IOXAFileWriter))
