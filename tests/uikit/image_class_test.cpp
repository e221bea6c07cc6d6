// Tests of UIImage: files, data and application icons.
#include "simulator/uikit/images/image_class.hpp"

#include <cmath>
#include <filesystem>
#include <fstream>

#include "platform/ui_image_view.hpp"
#include "simulator/drawing/canvas.hpp"
#include "simulator/uikit/images/application_icons.hpp"
#include "tests/support/temporary_folder.hpp"
#include "tests/uikit/view_content.hpp"

namespace test {

namespace {

namespace fs = std::filesystem;

class Images : public UIKitTest {
 public:
  void write(const std::string& name, int width, int height) const {
    EXPECT_EQ(drawing::writePng(*solidImage(width, height), folder / name), std::nullopt);
  }
  UIImage* load(const std::string& name) const {
    return UIImage::imageWithContentsOfFile(string((folder / name).string()));
  }

  const TemporaryFolder temporaryFolder;
  const fs::path& folder = temporaryFolder.path();
};

NSData* dataOf(const std::vector<std::byte>& bytes) { return NSData::dataWithBytes(bytes.data(), bytes.size()); }

std::shared_ptr<const drawing::Image> decoded(NSData* data) {
  return drawing::decodeImage({static_cast<const std::byte*>(data->bytes()), data->length()});
}

TEST_F(Images, AreReadFromFiles) {
  write("plain.png", 30, 20);
  const UIImage* image = load("plain.png");
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(image->size(), (CGSize{30, 20}));
  EXPECT_EQ((objc::send<CGFloat, "scale">(image)), 1);
}

TEST_F(Images, PreferTheVariantOfTheScreensScale) {
  write("glyph.png", 10, 10);
  write("glyph@2x.png", 20, 20);
  write("glyph@3x.png", 30, 30);
  const UIImage* image = load("glyph.png");
  EXPECT_EQ(uikit::imageOf(image)->pixelWidth(), 10 * static_cast<int>(uikit::environment().device.scale));
  EXPECT_EQ(image->size(), (CGSize{10, 10}));
}

TEST_F(Images, AreNamedAfterTheRequestedPath) {
  write("glyph@2x.png", 20, 20);
  EXPECT_EQ(uikit::imageOf(load("glyph.png"))->name(), (folder / "glyph.png").string());
}

TEST_F(Images, InvalidFilesGiveNil) {
  std::ofstream(folder / "text.png") << "not an image";
  EXPECT_EQ(UIImage::imageWithContentsOfFile(nullptr), nullptr);
  EXPECT_EQ(UIImage::imageWithContentsOfFile(""_ns), nullptr);
  EXPECT_EQ(load("missing.png"), nullptr);
  EXPECT_EQ(load("text.png"), nullptr);
  EXPECT_EQ(load(""), nullptr);
}

TEST_F(Images, PathsThatCannotBeEncodedGiveNil) {
  EXPECT_EQ(stringWithUnpairedSurrogate()->length(), 2u);
  EXPECT_EQ(UIImage::imageWithContentsOfFile(stringWithUnpairedSurrogate()), nullptr);
}

TEST_F(Images, AreReadFromData) {
  const auto image = UIImage::withData(dataOf(drawing::encodePng(*solidImage(12, 7))));
  ASSERT_NE(image.get(), nullptr);
  EXPECT_EQ(image->size(), (CGSize{12, 7}));
  EXPECT_NE((objc::send<UIImage*, "imageWithData:">(UIImage::classObject(),
                                                    dataOf(drawing::encodeJpeg(*solidImage(12, 7), 0.5)))),
            nullptr);
}

TEST_F(Images, InvalidDataGivesNil) {
  EXPECT_EQ(UIImage::withData(nullptr).get(), nullptr);
  EXPECT_EQ(UIImage::withData(NSData::dataWithBytes("not an image", 12)).get(), nullptr);
  EXPECT_EQ(UIImage::withData(NSData::dataWithBytes("", 0)).get(), nullptr);
}

TEST_F(Images, AreEmptyIfTheyHaveNoPixels) {
  const auto image = objc::make<UIImage>();
  EXPECT_EQ(image->size(), CGSize{});
  EXPECT_EQ(UIImageJPEGRepresentation(image, 1), nullptr);
}

TEST_F(Images, CanBeEncoded) {
  const auto image = uikit::makeImage(solidImage(8, 8));
  NSData* jpeg = UIImageJPEGRepresentation(image, 1);
  EXPECT_EQ(decoded(jpeg)->pixelWidth(), 8);
  EXPECT_EQ(decoded(UIImagePNGRepresentation(image))->pixel(4, 4), 0xffff0000);
  EXPECT_EQ(UIImageJPEGRepresentation(nullptr, 1), nullptr);
  EXPECT_EQ(UIImagePNGRepresentation(nullptr), nullptr);
}

TEST_F(Images, ClampTheJpegQuality) {
  drawing::Canvas canvas({16, 16}, 1);
  canvas.clear({1, 1, 1, 1});
  canvas.strokeLine({0, 0}, {16, 16}, 1, {1, 0, 0, 1});
  const auto image = uikit::makeImage(canvas.snapshot());
  const auto bytes = [&image](CGFloat quality) {
    const NSData* data = UIImageJPEGRepresentation(image, quality);
    return std::string(static_cast<const char*>(data->bytes()), data->length());
  };
  EXPECT_EQ(bytes(100), bytes(1));
  EXPECT_EQ(bytes(NAN), bytes(1));
  EXPECT_EQ(bytes(-3), bytes(0));
  EXPECT_NE(bytes(0), bytes(1));
}

TEST_F(Images, ApplicationIconsAreTheRegisteredOnes) {
  uikit::setApplicationIcon("org.example.mail", 2, solidImage(60, 60));
  const UIImage* icon = UIImage::applicationIcon("org.example.mail"_ns, 2);
  ASSERT_NE(icon, nullptr);
  EXPECT_EQ(icon->size(), (CGSize{60, 60}));
  EXPECT_EQ(UIImage::applicationIcon("org.example.mail"_ns, 2), icon);
  EXPECT_EQ(UIImage::applicationIcon("org.example.mail"_ns, 8), nullptr);
  uikit::setApplicationIcon("org.example.mail", 2, nullptr);
  EXPECT_EQ(UIImage::applicationIcon("org.example.mail"_ns, 2), nullptr);
}

TEST_F(Images, ApplicationsWithoutAnIconHaveThePlaceholder) {
  EXPECT_EQ(UIImage::applicationIcon("org.example.unknown"_ns, 8), nullptr);
  uikit::setPlaceholderIcon(solidImage(20, 20));
  EXPECT_EQ(UIImage::applicationIcon("org.example.unknown"_ns, 8)->size(), (CGSize{20, 20}));
  EXPECT_EQ(UIImage::applicationIcon(nullptr, 0)->size(), (CGSize{20, 20}));
  uikit::setPlaceholderIcon(nullptr);
}

}  // namespace

}  // namespace test
