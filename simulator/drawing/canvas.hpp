// A surface of pixels that is drawn on in points. Used on one thread at a time.
//
// Layers: what is drawn between beginLayer and endLayer is shown together at the layer's opacity. Only a layer that is
// partly transparent gets pixels of its own; an opaque one draws straight onto what lies beneath. captureBeneath sees
// through all of them, so that a backdrop blurs the same content inside a layer as outside.
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

// Radius in points; larger than half the shorter side it becomes that half.
struct CornerShape {
  double radius = 0;
  CornerCurve curve = CornerCurve::Circular;
  friend bool operator==(const CornerShape&, const CornerShape&) = default;
};

// How a picture fills its rectangle, with the platform's numbers. The modes from Center on keep its size, and
// AspectFill and they may draw outside the rectangle: clip where that is unwanted. Redraw is ScaleToFill.
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

// Where a picture of this size in points goes.
Rectangle placeContent(const Size& content, const Rectangle& bounds, ContentMode mode);

class Canvas {
 public:
  // Transparent at first. Each side has at least one pixel and at most 16,384; a scale that is not a positive number
  // counts as 1.
  Canvas(const Size& size, double scale);

  double pixelsPerPoint() const { return scale_; }
  int pixelWidth() const;
  int pixelHeight() const;

  // State: transform and clip. A restore or endLayer without its beginning does nothing.
  void save();
  void restore();
  void translate(double x, double y);
  void scale(double x, double y);
  void clipRectangle(const Rectangle& rectangle);
  void clipRoundedRectangle(const Rectangle& rectangle, const CornerShape& corners);
  // In pixels of the canvas, whatever the transform.
  void clipPixels(const cairo_region_t* region);
  // Opacity from 0 to 1. Ends also what was saved inside and not restored.
  void beginLayer(double alpha);
  void endLayer();

  // Every pixel inside the clip becomes this color, whatever was there.
  void clear(const Color& color);
  void fillRectangle(const Rectangle& rectangle, const Color& color);
  void fillRoundedRectangle(const Rectangle& rectangle, const CornerShape& corners, const Color& color);
  // With flat ends.
  void strokeLine(const Point& from, const Point& to, double width, const Color& color);
  // Draws nothing where there is no image.
  void drawImage(const Image* image, const Rectangle& rectangle, ContentMode mode);
  void drawImage(const std::shared_ptr<const Image>& image, const Rectangle& rectangle, ContentMode mode) {
    drawImage(image.get(), rectangle, mode);
  }
  // As TextLayout::draw.
  void drawText(const TextLayout& text, const Rectangle& rectangle, const Color& color);

  // The pixels, borrowed. Open layers are not in it yet.
  cairo_surface_t* surface() const { return base_.get(); }
  // Premultiplied 0xAARRGGBB; 0 outside.
  std::uint32_t pixel(int x, int y) const;
  std::vector<std::byte> pixelsAsPng() const;
  // A copy of the pixels.
  std::shared_ptr<const Image> snapshot() const;
  // The same for a part, on a canvas of its own; transparent where it reaches beyond this one.
  std::shared_ptr<Canvas> copyOf(const PixelRectangle& part) const;

  // Borrowed, for those that draw with cairo themselves; its units are points.
  cairo_t* context() const { return context_.get(); }
  // What is to be seen so far, open layers at their opacity included, in pixels of the canvas; outside the canvas it is
  // transparent. To be read before anything else is drawn: it may be the canvas's own pixels. Null for an empty
  // rectangle.
  SurfaceHandle captureBeneath(const PixelRectangle& area) const;
  // The pixels that this rectangle of points covers under the present transform, and the clip leaves.
  PixelRectangle coveredPixels(const Rectangle& rectangle) const;

 private:
  enum class Saved { State, OpaqueLayer, TransparentLayer };
  struct OpenLayer {
    SurfaceHandle surface;
    double alpha;
  };

  void pop();
  void setSource(const Image& image, const Rectangle& place);
  // The canvas's own pixels of an area that lies in it.
  SurfaceHandle lend(const PixelRectangle& area) const;

  SurfaceHandle base_;
  ContextHandle context_;
  double scale_;
  std::vector<Saved> saved_;
  std::vector<OpenLayer> layers_;
};

}  // namespace drawing
