// Tests of the contrast of a dark banner's texts with the background, as it is rendered over any content of the screen.
#include <gtest/gtest.h>

#include <cmath>

#include "platform/ui_window.hpp"
#include "simulator/drawing/image.hpp"
#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"
#include "tests/support/temporary_folder.hpp"

namespace {

using test::containerOf;
using test::Json;
using test::Phone;

// Returns the relative luminance of a pixel, from which the contrast of a text is computed.
double relativeLuminance(std::uint32_t pixel) {
  const auto linear = [pixel](int shift) {
    const double value = (pixel >> shift & 0xFF) / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(16) + 0.7152 * linear(8) + 0.0722 * linear(0);
}

double contrast(std::uint32_t lighter, std::uint32_t darker) {
  return (relativeLuminance(lighter) + 0.05) / (relativeLuminance(darker) + 0.05);
}

// Returns the pixel at the start of the view, vertically centered. The view has no text there.
std::uint32_t backgroundOf(const Json& view, const drawing::Image& screen) {
  const Json& frame = view.at("frame");
  constexpr double inset = 10;
  return screen.pixel(static_cast<int>(frame[0].get<double>() + inset),
                      static_cast<int>(frame[1].get<double>() + frame[3].get<double>() / 2));
}

class Readability : public testing::TestWithParam<const char*> {};

TEST_P(Readability, RedAndWhiteTextsOfADarkBannerAreReadableOverAnyContent) {
  const test::TemporaryFolder folder;
  test::Setup setup = {.options = {}, .settings = {{"containerColor", 1}, {"showButtons", true}}};
  setup.options.systemVersion = GetParam();
  Phone phone(setup);
  const int controller = phone.present({{"title", "Anna"}, {"message", "Hello"}});
  phone.wait(1);
  phone.run({{"do", "drag"}, {"by", {0, 120}}});
  phone.wait(1);
  UIWindow* window = containerOf(controller)->window();
  const objc::Ref<UIView> content = UIView::withFrame<UIView>(window->bounds());
  window->addSubview(content);
  window->sendSubviewToBack(content);
  const auto path = folder.path() / "screen.png";
  for (int corner = 0; corner < 8; ++corner) {
    content->setBackgroundColor(UIColor::withRed(corner & 1, corner >> 1 & 1, corner >> 2 & 1, 1));
    phone.run({{"do", "screenshot"}, {"path", path.string()}, {"scale", 1}});
    const auto screen = drawing::loadImage(path);
    ASSERT_NE(screen, nullptr);
    const std::uint32_t button = backgroundOf(phone.view(controller, "_clearButton"), *screen);
    EXPECT_GE(contrast(0xFF0000, button), 3) << corner;
    EXPECT_GE(contrast(0xFFFFFF, button), 4.5) << corner;
  }
}

INSTANTIATE_TEST_SUITE_P(Systems, Readability, testing::Values("11.2", "12.4", "13.5"),
                         [](const auto& version) { return "System" + std::string(version.param).substr(0, 2); });

}  // namespace
