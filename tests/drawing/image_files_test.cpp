#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

#include "simulator/drawing/canvas.hpp"
#include "tests/drawing/test_images.hpp"

namespace drawing {
namespace {

std::vector<std::byte> encodedImage(int side) { return encodePng(*quarteredImage(side)); }

TEST(InstalledFile, HasThePixelsOfTheFile) {
  const ImageFolder folder;
  folder.write("icon.png", encodedImage(12));
  const auto installed = Image::fromInstalledFile(folder / "icon.png", 3);
  const auto loaded = loadImage(folder / "icon.png");
  ASSERT_NE(installed, nullptr);
  EXPECT_EQ(installed->pixelWidth(), 12);
  EXPECT_EQ(installed->size().height, 4);
  EXPECT_EQ(installed->name(), (folder / "icon.png").string());
  // Each resized copy frees the decoded pixels, so a later access decodes the file again.
  EXPECT_EQ(cairo_image_surface_get_width(installed->resizedSurface(6, 6)), 6);
  EXPECT_EQ(cairo_image_surface_get_width(installed->resizedSurface(4, 4)), 4);
  EXPECT_EQ(cairo_image_surface_get_width(installed->resizedSurface(6, 6)), 6);
  EXPECT_EQ(encodePng(*installed), encodePng(*loaded));
}

TEST(InstalledFile, IsTransparentIfThePixelsAreDamaged) {
  const ImageFolder folder;
  const std::vector<std::byte> content = encodedImage(12);
  folder.write("icon.png", {content.begin(), content.begin() + 40});
  const auto installed = Image::fromInstalledFile(folder / "icon.png", 1);
  ASSERT_NE(installed, nullptr);
  EXPECT_EQ(installed->pixel(0, 0), 0U);
}

TEST(InstalledFile, IsNullWithoutAPngHeader) {
  const ImageFolder folder;
  folder.write("text.png", bytesOf("a text that is longer than a header"));
  EXPECT_EQ(Image::fromInstalledFile(folder / "text.png", 1), nullptr);
  EXPECT_EQ(Image::fromInstalledFile(folder / "missing.png", 1), nullptr);
}

TEST(LoadImage, ReadsTheScaleFromTheFileName) {
  const ImageFolder folder;
  for (const auto& [name, scale] :
       {std::pair{"a.png", 1.0}, {"a@2x.png", 2.0}, {"a@3x.png", 3.0}, {"a@2xb.png", 1.0}}) {
    folder.write(name, encodedImage(6));
    const auto image = loadImage(folder / name);
    ASSERT_NE(image, nullptr) << name;
    EXPECT_EQ(image->scale(), scale) << name;
    EXPECT_EQ(image->name(), (folder / name).string());
  }
}

TEST(LoadImage, RecognizesTheFormatRegardlessOfTheExtension) {
  const ImageFolder folder;
  folder.write("photo.png", encodeJpeg(*quarteredImage(8), 0.9));
  folder.write("photo", encodedImage(8));
  EXPECT_NE(loadImage(folder / "photo.png"), nullptr);
  EXPECT_NE(loadImage(folder / "photo"), nullptr);
}

TEST(LoadImage, ReturnsNullForAnythingButAnImageFile) {
  const ImageFolder folder;
  folder.write("empty.png", {});
  folder.write("text.png", bytesOf("not an image"));
  ASSERT_EQ(mkfifo((folder / "pipe.png").c_str(), 0600), 0);
  EXPECT_EQ(loadImage(folder / "missing.png"), nullptr);
  EXPECT_EQ(loadImage(folder.path()), nullptr);
  EXPECT_EQ(loadImage(folder / "empty.png"), nullptr);
  EXPECT_EQ(loadImage(folder / "text.png"), nullptr);
  EXPECT_EQ(loadImage(folder / "pipe.png"), nullptr);
  EXPECT_EQ(loadImage("/dev/zero"), nullptr);
  EXPECT_EQ(loadImage(""), nullptr);
}

TEST(LoadImageNamed, PrefersTheVariantOfTheScreensScale) {
  const ImageFolder folder;
  folder.write("mail.png", encodedImage(2));
  folder.write("mail@2x.png", encodedImage(4));
  folder.write("mail@3x.png", encodedImage(6));
  for (const double scale : {1.0, 2.0, 3.0}) {
    const auto image = loadImageNamed(folder / "mail.png", scale);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->scale(), scale);
    EXPECT_EQ(image->size(), (Size{2, 2}));
    EXPECT_EQ(image->name(), (folder / "mail.png").string());
  }
}

TEST(LoadImageNamed, FallsBackToTheHighestAvailableScale) {
  const ImageFolder folder;
  folder.write("mail.png", encodedImage(2));
  EXPECT_EQ(loadImageNamed(folder / "mail.png", 3)->scale(), 1);
  folder.write("mail@2x.png", encodedImage(4));
  EXPECT_EQ(loadImageNamed(folder / "mail.png", 3)->scale(), 2);
}

TEST(LoadImageNamed, SkipsADamagedVariant) {
  const ImageFolder folder;
  folder.write("mail@3x.png", bytesOf("damaged"));
  folder.write("mail@2x.png", encodedImage(4));
  EXPECT_EQ(loadImageNamed(folder / "mail.png", 3)->scale(), 2);
}

TEST(LoadImageNamed, AddsThePngExtensionIfTheNameHasNone) {
  const ImageFolder folder;
  folder.write("mail@2x.png", encodedImage(4));
  EXPECT_NE(loadImageNamed(folder / "mail", 2), nullptr);
  EXPECT_EQ(loadImageNamed(folder / "none", 2), nullptr);
  folder.write("bare", encodedImage(6));
  ASSERT_NE(loadImageNamed(folder / "bare", 2), nullptr);
  EXPECT_EQ(loadImageNamed(folder / "bare", 2)->pixelWidth(), 6);
  EXPECT_EQ(loadImageNamed("", 2), nullptr);
}

TEST(LoadImage, RetainsAtMostFourMillionPixelsAndReportsTheSizeOfTheFile) {
  const ImageFolder folder;
  SurfaceHandle surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 4000, 2000));
  const ContextHandle context(cairo_create(surface.get()));
  cairo_set_source_rgb(context.get(), 1, 0, 0);
  cairo_rectangle(context.get(), 0, 0, 2000, 2000);
  cairo_fill(context.get());
  ASSERT_EQ(writePng(surface.get(), folder / "large.png"), std::nullopt);
  const auto image = loadImage(folder / "large.png")->named("other");
  EXPECT_EQ(image->pixelWidth(), 4000);
  EXPECT_EQ(image->pixelHeight(), 2000);
  EXPECT_EQ(cairo_image_surface_get_width(image->surface()), 2828);
  EXPECT_EQ(cairo_image_surface_get_height(image->surface()), 1414);
  EXPECT_EQ(image->pixel(1990, 1999), 0xFFFF0000);
  EXPECT_EQ(image->pixel(2010, 0), 0U);
  for (const double side : {10.0, 3600.0}) {
    Canvas canvas({side, side / 2}, 1);
    canvas.drawImage(image, {0, 0, side, side / 2}, ContentMode::ScaleToFill);
    EXPECT_EQ(canvas.pixel(static_cast<int>(side * 0.45), 1), 0xFFFF0000);
    EXPECT_EQ(canvas.pixel(static_cast<int>(side * 0.55), 1), 0U);
  }
}

