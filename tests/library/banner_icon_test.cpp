// Tests of the icon that a banner shows.
#include <gtest/gtest.h>

#include "platform/nc_notification_view.hpp"
#include "simulator/drawing/canvas.hpp"
#include "simulator/drawing/image.hpp"
#include "simulator/uikit/images/application_icons.hpp"
#include "simulator/uikit/images/image_class.hpp"
#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"
#include "tests/library/platform_methods.hpp"

namespace {

using test::Phone;

constexpr const char* application = "org.example.application";

std::shared_ptr<const drawing::Image> makeIcon(const char* name) {
  drawing::Canvas canvas({8, 8}, 1);
  canvas.clear({0, 0.5, 1, 1});
  return canvas.snapshot()->named(name);
}

// The icons that every notification returns.
NSArray* notificationIcons;

NSArray* iconsOfNotification(objc::Original<NSArray*(NCNotificationShortLookView*)>, NCNotificationShortLookView*) {
  return notificationIcons;
}

// The tests set the icons of the application and of the notification.
class BannerIcon : public testing::Test {
 protected:
  BannerIcon() {
    test::replaceMethod<"icons", &iconsOfNotification>(NCNotificationShortLookView::classObject());
    icons_->addObject(uikit::makeImage(makeIcon("first")));
    icons_->addObject(uikit::makeImage(makeIcon("second")));
    notificationIcons = icons_;
  }
  ~BannerIcon() override { notificationIcons = nullptr; }

  // The name of the icon in a banner of the application. "(none)" if the banner has no icon.
  std::string shownIcon() {
    return phone_.view(phone_.present({{"section", application}}), "_appIV").value("image", "(none)");
  }

 private:
  Phone phone_;
  objc::Ref<NSMutableArray> icons_ = objc::retain(NSMutableArray::array());
};

TEST_F(BannerIcon, IsTheApplicationsIconInTheFirstAvailableFormat) {
  for (const auto& [format, name] : {std::pair{0, "format 0"}, {2, "format 2"}, {8, "format 8"}}) {
    uikit::setApplicationIcon(application, format, makeIcon(name));
    EXPECT_EQ(shownIcon(), name);
  }
}

TEST_F(BannerIcon, IsTheFirstIconOfTheNotificationIfTheApplicationHasNoneOfTheFormats) {
  uikit::setApplicationIcon(application, 1, makeIcon("format 1"));
  EXPECT_EQ(shownIcon(), "first");
}

TEST_F(BannerIcon, IsTheFirstIconOfTheNotificationInsteadOfThePlaceholder) {
  ASSERT_NE(UIImage::applicationIcon(NSString::stringWithUTF8String(application), 8), nullptr);
  EXPECT_EQ(shownIcon(), "first");
}

TEST_F(BannerIcon, IsMissingIfTheNotificationHasNone) {
  notificationIcons = NSMutableArray::array();
  EXPECT_EQ(shownIcon(), "(none)");
  notificationIcons = nullptr;
  EXPECT_EQ(shownIcon(), "(none)");
}

TEST_F(BannerIcon, IsTheIconOfTheApplicationThatResemblesThePlaceholder) {
  const auto placeholder = uikit::imageOf(UIImage::applicationIcon("org.example.other"_ns, 8));
  drawing::Canvas canvas(placeholder->size(), placeholder->scale());
  canvas.clear({0.5, 0.5, 0.5, 1});
  uikit::setApplicationIcon(application, 8, canvas.snapshot()->named("gray"));
  EXPECT_EQ(shownIcon(), "gray");
}

}  // namespace
