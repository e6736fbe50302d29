// Finding places for labels.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "picture.h"

namespace graph {

struct PictureLabel {
  std::string text;
  // The middle of the baseline.
  double x = 0;
  double y = 0;
  double font_size = 0;
};

// Places labels next to their nodes, those of large nodes first, each where it covers least. In
// crowded pictures the labels of small nodes that would cover others are left out.
std::vector<PictureLabel> place_labels(const Picture& picture);

}  // namespace graph
