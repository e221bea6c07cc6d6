#include "simulator/drawing/canvas.hpp"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

#include "simulator/drawing/codecs.hpp"
#include "simulator/drawing/corner_path.hpp"
#include "simulator/drawing/image.hpp"
#include "simulator/drawing/text_layout.hpp"

namespace drawing {
namespace {

// The maximum number of pixels of a stored enlarged image: the size of a few screens. An image that is enlarged further
// is filtered again each time it is drawn.
constexpr double maxEnlargedPixels = 8'000'000;

int pixelCount(double points, double scale) {
  const double pixels = std::ceil(points * scale - 1e-6);
  return std::isnan(pixels) ? 1 : static_cast<int>(std::clamp(pixels, 1.0, Canvas::maxSide));
}

void addRectangle(cairo_t* context, const Rectangle& given) {
  const Rectangle rectangle = representable(context, given);
  cairo_rectangle(context, rectangle.x, rectangle.y, rectangle.width, rectangle.height);
}

void setColor(cairo_t* context, const Color& color) {
  cairo_set_source_rgba(context, color.red, color.green, color.blue, color.alpha);
}

bool isDrawable(const Rectangle& rectangle) {
  return rectangle.width > 0 && rectangle.height > 0 && std::isfinite(rectangle.x) && std::isfinite(rectangle.y) &&
         std::isfinite(rectangle.width) && std::isfinite(rectangle.height);
}

bool isWhole(double value) { return value == std::floor(value); }

// Returns whether the clip consists of whole pixels.
bool clipsToWholePixels(cairo_t* context) {
  cairo_matrix_t transform;
  cairo_get_matrix(context, &transform);
  cairo_identity_matrix(context);
  cairo_rectangle_list_t* const list = cairo_copy_clip_rectangle_list(context);
  cairo_set_matrix(context, &transform);
  const std::span<const cairo_rectangle_t> rectangles(list->rectangles, static_cast<std::size_t>(list->num_rectangles));
  const bool isRepresentable = list->status == CAIRO_STATUS_SUCCESS;
  const bool result = isRepresentable && std::ranges::all_of(rectangles, [](const cairo_rectangle_t& part) {
                        return isWhole(part.x) && isWhole(part.y) && isWhole(part.width) && isWhole(part.height);
                      });
  cairo_rectangle_list_destroy(list);
  return result;
}

SurfaceHandle copySurface(cairo_surface_t* source) {
  SurfaceHandle copy(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, cairo_image_surface_get_width(source),
                                                cairo_image_surface_get_height(source)));
  ContextHandle context(cairo_create(copy.get()));
  cairo_set_source_surface(context.get(), source, 0, 0);
  cairo_paint(context.get());
  return copy;
}

}  // namespace

Canvas::Canvas(const Size& size, double scale) : scale_(std::isfinite(scale) && scale > 0 ? scale : 1) {
  base_.reset(
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, pixelCount(size.width, scale_), pixelCount(size.height, scale_)));
  context_.reset(cairo_create(base_.get()));
  cairo_scale(context_.get(), scale_, scale_);
}

int Canvas::pixelWidth() const { return cairo_image_surface_get_width(base_.get()); }
int Canvas::pixelHeight() const { return cairo_image_surface_get_height(base_.get()); }

void Canvas::save() {
  cairo_save(context_.get());
  saved_.push_back(Saved::State);
}

void Canvas::restore() {
  if (!saved_.empty() && saved_.back() == Saved::State) pop();
}

// A transform that is not invertible puts a cairo context permanently into an error state. Content under such a
// transform is invisible, so the canvas sets an empty clip instead.
void Canvas::translate(double x, double y) {
  if (std::isfinite(x) && std::isfinite(y)) {
    cairo_translate(context_.get(), x, y);
  } else {
    clipRectangle({});
  }
}

void Canvas::scale(double x, double y) {
  const auto isInvertible = [](double factor) { return std::isfinite(factor) && std::abs(factor) > 1e-6; };
  if (isInvertible(x) && isInvertible(y)) {
    cairo_scale(context_.get(), x, y);
  } else {
    clipRectangle({});
  }
}

