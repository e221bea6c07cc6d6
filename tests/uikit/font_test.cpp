// Tests of UIFont.
#include "simulator/uikit/text/font_class.hpp"

#include <cmath>

#include "tests/uikit/view_content.hpp"

namespace test {

namespace {

class Fonts : public UIKitTest {};

CGFloat lineHeight(const UIFont* font) { return objc::send<CGFloat, "lineHeight">(font); }

TEST_F(Fonts, HaveTheRequestedSize) {
  EXPECT_EQ(UIFont::systemFontOfSize(13)->pointSize(), 13);
  EXPECT_EQ(UIFont::boldSystemFontOfSize(15.5)->pointSize(), 15.5);
}

TEST_F(Fonts, KeepTheirWeightInAnotherSize) {
  UIFont* bold = UIFont::boldSystemFontOfSize(13)->fontWithSize(20);
  EXPECT_TRUE(bold->isEqual(UIFont::boldSystemFontOfSize(20)));
  EXPECT_FALSE(bold->isEqual(UIFont::systemFontOfSize(20)));
}

TEST_F(Fonts, LineHeightIsAscenderMinusDescender) {
  const UIFont* font = UIFont::systemFontOfSize(15);
  EXPECT_EQ(lineHeight(font), 18);
  const auto ascender = objc::send<CGFloat, "ascender">(font);
  const auto descender = objc::send<CGFloat, "descender">(font);
  EXPECT_GT(ascender, 10);
  EXPECT_LT(descender, 0);
  EXPECT_DOUBLE_EQ(ascender - descender, lineHeight(font));
}

TEST_F(Fonts, ReturnTheirFamilyName) {
  EXPECT_EQ(text(objc::send<NSString*, "familyName">(UIFont::systemFontOfSize(10))), drawing::systemFontFamily);
}

TEST_F(Fonts, UseTheDefaultSizeForInvalidSizes) {
  for (const CGFloat size : {CGFloat{0}, CGFloat{-5}, CGFloat{NAN}, CGFloat{INFINITY}}) {
    EXPECT_EQ(UIFont::systemFontOfSize(size)->pointSize(), 12) << size;
    EXPECT_EQ(UIFont::systemFontOfSize(20)->fontWithSize(size)->pointSize(), 12) << size;
  }
}

TEST_F(Fonts, EnormousFontsCanBeMeasured) {
  const auto label = UIView::withFrame<UILabel>({});
  label->setText("Wide"_ns);
  label->setFont(UIFont::systemFontOfSize(1e300));
  const auto size = objc::send<CGSize, "intrinsicContentSize">(label.get());
  EXPECT_GT(size.width, 1000);
  EXPECT_LE(size.height, 1200);
}

}  // namespace

}  // namespace test
