// Tests that the library releases what it retains, and that it retains nothing else.
#include <gtest/gtest.h>

#include "objc/autorelease_pool.hpp"
#include "objc/ownership.hpp"
#include "platform/nc_notification_view_controller.hpp"
#include "tests/library/laid_out_banner.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::LaidOutBanner;
using test::makeBanner;
using test::Phone;

NSUInteger retainCount(const NSObject* object) { return objc::send<NSUInteger, "retainCount">(object); }

TEST(ObjectLifetime, BannerIsRetainedOnlyByItsSuperviewAndItsCreator) {
  const Phone phone;
  objc::Weak<BrimContainer> banner;
  {
    const objc::AutoreleasePool pool;
    LaidOutBanner laidOut(makeBanner("Anna"_ns, "Sub"_ns, "Hello"_ns));
    banner = laidOut.banner.get();
  }
  EXPECT_EQ(banner.lock().get(), nullptr);
}

TEST(ObjectLifetime, BannerReleasesItsPartsWhenItIsDeallocated) {
  const Phone phone;
  objc::Ref<UILabel> label;
  {
    const objc::AutoreleasePool pool;
    const LaidOutBanner laidOut(makeBanner("Anna"_ns, "Sub"_ns, "Hello"_ns));
    label = objc::retain(laidOut.banner->headerLabel());
    EXPECT_GT(retainCount(label.get()), 1U);
  }
  EXPECT_EQ(retainCount(label.get()), 1U);
}

TEST(ObjectLifetime, ColorSetRetainsItsCustomColors) {
  const Phone phone;
  const objc::Ref<UIColor> color = objc::retain(UIColor::withRed(0.25, 0.5, 0.75, 1));
  const NSUInteger before = retainCount(color.get());
  {
    const objc::AutoreleasePool pool;
    const auto colors = BrimColors::withMode(darkMode);
    objc::send<void, "setTextColor:">(colors.get(), color.get());
    EXPECT_EQ(retainCount(color.get()), before + 1);
  }
  EXPECT_EQ(retainCount(color.get()), before);
}

TEST(ObjectLifetime, AddedPropertyRetainsItsValue) {
  const Phone phone;
  const auto controller = objc::make<NCNotificationViewController>();
  const objc::Ref<NSObject> value = objc::make<NSObject>();
  objc::send<void, "setBrimIdentifier:">(controller.get(), value.get());
  EXPECT_EQ(retainCount(value.get()), 2U);
  objc::send<void, "setBrimIdentifier:">(controller.get(), static_cast<NSObject*>(nullptr));
  EXPECT_EQ(retainCount(value.get()), 1U);
}

}  // namespace