void Canvas::clipRectangle(const Rectangle& rectangle) {
  cairo_new_path(context_.get());
  if (isDrawable(rectangle)) addRectangle(context_.get(), rectangle);
  cairo_clip(context_.get());
}

void Canvas::clipRoundedRectangle(const Rectangle& rectangle, const CornerShape& corners) {
  cairo_new_path(context_.get());
  if (isDrawable(rectangle)) addRoundedRectangle(context_.get(), rectangle, corners);
  cairo_clip(context_.get());
}

void Canvas::clipPixels(const cairo_region_t* region) {
  cairo_matrix_t transform;
  cairo_get_matrix(context_.get(), &transform);
  cairo_identity_matrix(context_.get());
  cairo_new_path(context_.get());
  for (int index = 0; index < cairo_region_num_rectangles(region); ++index) {
    cairo_rectangle_int_t rectangle;
    cairo_region_get_rectangle(region, index, &rectangle);
    cairo_rectangle(context_.get(), rectangle.x, rectangle.y, rectangle.width, rectangle.height);
  }
  cairo_clip(context_.get());
  cairo_set_matrix(context_.get(), &transform);
}

void Canvas::beginLayer(double alpha) {
  if (alpha >= 1) {
    cairo_save(context_.get());
    saved_.push_back(Saved::OpaqueLayer);
    return;
  }
  cairo_push_group(context_.get());
  // The clip is applied when the layer is composited. If the clip were applied twice, antialiased edges would be too
  // transparent.
  cairo_reset_clip(context_.get());
  SurfaceHandle surface(cairo_surface_reference(cairo_get_group_target(context_.get())));
  layers_.push_back({std::move(surface), alpha > 0 ? alpha : 0});
  saved_.push_back(Saved::TransparentLayer);
}

void Canvas::endLayer() {
  const bool isOpen = std::any_of(saved_.begin(), saved_.end(), [](Saved entry) { return entry != Saved::State; });
  if (!isOpen) return;
  while (saved_.back() == Saved::State) pop();
  pop();
}

void Canvas::pop() {
  const Saved entry = saved_.back();
  saved_.pop_back();
  if (entry != Saved::TransparentLayer) {
    cairo_restore(context_.get());
    return;
  }
  PatternHandle content(cairo_pop_group(context_.get()));
  cairo_save(context_.get());
  cairo_set_source(context_.get(), content.get());
  cairo_paint_with_alpha(context_.get(), layers_.back().alpha);
  cairo_restore(context_.get());
  layers_.pop_back();
}

void Canvas::clear(const Color& color) {
  cairo_save(context_.get());
  cairo_set_operator(context_.get(), CAIRO_OPERATOR_SOURCE);
  setColor(context_.get(), color);
  cairo_paint(context_.get());
  cairo_restore(context_.get());
}

void Canvas::fillRectangle(const Rectangle& rectangle, const Color& color) {
  fillRoundedRectangle(rectangle, {}, color);
}

void Canvas::fillRoundedRectangle(const Rectangle& rectangle, const CornerShape& corners, const Color& color) {
  if (!isDrawable(rectangle)) return;
  cairo_save(context_.get());
  setColor(context_.get(), color);
  if (corners.radius > 0) {
    paintRoundedRectangle(rectangle, corners);
  } else {
    paintRectangle(rectangle);
  }
  cairo_restore(context_.get());
}

// Paints the source of the context. Does not use cairo_fill, because that function rounds the coverage of the pixels at
// the edges differently under a clip of several rectangles.
void Canvas::paintRectangle(const Rectangle& rectangle) {
  cairo_new_path(context_.get());
  addRectangle(context_.get(), rectangle);
  cairo_clip(context_.get());
  cairo_paint(context_.get());
}

