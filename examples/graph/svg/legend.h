// The legend: what size, colour and line width mean.
#pragma once

#include "picture.h"
#include "svg_stream.h"

namespace graph {

void write_legend(const Picture& picture, SvgStream& svg);

}  // namespace graph
