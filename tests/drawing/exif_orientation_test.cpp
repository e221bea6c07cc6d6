#include "simulator/drawing/exif_orientation.hpp"

#include <array>

#include "simulator/drawing/canvas.hpp"
#include "tests/drawing/test_images.hpp"

namespace drawing {
namespace {

using Bytes = std::vector<std::byte>;

enum class ByteOrder { Little, Big };

void append(Bytes& bytes, std::uint32_t value, std::size_t size, ByteOrder order) {
  for (std::size_t index = 0; index < size; ++index) {
    const std::size_t shift = 8 * (order == ByteOrder::Little ? index : size - 1 - index);
    bytes.push_back(static_cast<std::byte>(value >> shift & 0xFF));
  }
}

// An EXIF segment with two entries. The second entry is the orientation.
Bytes exifSegment(std::uint32_t orientation, ByteOrder order, std::uint32_t type = 3,
                  std::uint32_t directoryOffset = 8) {
  Bytes bytes = bytesOf("Exif");
  bytes.resize(6);
  for (const char letter : std::string_view(order == ByteOrder::Little ? "II" : "MM"))
    bytes.push_back(static_cast<std::byte>(letter));
  append(bytes, 42, 2, order);
  append(bytes, directoryOffset, 4, order);
  append(bytes, 2, 2, order);
  for (const auto& [tag, value] : {std::pair{0x0100U, 640U}, {0x0112U, orientation}}) {
    append(bytes, tag, 2, order);
    append(bytes, type, 2, order);
    append(bytes, 1, 4, order);
    append(bytes, value, 2, order);
    append(bytes, 0, 2, order);
  }
  append(bytes, 0, 4, order);
  return bytes;
}

// A JPEG of 48 by 32 pixels with this EXIF segment. The left half is red, the right half blue; the upper half is
// brighter than the lower one.
Bytes jpegWithMetadata(const Bytes& metadata) {
  Canvas canvas({48, 32}, 1);
  canvas.fillRectangle({0, 0, 24, 16}, {1, 0, 0, 1});
  canvas.fillRectangle({24, 0, 24, 16}, {0, 0, 1, 1});
  canvas.fillRectangle({0, 16, 24, 16}, {0.4, 0, 0, 1});
  canvas.fillRectangle({24, 16, 24, 16}, {0, 0, 0.4, 1});
  Bytes file = encodeJpeg(*canvas.snapshot(), 1);
  Bytes marker = {std::byte{0xFF}, std::byte{0xE1}};
  append(marker, static_cast<std::uint32_t>(metadata.size() + 2), 2, ByteOrder::Big);
  marker.insert(marker.end(), metadata.begin(), metadata.end());
  file.insert(file.begin() + 2, marker.begin(), marker.end());
  return file;
}

char colorLetter(std::uint32_t pixel) {
  const std::uint32_t red = pixel >> 16 & 0xFF;
  const std::uint32_t blue = pixel & 0xFF;
  if (red > blue) return red > 180 ? 'R' : 'r';
  return blue > 180 ? 'B' : 'b';
}

// The colors of the quarters of an image, row by row. A capital letter is a bright color.
std::string quartersOf(const Image& image) {
  const int x = image.pixelWidth() / 4;
  const int y = image.pixelHeight() / 4;
  return {colorLetter(image.pixel(x, y)), colorLetter(image.pixel(3 * x, y)), colorLetter(image.pixel(x, 3 * y)),
          colorLetter(image.pixel(3 * x, 3 * y))};
}

struct OrientationCase {
  std::uint32_t orientation;
  const char* quarters;
};

class ExifOrientation : public testing::TestWithParam<OrientationCase> {};

TEST_P(ExifOrientation, DecodedImageIsUpright) {
  const OrientationCase& orientationCase = GetParam();
  for (const ByteOrder order : {ByteOrder::Little, ByteOrder::Big}) {
    const auto image = decodeImage(jpegWithMetadata(exifSegment(orientationCase.orientation, order)));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(quartersOf(*image), orientationCase.quarters);
    EXPECT_EQ(image->pixelWidth() < image->pixelHeight(), orientationCase.orientation >= 5);
  }
}

// The expected colors of the quarters of the decoded image, for each orientation.
INSTANTIATE_TEST_SUITE_P(Orientations, ExifOrientation,
                         testing::Values(OrientationCase{1, "RBrb"}, OrientationCase{2, "BRbr"},
                                         OrientationCase{3, "brBR"}, OrientationCase{4, "rbRB"},
                                         OrientationCase{5, "RrBb"}, OrientationCase{6, "rRbB"},
                                         OrientationCase{7, "bBrR"}, OrientationCase{8, "BbRr"}),
                         [](const auto& orientationCase) {
                           return "Number" + std::to_string(orientationCase.param.orientation);
                         });

TEST(ExifOrientation, InvalidMetadataIsIgnored) {
  const Bytes valid = exifSegment(6, ByteOrder::Big);
  std::vector<Bytes> invalid = {{},
                                bytesOf("Exif"),
                                bytesOf("http://ns.example.org/"),
                                exifSegment(0, ByteOrder::Big),
                                exifSegment(9, ByteOrder::Little),
                                exifSegment(6, ByteOrder::Big, 4),
                                exifSegment(6, ByteOrder::Little, 3, 0xFFFFFFFF),
                                exifSegment(6, ByteOrder::Big, 3, 9)};
  // Adds the segment truncated at each position up to the start of the orientation value.
  for (std::size_t size = 0; size < valid.size() - 7; ++size)
    invalid.emplace_back(valid.begin(), valid.begin() + static_cast<std::ptrdiff_t>(size));
  for (const Bytes& metadata : invalid) {
    EXPECT_EQ(orientationIn(metadata), Orientation::Upright) << metadata.size();
    const auto image = decodeImage(jpegWithMetadata(metadata));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(quartersOf(*image), "RBrb");
  }
}

}  // namespace
}  // namespace drawing
