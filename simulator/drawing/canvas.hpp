// A pixel surface with drawing functions. Coordinates are in points unless a name says pixels. A rectangle that is
// empty or contains a number that is not finite draws nothing. Used by one thread at a time.
//
// Layers: everything drawn between beginLayer and endLayer is composited with the layer's opacity. Only a layer that is
// not opaque has separate pixels. captureBeneath composites all open layers, so a material has the same backdrop inside
// and outside of a layer.
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

// The radius in points. It is limited to half of the shorter side.
struct CornerShape {
  double radius = 0;
  CornerCurve curve = CornerCurve::Circular;
  friend bool operator==(const CornerShape&, const CornerShape&) = default;
};

// How an image fills a rectangle, with the platform's numbers. Center and the modes after it do not scale the image.
// These modes and AspectFill can draw outside the rectangle; the caller must clip if necessary. Redraw is the same as
// ScaleToFill.
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

// The rectangle that an image of this size in points fills.
Rectangle placeContent(const Size& content, const Rectangle& bounds, ContentMode mode);

class Canvas {
 public:
  // Creates a transparent canvas. Each side has from 1 to 16,384 pixels. The scale is in pixels per point; a scale that
  // is not a positive number is replaced by 1.
  Canvas(const Size& size, double scale);

  double pixelsPerPoint() const { return scale_; }
  int pixelWidth() const;
  int pixelHeight() const;

  // Save and restore the transform and the clip. A restore or endLayer without a matching begin does nothing.
  void save();
  void restore();
  void translate(double x, double y);
  void scale(double x, double y);
  void clipRectangle(const Rectangle& rectangle);
  void clipRoundedRectangle(const Rectangle& rectangle, const CornerShape& corners);
  // The region is in pixels of the canvas, regardless of the transform.
  void clipPixels(const cairo_region_t* region);
  // Opacity from 0 to 1.
  void beginLayer(double alpha);
  // Also restores states that were saved inside the layer and not restored.
  void endLayer();

  // Sets all pixels inside the clip to this color, without blending.
  void clear(const Color& color);
  void fillRectangle(const Rectangle& rectangle, const Color& color);
  void fillRoundedRectangle(const Rectangle& rectangle, const CornerShape& corners, const Color& color);
  // The line ends exactly at the points, with straight edges.
  void strokeLine(const Point& from, const Point& to, double width, const Color& color);
  // A null image draws nothing.
  void drawImage(const Image* image, const Rectangle& rectangle, ContentMode mode);
  void drawImage(const std::shared_ptr<const Image>& image, const Rectangle& rectangle, ContentMode mode) {
    drawImage(image.get(), rectangle, mode);
  }
  // Calls TextLayout::draw.
  void drawText(const TextLayout& text, const Rectangle& rectangle, const Color& color);

  // The pixels, without open layers. Borrowed.
  cairo_surface_t* surface() const { return base_.get(); }
  // Premultiplied 0xAARRGGBB; 0 outside the canvas.
  std::uint32_t pixel(int x, int y) const;
  std::vector<std::byte> pixelsAsPng() const;
  // A copy of the pixels.
  std::shared_ptr<const Image> snapshot() const;
  // A copy of some of the pixels as a separate canvas. Pixels outside this canvas are transparent.
  std::shared_ptr<Canvas> copyOf(const PixelRectangle& part) const;

  // The cairo context, for other drawing operations. Its units are points. Borrowed.
  cairo_t* context() const { return context_.get(); }
  // The visible content of an area, including open layers at their opacity. Pixels outside the canvas are transparent.
  // The surface may share the canvas's pixels, so it must be read before anything else is drawn. Null for an empty
  // area.
  SurfaceHandle captureBeneath(const PixelRectangle& area) const;
  // The pixels inside the clip that this rectangle covers at least partly, under the current transform.
  PixelRectangle coveredPixels(const Rectangle& rectangle) const;

 private:
  enum class Saved { State, OpaqueLayer, TransparentLayer };
  struct OpenLayer {
    SurfaceHandle surface;
    double alpha;
  };

  void pop();
  void setSource(const Image& image, const Rectangle& target);
  // A surface that shares the canvas's pixels. The area must lie inside the canvas.
  SurfaceHandle surfaceOfPixels(const PixelRectangle& area) const;

  SurfaceHandle base_;
  ContextHandle context_;
  double scale_;
  std::vector<Saved> saved_;
  std::vector<OpenLayer> layers_;
};

}  // namespace drawing
