// What is seen alike on both machines, seen on Linux.
#include "tests/both_machines.hpp"

#include <gtest/gtest.h>

#include "library/controller/banner_controller.hpp"
#include "platform/ns_bundle.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::Json;
using test::Phone;

const char* encodingOf(const char* selector) {
  Method method = class_getInstanceMethod(BannerController::classObject(), sel_registerName(selector));
  return method_getTypeEncoding(method);
}

TEST(BothMachines, KeepAFlagAsATruthValue) {
  const Phone phone;
  EXPECT_STREQ(encodingOf("hasDismissed"), test::flagGetterEncoding);
  EXPECT_STREQ(encodingOf("setHasDismissed:"), test::flagSetterEncoding);
  const auto controller = objc::make<BannerController>();
  EXPECT_FALSE(controller->hasDismissed());
  controller->setHasDismissed(true);
  EXPECT_TRUE(controller->hasDismissed());
  controller->setHasDismissed(false);
  EXPECT_FALSE(controller->hasDismissed());
}

double statusLineTop(const char* device) {
  test::Setup setup;
  setup.options.device = device;
  Phone phone(setup);
  const int controller = phone.present();
  const auto top = [](const Json& view) { return view.at("frame").at(1).get<double>(); };
  return top(phone.view(controller, "_clockLabel")) - top(phone.banner(controller));
}

TEST(BothMachines, FindTheStatusLineWithAHomeButton) {
  EXPECT_EQ(statusLineTop("iphone-8"), test::statusLineWithHomeButton.top);
}

TEST(BothMachines, FindTheStatusLineWithoutAHomeButton) {
  EXPECT_EQ(statusLineTop("iphone-x"), test::statusLineWithoutHomeButton.top);
}

TEST(BothMachines, TakeTheAssetsFromTheSamePlace) {
  const Phone phone;
  const auto banner = BrimContainer::make(nullptr, nullptr, nullptr, nullptr);
  const id object = objc::detail::identifier(banner.get());
  const id bundle = object_getIvar(object, class_getInstanceVariable(object_getClass(object), "_lBundle"));
  ASSERT_NE(bundle, nullptr);
  const std::string path = objc::send<NSString*, "bundlePath">(bundle)->UTF8String();
  EXPECT_TRUE(std::filesystem::equivalent(path, phone.root().string() + test::assetBundle)) << path;
}

TEST(BothMachines, PublishTheTestBannerOnTheServersQueue) {
  Phone phone;
  phone.run({{"do", "testbanner"}});
  Json published;
  for (const Json& event : phone.log())
    if (event.at("event") == "publish") published = event;
  ASSERT_FALSE(published.is_null());
  EXPECT_EQ(published.at("title"), test::testBulletin.title);
  EXPECT_EQ(published.at("message"), test::testBulletin.message);
  EXPECT_EQ(published.at("sectionID"), test::testBulletin.section);
  EXPECT_EQ(published.at("destinations"), test::testBulletin.destinations);
}

}  // namespace