// Paints the source of the context, at the border through masks. A mask is drawn without a clip, because the clip
// affects the coverage of the pixels where it intersects a curve.
void Canvas::paintRoundedRectangle(const Rectangle& given, const CornerShape& corners) {
  const Rectangle rectangle = representable(context_.get(), given);
  const DividedRectangle parts = divideRoundedRectangle(context_.get(), rectangle, corners);
  cairo_matrix_t transform;
  cairo_get_matrix(context_.get(), &transform);
  cairo_identity_matrix(context_.get());
  for (const PixelRectangle& part : parts.border) {
    const PixelRectangle area = intersection(part, {0, 0, pixelWidth(), pixelHeight()});
    if (area.isEmpty()) continue;
    const SurfaceHandle mask(cairo_image_surface_create(CAIRO_FORMAT_A8, area.width, area.height));
    const ContextHandle context(cairo_create(mask.get()));
    cairo_translate(context.get(), -area.x, -area.y);
    cairo_transform(context.get(), &transform);
    addRoundedRectangle(context.get(), rectangle, corners);
    cairo_fill(context.get());
    cairo_mask_surface(context_.get(), mask.get(), area.x, area.y);
  }
  cairo_new_path(context_.get());
  for (const PixelRectangle& part : parts.inside)
    cairo_rectangle(context_.get(), part.x, part.y, part.width, part.height);
  cairo_clip(context_.get());
  cairo_paint(context_.get());
}

void Canvas::strokeLine(const Point& from, const Point& to, double width, const Color& color) {
  if (!(width > 0)) return;
  cairo_new_path(context_.get());
  cairo_move_to(context_.get(), from.x, from.y);
  cairo_line_to(context_.get(), to.x, to.y);
  cairo_set_line_width(context_.get(), width);
  setColor(context_.get(), color);
  cairo_stroke(context_.get());
}

void Canvas::drawImage(const Image* image, const Rectangle& rectangle, ContentMode mode) {
  if (!image || !isDrawable(rectangle)) return;
  const Rectangle target = placeContent(image->size(), rectangle, mode);
  if (!isDrawable(target)) return;

  cairo_save(context_.get());
  cairo_matrix_t transform;
  cairo_get_matrix(context_.get(), &transform);
  setSource(*image, target);
  cairo_set_matrix(context_.get(), &transform);
  // Repeats the edge pixels outside the image, because otherwise the filter would mix transparent pixels into the edge.
  cairo_pattern_set_extend(cairo_get_source(context_.get()), CAIRO_EXTEND_PAD);
  cairo_new_path(context_.get());
  addRectangle(context_.get(), target);
  cairo_clip(context_.get());
  // Copying is faster than blending. The results are equal if no pixel is partly covered.
  if (image->isOpaque() && clipsToWholePixels(context_.get()))
    cairo_set_operator(context_.get(), CAIRO_OPERATOR_SOURCE);
  cairo_paint(context_.get());
  cairo_restore(context_.get());
}

// Sets the image as the source of drawing. Uses a copy that has the size at which the image is drawn, in pixels, unless
// the copy would be too large. Drawing the copy needs no filter, and its pixels do not depend on the clip.
void Canvas::setSource(const Image& image, const Rectangle& target) {
  double left = target.x, top = target.y, deviceWidth = target.width, deviceHeight = target.height;
  cairo_user_to_device(context_.get(), &left, &top);
  cairo_user_to_device_distance(context_.get(), &deviceWidth, &deviceHeight);
  const double width = std::max(std::round(deviceWidth), 1.0);
  const double height = std::max(std::round(deviceHeight), 1.0);
  const int retainedWidth = image.surfaceWidth();
  const int retainedHeight = image.surfaceHeight();
  const bool isReduced = width < retainedWidth && height < retainedHeight;
  const bool canBeEnlarged = std::max(width, height) <= Canvas::maxSide && width * height <= maxEnlargedPixels;
  if (deviceWidth > 0 && deviceHeight > 0 && (isReduced || canBeEnlarged)) {
    cairo_identity_matrix(context_.get());
    cairo_set_source_surface(context_.get(), image.resizedSurface(static_cast<int>(width), static_cast<int>(height)),
                             std::round(left), std::round(top));
    cairo_pattern_set_filter(cairo_get_source(context_.get()), CAIRO_FILTER_NEAREST);
    return;
  }
  cairo_translate(context_.get(), target.x, target.y);
  cairo_scale(context_.get(), target.width / retainedWidth, target.height / retainedHeight);
  cairo_set_source_surface(context_.get(), image.surface(), 0, 0);
  cairo_pattern_set_filter(cairo_get_source(context_.get()), CAIRO_FILTER_GOOD);
}

