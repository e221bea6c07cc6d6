// Smart pointers that own cairo objects. A null handle owns no object.
#pragma once

#include <cairo.h>

#include <memory>

namespace drawing {

struct CairoDeleter {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_t* context) const { cairo_destroy(context); }
  void operator()(cairo_pattern_t* pattern) const { cairo_pattern_destroy(pattern); }
  void operator()(cairo_region_t* region) const { cairo_region_destroy(region); }
};

using SurfaceHandle = std::unique_ptr<cairo_surface_t, CairoDeleter>;
using ContextHandle = std::unique_ptr<cairo_t, CairoDeleter>;
using PatternHandle = std::unique_ptr<cairo_pattern_t, CairoDeleter>;
using RegionHandle = std::unique_ptr<cairo_region_t, CairoDeleter>;

}  // namespace drawing
