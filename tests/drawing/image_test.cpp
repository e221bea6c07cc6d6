#include "simulator/drawing/image.hpp"

#include <sys/resource.h>
#include <zlib.h>

#include <cmath>
#include <limits>

#include <cstdio>
// <jpeglib.h> uses declarations of <cstdio>, so it is included after <cstdio>.
#include <jpeglib.h>

#include "tests/drawing/test_images.hpp"

namespace drawing {
namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

std::string bigEndianText(std::uint32_t number) {
  std::string text;
  for (int shift = 24; shift >= 0; shift -= 8) text += static_cast<char>(number >> shift & 0xFF);
  return text;
}

// The header of a PNG of this size, without image data.
std::vector<std::byte> pngHeader(std::uint32_t width, std::uint32_t height) {
  std::string header("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR", 16);
  header += bigEndianText(width) + bigEndianText(height);
  header += std::string("\x08\x06\0\0\0\0\0\0\0", 9);
  return bytesOf(header);
}

// A JPEG whose frame header declares this size instead of its real one.
std::vector<std::byte> jpegDeclaring(std::uint16_t width, std::uint16_t height) {
  std::vector<std::byte> jpeg = encodeJpeg(*quarteredImage(16), 0.9);
  for (std::size_t index = 0; index + 9 < jpeg.size(); ++index) {
    if (jpeg[index] != std::byte{0xFF} || jpeg[index + 1] != std::byte{0xC0}) continue;
    jpeg[index + 5] = static_cast<std::byte>(height >> 8);
    jpeg[index + 6] = static_cast<std::byte>(height & 0xFF);
    jpeg[index + 7] = static_cast<std::byte>(width >> 8);
    jpeg[index + 8] = static_cast<std::byte>(width & 0xFF);
    break;
  }
  return jpeg;
}

// A JPEG of one CMYK color. The components are inverted, as is usual in files for print.
std::vector<std::byte> cmykJpeg(const unsigned char (&components)[4]) {
  jpeg_compress_struct codec{};
  jpeg_error_mgr errors{};
  codec.err = jpeg_std_error(&errors);
  jpeg_create_compress(&codec);
  unsigned char* data = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&codec, &data, &size);
  codec.image_width = codec.image_height = 8;
  codec.input_components = 4;
  codec.in_color_space = JCS_CMYK;
  jpeg_set_defaults(&codec);
  jpeg_set_quality(&codec, 100, TRUE);
  jpeg_start_compress(&codec, TRUE);
  unsigned char row[8 * 4];
  for (int index = 0; index < 8 * 4; ++index) row[index] = components[index % 4];
  for (JSAMPROW rows = row; codec.next_scanline < 8;) jpeg_write_scanlines(&codec, &rows, 1);
  jpeg_finish_compress(&codec);
  jpeg_destroy_compress(&codec);
  const auto* bytes = reinterpret_cast<const std::byte*>(data);
  std::vector<std::byte> result(bytes, bytes + size);
  std::free(data);
  return result;
}

// A progressive gray JPEG with 127 scans.
std::vector<std::byte> jpegWithManyScans(unsigned side) {
  std::vector<jpeg_scan_info> scans = {{1, {0}, 0, 0, 0, 0}};
  for (const auto& [high, low] : {std::pair{0, 1}, {1, 0}})
    for (int band = 1; band < 64; ++band) scans.push_back({1, {0}, band, band, high, low});
  jpeg_compress_struct codec{};
  jpeg_error_mgr errors{};
  codec.err = jpeg_std_error(&errors);
  jpeg_create_compress(&codec);
  unsigned char* data = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&codec, &data, &size);
  codec.image_width = codec.image_height = side;
  codec.input_components = 1;
  codec.in_color_space = JCS_GRAYSCALE;
  jpeg_set_defaults(&codec);
  codec.scan_info = scans.data();
  codec.num_scans = static_cast<int>(scans.size());
  jpeg_start_compress(&codec, TRUE);
  std::vector<unsigned char> row(side, 128);
  for (JSAMPROW rows = row.data(); codec.next_scanline < side;) jpeg_write_scanlines(&codec, &rows, 1);
  jpeg_finish_compress(&codec);
  jpeg_destroy_compress(&codec);
  const auto* bytes = reinterpret_cast<const std::byte*>(data);
  std::vector<std::byte> result(bytes, bytes + size);
  std::free(data);
  return result;
}