TEST(WritePng, FileCanBeReadBackAndNoOtherFileIsLeft) {
  const ImageFolder folder;
  EXPECT_EQ(writePng(*quarteredImage(4), folder / "a.png"), std::nullopt);
  EXPECT_EQ(writePng(*quarteredImage(6), folder / "a.png"), std::nullopt);
  EXPECT_EQ(loadImage(folder / "a.png")->pixelWidth(), 6);
  const std::filesystem::directory_iterator entries(folder.path());
  EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

TEST(WritePng, ErrorNamesTheFileInAMissingFolder) {
  const ImageFolder folder;
  const auto error = writePng(*quarteredImage(4), folder / "missing/a.png");
  ASSERT_TRUE(error);
  EXPECT_NE(error->find("missing/a.png"), std::string::npos) << *error;
}

TEST(WritePng, FailedWriteKeepsTheExistingEntry) {
  const ImageFolder folder;
  std::filesystem::create_directory(folder / "taken.png");
  EXPECT_TRUE(writePng(*quarteredImage(4), folder / "taken.png"));
  EXPECT_TRUE(std::filesystem::is_directory(folder / "taken.png"));
  const std::filesystem::directory_iterator entries(folder.path());
  EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

TEST(WritePng, DoesNotReplaceANamedPipe) {
  const ImageFolder folder;
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink("pipe", folder / "link");
  for (const char* name : {"pipe", "link"}) {
    const auto error = writePng(*quarteredImage(4), folder / name);
    ASSERT_TRUE(error) << name;
    EXPECT_NE(error->find("not a regular file"), std::string::npos) << *error;
  }
  EXPECT_TRUE(std::filesystem::is_fifo(folder / "pipe"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
}

TEST(WritePng, WritesTheTargetOfASymbolicLink) {
  const ImageFolder folder;
  std::filesystem::create_directory(folder / "other");
  std::filesystem::create_symlink("other/picture.png", folder / "first");
  std::filesystem::create_symlink("first", folder / "second");
  for (const int size : {4, 6}) {
    EXPECT_EQ(writePng(*quarteredImage(size), folder / "second"), std::nullopt);
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "first"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "second"));
    ASSERT_NE(loadImage(folder / "other/picture.png"), nullptr);
    EXPECT_EQ(loadImage(folder / "other/picture.png")->pixelWidth(), size);
  }
}

TEST(WritePng, ReportsAnEndlessChainOfSymbolicLinks) {
  const ImageFolder folder;
  std::filesystem::create_symlink("a", folder / "b");
  std::filesystem::create_symlink("b", folder / "a");
  EXPECT_TRUE(writePng(*quarteredImage(4), folder / "a"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "a"));
}

// Simulates a full disk: while this object exists, a file cannot grow beyond this number of bytes.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : previousHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &previousLimit_);
    const rlimit limit{bytes, previousLimit_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &previousLimit_);
    std::signal(SIGXFSZ, previousHandler_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  void (*previousHandler_)(int);
  rlimit previousLimit_{};
};

TEST(WritePng, FullDiskKeepsTheOldFile) {
  const ImageFolder folder;
  ASSERT_EQ(writePng(*quarteredImage(4), folder / "a.png"), std::nullopt);
  std::optional<std::string> error;
  {
    const FullDisk disk(50);
    error = writePng(*quarteredImage(64), folder / "a.png");
  }
  EXPECT_TRUE(error);
  EXPECT_EQ(loadImage(folder / "a.png")->pixelWidth(), 4);
  const std::filesystem::directory_iterator entries(folder.path());
  EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

}  // namespace
}  // namespace drawing
