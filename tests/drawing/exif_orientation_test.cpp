#include "simulator/drawing/exif_orientation.hpp"

#include <array>

#include "simulator/drawing/canvas.hpp"
#include "tests/drawing/pictures.hpp"

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

// A segment with two entries, the second of which is the orientation.
Bytes segment(std::uint32_t orientation, ByteOrder order, std::uint32_t type = 3, std::uint32_t directory = 8) {
  Bytes bytes = bytesOf("Exif");
  bytes.resize(6);
  for (const char letter : std::string_view(order == ByteOrder::Little ? "II" : "MM"))
    bytes.push_back(static_cast<std::byte>(letter));
  append(bytes, 42, 2, order);
  append(bytes, directory, 4, order);
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

// A photograph 48 pixels wide and 32 high: its left half red, its right half blue, its upper half bright.
Bytes photograph(const Bytes& metadata) {
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

char nameOf(std::uint32_t pixel) {
  const std::uint32_t red = pixel >> 16 & 0xFF;
  const std::uint32_t blue = pixel & 0xFF;
  if (red > blue) return red > 180 ? 'R' : 'r';
  return blue > 180 ? 'B' : 'b';
}

// The quarters of a picture, row by row: capitals are bright.
std::string quartersOf(const Image& image) {
  const int x = image.pixelWidth() / 4;
  const int y = image.pixelHeight() / 4;
  return {nameOf(image.pixel(x, y)), nameOf(image.pixel(3 * x, y)), nameOf(image.pixel(x, 3 * y)),
          nameOf(image.pixel(3 * x, 3 * y))};
}

struct Held {
  std::uint32_t orientation;
  const char* quarters;
};

class Photograph : public testing::TestWithParam<Held> {};

TEST_P(Photograph, IsTurnedUpright) {
  const Held& held = GetParam();
  for (const ByteOrder order : {ByteOrder::Little, ByteOrder::Big}) {
    const auto image = decodeImage(photograph(segment(held.orientation, order)));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(quartersOf(*image), held.quarters);
    EXPECT_EQ(image->pixelWidth() < image->pixelHeight(), held.orientation >= 5);
  }
}

// How the four quarters, written in their rows, come to lie.
INSTANTIATE_TEST_SUITE_P(Orientations, Photograph,
                         testing::Values(Held{1, "RBrb"}, Held{2, "BRbr"}, Held{3, "brBR"}, Held{4, "rbRB"},
                                         Held{5, "RrBb"}, Held{6, "rRbB"}, Held{7, "bBrR"}, Held{8, "BbRr"}),
                         [](const auto& held) { return "Number" + std::to_string(held.param.orientation); });

TEST(Photograph, StaysAsItIsWithMetadataThatCannotBeRead) {
  const Bytes whole = segment(6, ByteOrder::Big);
  std::vector<Bytes> broken = {{},
                               bytesOf("Exif"),
                               bytesOf("http://ns.example.org/"),
                               segment(0, ByteOrder::Big),
                               segment(9, ByteOrder::Little),
                               segment(6, ByteOrder::Big, 4),
                               segment(6, ByteOrder::Little, 3, 0xFFFFFFFF),
                               segment(6, ByteOrder::Big, 3, 9)};
  // Cut anywhere before the value.
  for (std::size_t size = 0; size < whole.size() - 7; ++size)
    broken.emplace_back(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
  for (const Bytes& metadata : broken) {
    EXPECT_EQ(orientationIn(metadata), Orientation::Upright) << metadata.size();
    const auto image = decodeImage(photograph(metadata));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(quartersOf(*image), "RBrb");
  }
}

}  // namespace
}  // namespace drawing