// A PNG chunk of compressed text that expands to seven megabytes.
std::vector<std::byte> compressedTextChunk() {
  const std::string text(7'000'000, ' ');
  std::string compressed(compressBound(text.size()), '\0');
  uLongf size = compressed.size();
  compress(reinterpret_cast<Bytef*>(compressed.data()), &size, reinterpret_cast<const Bytef*>(text.data()),
           text.size());
  const std::string content = std::string("zTXtword\0\0", 10) + compressed.substr(0, size);
  const auto checksum = crc32(0, reinterpret_cast<const Bytef*>(content.data()), static_cast<uInt>(content.size()));
  return bytesOf(bigEndianText(static_cast<std::uint32_t>(content.size() - 4)) + content +
                 bigEndianText(static_cast<std::uint32_t>(checksum)));
}

long peakMemoryInKilobytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

TEST(Image, SizeIsInPoints) {
  const auto image = quarteredImage(30, 3);
  EXPECT_EQ(image->pixelWidth(), 30);
  EXPECT_EQ(image->size(), (Size{10, 10}));
}

TEST(Image, InvalidScaleIsOne) {
  for (const double scale : {0.0, -2.0, notANumber}) EXPECT_EQ(quarteredImage(4, scale)->scale(), 1);
}

TEST(Image, InvalidSurfaceGivesNoImage) {
  EXPECT_EQ(Image::fromSurface(nullptr, 1), nullptr);
  SurfaceHandle failed(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, -1, 5));
  EXPECT_EQ(Image::fromSurface(std::move(failed), 1), nullptr);
}

TEST(Image, NamedCopySharesThePixels) {
  const auto image = quarteredImage(4);
  const auto named = image->named("mail");
  EXPECT_EQ(named->name(), "mail");
  EXPECT_EQ(named->surface(), image->surface());
  EXPECT_EQ(image->name(), "");
}

TEST(Image, PixelOutsideTheImageIsTransparent) {
  const auto image = quarteredImage(4);
  EXPECT_EQ(image->pixel(0, 0), 0xFFFF0000);
  EXPECT_EQ(image->pixel(-1, 0), 0U);
  EXPECT_EQ(image->pixel(0, 4), 0U);
}

TEST(Png, RoundTripIsLossless) {
  const auto image = quarteredImage(8);
  const auto decoded = decodeImage(encodePng(*image), 2, "icon");
  ASSERT_NE(decoded, nullptr);
  EXPECT_EQ(decoded->scale(), 2);
  EXPECT_EQ(decoded->name(), "icon");
  for (int y = 0; y < 8; ++y) {
    for (int x = 0; x < 8; ++x) EXPECT_EQ(decoded->pixel(x, y), image->pixel(x, y));
  }
}

TEST(Png, IsOpaqueWithoutAnAlphaChannel) {
  SurfaceHandle opaque(cairo_image_surface_create(CAIRO_FORMAT_RGB24, 2, 2));
  const auto decoded = decodeImage(encodePng(*Image::fromSurface(std::move(opaque), 1)));
  ASSERT_NE(decoded, nullptr);
  EXPECT_EQ(decoded->pixel(1, 1), 0xFF000000);
}

TEST(Png, TruncatedDataIsRejected) {
  const std::vector<std::byte> whole = encodePng(*quarteredImage(8));
  for (std::size_t length = 0; length < whole.size(); ++length) {
    EXPECT_EQ(decodeImage(std::span(whole).first(length)), nullptr) << length;
  }
}

TEST(Png, DamagedDataNeverCrashes) {
  const std::vector<std::byte> whole = encodePng(*quarteredImage(8));
  for (std::size_t index = 0; index < whole.size(); ++index) {
    std::vector<std::byte> damaged = whole;
    damaged[index] ^= std::byte{0x55};
    const auto image = decodeImage(damaged);
    EXPECT_TRUE(!image || image->pixelWidth() == 8) << index;
  }
}

