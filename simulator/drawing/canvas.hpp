// A pixel surface with drawing functions. Coordinates are in points unless a name says pixels. A function draws nothing
// if its rectangle is empty or contains a number that is not finite. One thread at a time can use a canvas.
//
// Layers: everything that is drawn between beginLayer and endLayer is composited with the opacity of the layer. A layer
// that is not opaque has its own pixels; an opaque layer draws directly on the canvas. captureBeneath composites all
// open layers, so a material has the same backdrop inside and outside of a layer.
//
// When rectangles, rounded rectangles and images are drawn, the value of a pixel does not depend on the clip, if the
// clip consists of whole pixels and contains the pixel. Therefore, repainting a part of the screen and repainting the
// whole screen produce the same pixels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "simulator/drawing/cairo_handles.hpp"
#include "simulator/drawing/geometry.hpp"
#include "simulator/drawing/pixel_rectangle.hpp"

namespace drawing {

class Image;
class TextLayout;

enum class CornerCurve { Circular, Continuous };

// The shape of a rectangle's corners. The radius is in points. It is limited to half of the shorter side.
struct CornerShape {
  double radius = 0;
  CornerCurve curve = CornerCurve::Circular;
  friend bool operator==(const CornerShape&, const CornerShape&) = default;
};

// The maximum distance from the corner of the rectangle at which a rounded corner begins, as a multiple of the radius.
inline constexpr double maxCornerExtent = 1.528665;

// How an image fills a rectangle. The values are those of the platform. Center and the modes after it do not scale the
// image. These modes and AspectFill can draw outside the rectangle; the caller must clip if necessary. Redraw is the
// same as ScaleToFill.
enum class ContentMode {
  ScaleToFill = 0,
  AspectFit = 1,
  AspectFill = 2,
  Redraw = 3,
  Center = 4,
  Top = 5,
  Bottom = 6,
  Left = 7,
  Right = 8,
  TopLeft = 9,
  TopRight = 10,
  BottomLeft = 11,
  BottomRight = 12,
};

// Returns the rectangle that an image of this size in points fills.
Rectangle placeContent(const Size& content, const Rectangle& bounds, ContentMode mode);

class Canvas {
 public:
  // The maximum number of pixels on each side.
  static constexpr double maxSide = 20'000;

  // Creates a transparent canvas. The number of pixels on each side is clamped to the range from 1 to maxSide. The
  // scale is in pixels per point; a scale that is not a positive number is replaced by 1.
  Canvas(const Size& size, double scale);

  double pixelsPerPoint() const { return scale_; }
  int pixelWidth() const;
  int pixelHeight() const;

  // Save and restore the transform and the clip. `restore` without a matching `save` does nothing.
  void save();
  void restore();
  void translate(double x, double y);
  void scale(double x, double y);
  void clipRectangle(const Rectangle& rectangle);
  void clipRoundedRectangle(const Rectangle& rectangle, const CornerShape& corners);
  // The region is in pixels of the canvas, regardless of the transform.
  void clipPixels(const cairo_region_t* region);
  // Begins a layer with this opacity, which is from 0 to 1.
  void beginLayer(double alpha);
  // Ends the innermost layer. Also restores all states that were saved inside the layer. Does nothing if no layer is
  // open.
  void endLayer();

  // Sets all pixels inside the clip to this color, without blending.
  void clear(const Color& color);
  void fillRectangle(const Rectangle& rectangle, const Color& color);
  void fillRoundedRectangle(const Rectangle& rectangle, const CornerShape& corners, const Color& color);
  // Draws a line that ends exactly at the two points, with square ends. The width is in points.
  void strokeLine(const Point& from, const Point& to, double width, const Color& color);
  // Draws nothing if the image is null.
  void drawImage(const Image* image, const Rectangle& rectangle, ContentMode mode);
  void drawImage(const std::shared_ptr<const Image>& image, const Rectangle& rectangle, ContentMode mode) {
    drawImage(image.get(), rectangle, mode);
  }
  // Draws text in the rectangle as TextLayout::draw describes. `color` is the color of runs without a color.
  void drawText(const TextLayout& text, const Rectangle& rectangle, const Color& color);

  // The pixels of the canvas, without open layers. The surface is borrowed.
  cairo_surface_t* surface() const { return base_.get(); }
  // Returns a pixel as premultiplied 0xAARRGGBB. Returns 0 outside the canvas.
  std::uint32_t pixel(int x, int y) const;
  std::vector<std::byte> pixelsAsPng() const;
  // Returns a copy of the pixels.
  std::shared_ptr<const Image> snapshot() const;
  // Returns a copy of some of the pixels as a separate canvas. The pixels of the copy that are outside this canvas are
  // transparent.
  std::shared_ptr<Canvas> copyOf(const PixelRectangle& part) const;

  // The cairo context, for other drawing operations. Its units are points. The context is borrowed.
  cairo_t* context() const { return context_.get(); }
  // Returns the visible content of an area, including open layers at their opacity. Pixels outside the canvas are
  // transparent. The surface can share the canvas's pixels, so the caller must read it before anything else is drawn.
  // Returns null for an empty area.
  SurfaceHandle captureBeneath(const PixelRectangle& area) const;
  // Returns the pixels inside the clip that this rectangle covers at least partly, under the current transform.
  PixelRectangle coveredPixels(const Rectangle& rectangle) const;

 private:
  enum class Saved { State, OpaqueLayer, TransparentLayer };
  struct OpenLayer {
    SurfaceHandle surface;
    double alpha;
  };

  void pop();
  void paintRectangle(const Rectangle& rectangle);
  void paintRoundedRectangle(const Rectangle& given, const CornerShape& corners);
  void setSource(const Image& image, const Rectangle& target);
  // Returns the pixels of the canvas that the rectangle between two corners covers at least partly. The corners are in
  // pixels.
  PixelRectangle pixelsBetween(const Point& from, const Point& to) const;
  // Returns a surface that shares the canvas's pixels. The area must lie inside the canvas.
  SurfaceHandle surfaceOfPixels(const PixelRectangle& area) const;

  SurfaceHandle base_;
  ContextHandle context_;
  double scale_;
  std::vector<Saved> saved_;
  std::vector<OpenLayer> layers_;
};

}  // namespace drawing
