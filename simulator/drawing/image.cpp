#include "simulator/drawing/image.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <utility>

#include "simulator/drawing/codecs.hpp"
#include "simulator/drawing/files.hpp"

namespace drawing {
namespace {

// The maximum width and height of an image, in pixels. This is the limit of cairo.
constexpr std::int64_t maxSide = 32'767;

constexpr double maxRetainedPixels = 4'000'000;

constexpr std::byte jpegStart[] = {std::byte{0xFF}, std::byte{0xD8}, std::byte{0xFF}};
constexpr std::byte pngStart[] = {std::byte{0x89}, std::byte{'P'}, std::byte{'N'}, std::byte{'G'}};

bool startsWith(std::span<const std::byte> data, std::span<const std::byte> start) {
  return data.size() >= start.size() && std::equal(start.begin(), start.end(), data.begin());
}

// The maximum number of pixels of a resized image for which the previous size is also cached.
constexpr int maxPixelsOfTwoSizes = 200 * 200;

bool hasSize(cairo_surface_t* surface, int width, int height) {
  return surface != nullptr && cairo_image_surface_get_width(surface) == width &&
         cairo_image_surface_get_height(surface) == height;
}

bool hasPixels(cairo_surface_t* surface) {
  return surface && cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS &&
         cairo_surface_get_type(surface) == CAIRO_SURFACE_TYPE_IMAGE && cairo_image_surface_get_width(surface) > 0 &&
         cairo_image_surface_get_height(surface) > 0;
}

bool hasTransparentPixel(cairo_surface_t* surface) {
  constexpr std::uint32_t opaque = 0xFF000000;
  const int width = cairo_image_surface_get_width(surface);
  const unsigned char* row = cairo_image_surface_get_data(surface);
  for (int y = 0; y < cairo_image_surface_get_height(surface); ++y, row += cairo_image_surface_get_stride(surface)) {
    const auto* pixels = reinterpret_cast<const std::uint32_t*>(row);
    if (std::any_of(pixels, pixels + width, [](std::uint32_t pixel) { return pixel < opaque; })) return true;
  }
  return false;
}

// Returns a copy of the surface, converted to ARGB32 and scaled to this size.
SurfaceHandle resizedCopy(cairo_surface_t* source, int width, int height) {
  SurfaceHandle copy(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
  ContextHandle context(cairo_create(copy.get()));
  cairo_scale(context.get(), static_cast<double>(width) / cairo_image_surface_get_width(source),
              static_cast<double>(height) / cairo_image_surface_get_height(source));
  cairo_set_source_surface(context.get(), source, 0, 0);
  cairo_pattern_set_filter(cairo_get_source(context.get()), CAIRO_FILTER_GOOD);
  cairo_pattern_set_extend(cairo_get_source(context.get()), CAIRO_EXTEND_PAD);
  cairo_set_operator(context.get(), CAIRO_OPERATOR_SOURCE);
  cairo_paint(context.get());
  cairo_surface_flush(copy.get());
  return copy;
}

}  // namespace

bool isAcceptableSize(std::int64_t width, std::int64_t height) {
  return width > 0 && height > 0 && width <= maxSide && height <= maxSide && width * height <= maxImagePixels;
}

Image::Image(SurfaceHandle surface, double scale, std::string name)
    : surface_(std::move(surface)),
      pixelWidth_(cairo_image_surface_get_width(surface_.get())),
      pixelHeight_(cairo_image_surface_get_height(surface_.get())),
      surfaceWidth_(pixelWidth_),
      surfaceHeight_(pixelHeight_),
      scale_(std::isfinite(scale) && scale > 0 ? scale : 1),
      name_(std::move(name)) {}

Image::Image(std::filesystem::path file, int width, int height, double scale)
    : pixelWidth_(width),
      pixelHeight_(height),
      surfaceWidth_(width),
      surfaceHeight_(height),
      scale_(std::isfinite(scale) && scale > 0 ? scale : 1),
      name_(file.string()),
      file_(std::move(file)) {}

std::shared_ptr<const Image> Image::fromInstalledFile(const std::filesystem::path& path, double scale) {
  std::ifstream file(path, std::ios::binary);
  std::array<char, pngHeaderSize> header{};
  if (!file.read(header.data(), header.size())) return nullptr;
  const std::optional<PixelSize> size = pngSize(std::as_bytes(std::span(header)));
  if (!size) return nullptr;
  return std::shared_ptr<const Image>(new Image(path, size->width, size->height, scale));
}

cairo_surface_t* Image::surface() const {
  if (surface_ == nullptr) {
    surface_ = decodePng(readRegularFile(file_));
    const bool isExpected = hasPixels(surface_.get()) && hasSize(surface_.get(), surfaceWidth_, surfaceHeight_);
    if (!isExpected)
      surface_.reset(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, surfaceWidth_, surfaceHeight_));
    else if (cairo_image_surface_get_format(surface_.get()) != CAIRO_FORMAT_ARGB32)
      surface_ = resizedCopy(surface_.get(), surfaceWidth_, surfaceHeight_);
    cairo_surface_flush(surface_.get());
  }
  return surface_.get();
}

std::shared_ptr<const Image> Image::fromSurface(SurfaceHandle surface, double scale, std::string name) {
  if (!hasPixels(surface.get())) return nullptr;
  if (cairo_image_surface_get_format(surface.get()) != CAIRO_FORMAT_ARGB32) {
    surface = resizedCopy(surface.get(), cairo_image_surface_get_width(surface.get()),
                          cairo_image_surface_get_height(surface.get()));
    if (!hasPixels(surface.get())) return nullptr;
  }
  cairo_surface_flush(surface.get());
  return std::shared_ptr<const Image>(new Image(std::move(surface), scale, std::move(name)));
}

std::shared_ptr<const Image> Image::fromFile(SurfaceHandle surface, double scale, std::string name) {
  if (!hasPixels(surface.get())) return nullptr;
  const int width = cairo_image_surface_get_width(surface.get());
  const int height = cairo_image_surface_get_height(surface.get());
  const double factor = std::sqrt(maxRetainedPixels / (static_cast<double>(width) * height));
  if (factor >= 1) return fromSurface(std::move(surface), scale, std::move(name));
  const auto reduced = [factor](int side) { return std::max(1, static_cast<int>(side * factor)); };
  surface = resizedCopy(surface.get(), reduced(width), reduced(height));
  if (!hasPixels(surface.get())) return nullptr;
  auto* const image = new Image(std::move(surface), scale, std::move(name));
  image->pixelWidth_ = width;
  image->pixelHeight_ = height;
  return std::shared_ptr<const Image>(image);
}

std::shared_ptr<const Image> Image::named(std::string name) const {
  SurfaceHandle shared(cairo_surface_reference(surface()));
  auto* const image = new Image(std::move(shared), scale_, std::move(name));
  image->pixelWidth_ = pixelWidth_;
  image->pixelHeight_ = pixelHeight_;
  return std::shared_ptr<const Image>(image);
}

bool Image::isOpaque() const {
  if (opacity_ == Opacity::Unknown) {
    cairo_surface_t* const pixels = surface_ != nullptr ? surface_.get() : resized_.get();
    if (pixels == nullptr) return false;
    opacity_ = hasTransparentPixel(pixels) ? Opacity::Transparent : Opacity::Opaque;
  }
  return opacity_ == Opacity::Opaque;
}

std::uint32_t Image::pixel(int x, int y) const {
  if (x < 0 || y < 0 || x >= pixelWidth_ || y >= pixelHeight_) return 0;
  const auto retained = [](int position, int count, int all) {
    return static_cast<std::int64_t>(position) * count / all;
  };
  const std::int64_t column = retained(x, surfaceWidth_, pixelWidth_);
  const std::int64_t line = retained(y, surfaceHeight_, pixelHeight_);
  const unsigned char* row = cairo_image_surface_get_data(surface()) + line * cairo_image_surface_get_stride(surface());
  return reinterpret_cast<const std::uint32_t*>(row)[column];
}

cairo_surface_t* Image::resizedSurface(int width, int height) const {
  if (width == surfaceWidth_ && height == surfaceHeight_) return surface();
  if (hasSize(resized_.get(), width, height)) return resized_.get();
  std::swap(resized_, previous_);
  if (hasSize(resized_.get(), width, height)) return resized_.get();
  if (width * height > maxPixelsOfTwoSizes) previous_.reset();
  resized_ = resizedCopy(surface(), width, height);
  if (!file_.empty()) surface_.reset();
  return resized_.get();
}

std::shared_ptr<const Image> decodeImage(std::span<const std::byte> data, double scale, std::string name) {
  if (startsWith(data, pngStart)) return Image::fromFile(decodePng(data), scale, std::move(name));
  if (startsWith(data, jpegStart)) return Image::fromFile(decodeJpeg(data), scale, std::move(name));
  return nullptr;
}

std::vector<std::byte> encodePng(const Image& image) { return encodePng(image.surface()); }

std::vector<std::byte> encodeJpeg(const Image& image, double quality) {
  const double clamped = std::isnan(quality) ? 1 : std::clamp(quality, 0.0, 1.0);
  return encodeJpeg(image.surface(), static_cast<int>(std::lround(clamped * 100)));
}

}  // namespace drawing