TEST(Png, TooManyPixelsAreRejected) {
  EXPECT_EQ(decodeImage(pngHeader(30'000, 30'000)), nullptr);
  EXPECT_EQ(decodeImage(pngHeader(0xFFFFFFFF, 0xFFFFFFFF)), nullptr);
  EXPECT_EQ(decodeImage(pngHeader(40'000, 1)), nullptr);
  EXPECT_EQ(decodeImage(pngHeader(0, 10)), nullptr);
}

TEST(Png, CompressedTextIsNotExpandedInMemory) {
  constexpr int count = 60;
  constexpr std::ptrdiff_t endOfHeader = 33;
  std::vector<std::byte> png = encodePng(*quarteredImage(8));
  const std::vector<std::byte> chunk = compressedTextChunk();
  for (int index = 0; index < count; ++index) png.insert(png.begin() + endOfHeader, chunk.begin(), chunk.end());
  const long before = peakMemoryInKilobytes();
  EXPECT_NE(decodeImage(png), nullptr);
  EXPECT_LT(peakMemoryInKilobytes() - before, 100'000);
}

TEST(Jpeg, RoundTripIsNearlyLossless) {
  const auto image = quarteredImage(32);
  const auto decoded = decodeImage(encodeJpeg(*image, 1), 3);
  ASSERT_NE(decoded, nullptr);
  EXPECT_EQ(decoded->pixelWidth(), 32);
  EXPECT_EQ(decoded->scale(), 3);
  EXPECT_NEAR(redOf(decoded->pixel(4, 4)), 255, 6);
  EXPECT_NEAR(greenOf(decoded->pixel(28, 4)), 255, 6);
  EXPECT_NEAR(blueOf(decoded->pixel(4, 28)), 255, 6);
  EXPECT_EQ(alphaOf(decoded->pixel(4, 4)), 255);
}

TEST(Jpeg, TransparencyBecomesWhite) {
  const auto decoded = decodeImage(encodeJpeg(*Canvas({8, 8}, 1).snapshot(), 1));
  ASSERT_NE(decoded, nullptr);
  EXPECT_EQ(decoded->pixel(4, 4), 0xFFFFFFFF);
}

TEST(Jpeg, QualityIsClamped) {
  const auto image = quarteredImage(64);
  EXPECT_EQ(encodeJpeg(*image, 100), encodeJpeg(*image, 1));
  EXPECT_EQ(encodeJpeg(*image, notANumber), encodeJpeg(*image, 1));
  EXPECT_EQ(encodeJpeg(*image, -3), encodeJpeg(*image, 0));
  EXPECT_LT(encodeJpeg(*image, 0).size(), encodeJpeg(*image, 1).size());
}

TEST(Jpeg, TruncatedDataIsRejected) {
  const std::vector<std::byte> whole = encodeJpeg(*quarteredImage(32), 0.8);
  for (std::size_t length = 0; length < whole.size(); ++length) {
    EXPECT_EQ(decodeImage(std::span(whole).first(length)), nullptr) << length;
  }
}

TEST(Jpeg, DamagedDataNeverCrashes) {
  const std::vector<std::byte> whole = encodeJpeg(*quarteredImage(32), 0.8);
  for (std::size_t index = 0; index < whole.size(); ++index) {
    std::vector<std::byte> damaged = whole;
    damaged[index] ^= std::byte{0x81};
    const auto image = decodeImage(damaged);
    EXPECT_TRUE(!image || image->pixelWidth() <= 65'535) << index;
  }
}

TEST(Jpeg, TooManyPixelsAreRejected) { EXPECT_EQ(decodeImage(jpegDeclaring(30'000, 30'000)), nullptr); }

TEST(Jpeg, MissingRowsAreRejected) { EXPECT_EQ(decodeImage(jpegDeclaring(16, 4000)), nullptr); }

TEST(Jpeg, LargeImageWithManyScansIsRejected) {
  EXPECT_NE(decodeImage(jpegWithManyScans(512)), nullptr);
  EXPECT_EQ(decodeImage(jpegWithManyScans(4096)), nullptr);
}

TEST(Jpeg, CmykIsConvertedToRgb) {
  const auto decoded = decodeImage(cmykJpeg({255, 0, 0, 255}));
  ASSERT_NE(decoded, nullptr);
  EXPECT_NEAR(redOf(decoded->pixel(3, 3)), 255, 2);
  EXPECT_NEAR(greenOf(decoded->pixel(3, 3)), 0, 2);
  EXPECT_EQ(alphaOf(decoded->pixel(3, 3)), 255);
}

TEST(DecodeImage, RejectsDataThatIsNotAnImage) {
  EXPECT_EQ(decodeImage({}), nullptr);
  EXPECT_EQ(decodeImage(bytesOf("<html>not found</html>")), nullptr);
  EXPECT_EQ(decodeImage(bytesOf("\x89PNG")), nullptr);
  EXPECT_EQ(decodeImage(bytesOf("\xFF\xD8\xFF")), nullptr);
  EXPECT_EQ(decodeImage(bytesOf("GIF89a........")), nullptr);
}

}  // namespace
}  // namespace drawing
