// Tests of UIColor.
#include <cmath>

#include "simulator/uikit/views/color.hpp"
#include "tests/uikit/uikit_fixture.hpp"

namespace test {

namespace {

class Colors : public UIKitTest {};

UIColor* namedColor(const char* selector) {
  const id target = reinterpret_cast<id>(UIColor::classObject());
  const SEL message = sel_registerName(selector);
  return objc::detail::call<UIColor*>(objc::implementationFor(target, message), target, message);
}

TEST_F(Colors, ReturnTheirComponents) {
  CGFloat red = 0, green = 0, blue = 0, alpha = 0;
  EXPECT_TRUE(UIColor::withRed(0.1, 0.2, 0.3, 0.4)->getRed(&red, &green, &blue, &alpha));
  EXPECT_EQ(red, 0.1);
  EXPECT_EQ(green, 0.2);
  EXPECT_EQ(blue, 0.3);
  EXPECT_EQ(alpha, 0.4);
}

TEST_F(Colors, AcceptNullForUnneededComponents) {
  CGFloat blue = 0;
  EXPECT_TRUE(UIColor::withRed(0.1, 0.2, 0.3, 0.4)->getRed(nullptr, nullptr, &blue, nullptr));
  EXPECT_EQ(blue, 0.3);
}

TEST_F(Colors, NamedColorsHaveThePlatformsValues) {
  EXPECT_TRUE(UIColor::redColor()->isEqual(UIColor::withRed(1, 0, 0, 1)));
  EXPECT_TRUE(UIColor::clearColor()->isEqual(UIColor::withRed(0, 0, 0, 0)));
  EXPECT_TRUE(namedColor("whiteColor")->isEqual(UIColor::withRed(1, 1, 1, 1)));
  EXPECT_TRUE(namedColor("grayColor")->isEqual(UIColor::withRed(0.5, 0.5, 0.5, 1)));
  EXPECT_TRUE(namedColor("blackColor")->isEqual(UIColor::withRed(0, 0, 0, 1)));
}

TEST_F(Colors, AreEqualByValue) {
  UIColor* color = UIColor::withRed(0.1, 0.2, 0.3, 1);
  UIColor* same = UIColor::withRed(0.1, 0.2, 0.3, 1);
  EXPECT_TRUE(color->isEqual(same));
  EXPECT_EQ((objc::send<NSUInteger, "hash">(color)), (objc::send<NSUInteger, "hash">(same)));
  EXPECT_FALSE(color->isEqual(UIColor::withRed(0.1, 0.2, 0.3, 0.9)));
  EXPECT_FALSE(color->isEqual(objc::make<NSObject>()));
  EXPECT_FALSE(color->isEqual(nullptr));
}

TEST_F(Colors, ReturnTheSameCoreGraphicsColorEveryTime) {
  UIColor* color = UIColor::withRed(0.1, 0.2, 0.3, 0.4);
  EXPECT_EQ(color->CGColor()->color, (drawing::Color{0.1, 0.2, 0.3, 0.4}));
  EXPECT_EQ(color->CGColor(), color->CGColor());
}

TEST_F(Colors, ChangeTheirAlphaInACopy) {
  UIColor* color = UIColor::redColor();
  UIColor* faint = objc::send<UIColor*, "colorWithAlphaComponent:">(color, CGFloat{0.25});
  EXPECT_TRUE(faint->isEqual(UIColor::withRed(1, 0, 0, 0.25)));
  EXPECT_TRUE(color->isEqual(UIColor::withRed(1, 0, 0, 1)));
}

TEST_F(Colors, CopyReturnsTheSameObject) {
  const objc::Ref<UIColor> color = objc::retain(UIColor::withRed(0.1, 0.2, 0.3, 1));
  EXPECT_EQ(objc::adopt(objc::send<UIColor*, "copy">(color.get())).get(), color.get());
}

TEST_F(Colors, ClampInvalidComponents) {
  EXPECT_TRUE(UIColor::withRed(NAN, INFINITY, 0.5, NAN)->isEqual(UIColor::withRed(0, 0, 0.5, 0)));
  EXPECT_TRUE(UIColor::withRed(1, 1, 1, 7)->isEqual(UIColor::withRed(1, 1, 1, 1)));
}

}  // namespace

}  // namespace test
