#include "simulator/uikit/views/window.hpp"

#include "platform/ui_device.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/environment/trait_collection.hpp"
#include "tests/uikit/uikit_fixture.hpp"

namespace test {

namespace {

class Windows : public UIKitTest {};
class Traits : public UIKitTest {};
class Devices : public UIKitTest {};

void setLevel(UIWindow* window, double level) { objc::send<void, "setWindowLevel:">(window, level); }
bool isKey(UIWindow* window) { return objc::send<bool, "isKeyWindow">(window); }

}  // namespace

TEST_F(Windows, AreInitiallyHidden) {
  const auto window = UIView::withFrame<UIWindow>({{}, {10, 10}});
  EXPECT_TRUE(window->isHidden());
  EXPECT_TRUE(uikit::visibleWindows().empty());
}

TEST_F(Windows, AreOrderedByLevelThenByWhenTheyWereShown) {
  const auto first = makeWindow();
  const auto second = makeWindow();
  const auto alert = makeWindow();
  setLevel(alert, 2000);
  const auto third = makeWindow();
  first->makeKeyAndVisible();
  EXPECT_EQ(uikit::visibleWindows(), (std::vector<UIWindow*>{second, third, first, alert}));
}

TEST_F(Windows, AreRemovedFromTheScreenWhenDeallocated) {
  {
    const auto window = makeWindow();
    window->makeKeyAndVisible();
    EXPECT_EQ(uikit::keyWindow(), window.get());
    drainPool();
  }
  drainPool();
  EXPECT_TRUE(uikit::visibleWindows().empty());
  EXPECT_EQ(uikit::keyWindow(), nullptr);
}

TEST_F(Windows, OnlyOneIsKey) {
  const auto application = objc::make<UIApplication>();
  const auto first = makeWindow();
  const auto second = makeWindow();
  EXPECT_EQ(application->keyWindow(), nullptr);
  first->makeKeyAndVisible();
  EXPECT_TRUE(isKey(first));
  second->makeKeyAndVisible();
  EXPECT_FALSE(isKey(first));
  EXPECT_EQ(application->keyWindow(), second.get());
  second->setHidden(true);
  EXPECT_EQ(application->keyWindow(), nullptr);
}

TEST_F(Windows, AreFilledByTheViewOfTheRootController) {
  const auto window = makeWindow();
  const auto controller = objc::make<UIViewController>();
  objc::send<void, "setRootViewController:">(window.get(), controller.get());
  EXPECT_EQ(controller->view()->superview(), window.get());
  window->setFrame({{}, {500, 500}});
  EXPECT_EQ(controller->view()->frame(), (CGRect{{}, {500, 500}}));
}

TEST_F(Windows, PresentedControllerIsAddedAndRemoved) {
  const auto window = makeWindow();
  const auto controller = objc::make<UIViewController>();
  const auto presented = objc::make<UIViewController>();
  objc::send<void, "setRootViewController:">(window.get(), controller.get());
  objc::send<void, "presentViewController:animated:completion:">(controller.get(), presented.get(), true,
                                                                 objc::block([] { log("presented"); }).get());
  EXPECT_EQ(presented->view()->superview(), window.get());
  EXPECT_EQ(takeLog(), Log{});
  foundation::drainMainQueue();
  EXPECT_EQ(takeLog(), Log{"presented"});
  objc::send<void, "dismissViewControllerAnimated:completion:">(presented.get(), false,
                                                                static_cast<objc::Block<void()>*>(nullptr));
  EXPECT_EQ(presented->view()->superview(), nullptr);
}

TEST_F(Windows, ChildControllerHasAParent) {
  const auto parent = objc::make<UIViewController>();
  const auto child = objc::make<UIViewController>();
  const auto parentOf = [](UIViewController* each) {
    return objc::send<UIViewController*, "parentViewController">(each);
  };
  objc::send<void, "addChildViewController:">(parent.get(), child.get());
  EXPECT_EQ(parentOf(child), parent.get());
  objc::send<void, "removeFromParentViewController">(child.get());
  EXPECT_EQ(parentOf(child), nullptr);
}

TEST_F(Traits, AppearanceChangeReachesOuterViewsFirst) {
  const auto window = makeWindow();
  const auto outer = ProbeView::named("outer");
  const auto inner = ProbeView::named("inner");
  outer->addSubview(inner);
  window->addSubview(outer);
  takeLog();
  uikit::switchAppearance(UIUserInterfaceStyle::Dark);
  EXPECT_EQ(takeLog(), (Log{"outer was light", "inner was light"}));
  EXPECT_EQ(UIScreen::mainScreen()->traitCollection()->userInterfaceStyle(), UIUserInterfaceStyle::Dark);
  uikit::switchAppearance(UIUserInterfaceStyle::Dark);
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(Traits, OverrideAppliesToAllViewsOfTheController) {
  const auto window = makeWindow();
  const auto controller = objc::make<UIViewController>();
  objc::send<void, "setRootViewController:">(window.get(), controller.get());
  const auto probe = ProbeView::named("probe");
  controller->view()->addSubview(probe);
  takeLog();
  controller->setOverrideUserInterfaceStyle(UIUserInterfaceStyle::Dark);
  EXPECT_EQ(takeLog(), Log{"probe was light"});
  EXPECT_EQ(controller->traitCollection()->userInterfaceStyle(), UIUserInterfaceStyle::Dark);
  EXPECT_EQ(uikit::styleOf(probe), UIUserInterfaceStyle::Dark);
  EXPECT_EQ(uikit::styleOf(window), UIUserInterfaceStyle::Light);
  uikit::switchAppearance(UIUserInterfaceStyle::Dark);
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(Traits, AreEqualForTheSameAppearance) {
  const auto light = objc::retain(uikit::traitCollection(UIUserInterfaceStyle::Light));
  EXPECT_TRUE(light->isEqual(uikit::traitCollection(UIUserInterfaceStyle::Light)));
  EXPECT_FALSE(light->isEqual(uikit::traitCollection(UIUserInterfaceStyle::Dark)));
}

TEST_F(Devices, ReportSystemVersionAndHapticSupport) {
  uikit::Environment environment;
  environment.systemVersion = "11.4";
  environment.device = *base::findDeviceProfile("iphone-8");
  uikit::setEnvironment(environment);
  EXPECT_STREQ(UIDevice::currentDevice()->systemVersion()->UTF8String(), "11.4");
  NSObject* level = UIDevice::currentDevice()->valueForKey(NSString::stringWithUTF8String("_feedbackSupportLevel"));
  EXPECT_EQ((objc::send<NSInteger, "integerValue">(level)), 2);
}

TEST_F(Devices, LocaleDeterminesTheLayoutDirection) {
  EXPECT_EQ(uikit::directionOfLocale("ar_EG"), uikit::LayoutDirection::RightToLeft);
  EXPECT_EQ(uikit::directionOfLocale("he"), uikit::LayoutDirection::RightToLeft);
  EXPECT_EQ(uikit::directionOfLocale("arn_CL"), uikit::LayoutDirection::LeftToRight);
  EXPECT_EQ(uikit::directionOfLocale("en_US"), uikit::LayoutDirection::LeftToRight);
  EXPECT_EQ(uikit::directionOfLocale(""), uikit::LayoutDirection::LeftToRight);
}

}  // namespace test