void Canvas::drawText(const TextLayout& text, const Rectangle& rectangle, const Color& color) {
  text.draw(*this, rectangle, color);
}

std::uint32_t Canvas::pixel(int x, int y) const {
  if (x < 0 || y < 0 || x >= pixelWidth() || y >= pixelHeight()) return 0;
  cairo_surface_flush(base_.get());
  const unsigned char* row = cairo_image_surface_get_data(base_.get()) +
                             static_cast<std::ptrdiff_t>(y) * cairo_image_surface_get_stride(base_.get());
  return reinterpret_cast<const std::uint32_t*>(row)[x];
}

std::vector<std::byte> Canvas::pixelsAsPng() const { return encodePng(base_.get()); }

std::shared_ptr<const Image> Canvas::snapshot() const { return Image::fromSurface(copySurface(base_.get()), scale_); }

std::shared_ptr<Canvas> Canvas::copyOf(const PixelRectangle& part) const {
  auto copy = std::make_shared<Canvas>(Size{part.width / scale_, part.height / scale_}, scale_);
  ContextHandle context(cairo_create(copy->surface()));
  cairo_set_operator(context.get(), CAIRO_OPERATOR_SOURCE);
  cairo_set_source_surface(context.get(), base_.get(), -part.x, -part.y);
  cairo_paint(context.get());
  return copy;
}

SurfaceHandle Canvas::surfaceOfPixels(const PixelRectangle& area) const {
  cairo_surface_flush(base_.get());
  const int stride = cairo_image_surface_get_stride(base_.get());
  unsigned char* first = cairo_image_surface_get_data(base_.get()) + static_cast<std::ptrdiff_t>(area.y) * stride +
                         static_cast<std::ptrdiff_t>(area.x) * 4;
  return SurfaceHandle(
      cairo_image_surface_create_for_data(first, CAIRO_FORMAT_ARGB32, area.width, area.height, stride));
}

SurfaceHandle Canvas::captureBeneath(const PixelRectangle& area) const {
  if (area.isEmpty()) return nullptr;
  if (layers_.empty() && intersection(area, {0, 0, pixelWidth(), pixelHeight()}) == area) return surfaceOfPixels(area);
  SurfaceHandle capture(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, area.width, area.height));
  ContextHandle context(cairo_create(capture.get()));
  cairo_set_operator(context.get(), CAIRO_OPERATOR_SOURCE);
  cairo_set_source_surface(context.get(), base_.get(), -area.x, -area.y);
  cairo_paint(context.get());
  cairo_set_operator(context.get(), CAIRO_OPERATOR_OVER);
  // The layer's position on the canvas is stored in the device offset of its surface, which cairo applies here.
  for (const OpenLayer& layer : layers_) {
    cairo_set_source_surface(context.get(), layer.surface.get(), -area.x, -area.y);
    cairo_paint_with_alpha(context.get(), layer.alpha);
  }
  cairo_surface_flush(capture.get());
  return capture;
}

PixelRectangle Canvas::coveredPixels(const Rectangle& rectangle) const {
  if (!isDrawable(rectangle)) return {};
  cairo_save(context_.get());
  cairo_new_path(context_.get());
  addRectangle(context_.get(), rectangle);
  cairo_clip(context_.get());
  cairo_identity_matrix(context_.get());
  double left = 0, top = 0, right = 0, bottom = 0;
  cairo_clip_extents(context_.get(), &left, &top, &right, &bottom);
  cairo_restore(context_.get());
  return pixelsBetween({left, top}, {right, bottom});
}

PixelRectangle Canvas::pixelsBetween(const Point& from, const Point& to) const {
  const auto first = [](double edge, int limit) {
    return static_cast<int>(std::clamp(std::floor(edge), 0.0, 1.0 * limit));
  };
  const auto last = [](double edge, int limit) {
    return static_cast<int>(std::clamp(std::ceil(edge), 0.0, 1.0 * limit));
  };
  const int x = first(from.x, pixelWidth()), y = first(from.y, pixelHeight());
  return {x, y, last(to.x, pixelWidth()) - x, last(to.y, pixelHeight()) - y};
}

}  // namespace drawing
