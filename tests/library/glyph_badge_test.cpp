#include <gtest/gtest.h>

#include "library/view/brim_container.hpp"
#include "platform/ns_bundle.hpp"
#include "platform/ns_data.hpp"
#include "simulator/drawing/canvas.hpp"
#include "simulator/uikit/images/image_class.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::Phone;

UIView* instanceVariable(BrimContainer* banner, const char* name) {
  const id object = objc::detail::toId(banner);
  return static_cast<UIView*>(
      static_cast<void*>(object_getIvar(object, class_getInstanceVariable(object_getClass(object), name))));
}

UIImageView* badge(BrimContainer* banner) {
  return static_cast<UIImageView*>(instanceVariable(banner, "_appDetailImage"));
}
UIImageView* largePicture(BrimContainer* banner) {
  return static_cast<UIImageView*>(instanceVariable(banner, "_appIV"));
}

CGFloat constraintConstant(BrimContainer* banner, const char* name) {
  return objc::send<CGFloat, "constant">(instanceVariable(banner, name));
}

objc::Ref<UIImage> picture() {
  drawing::Canvas canvas({4, 4}, 1);
  canvas.clear({1, 0, 0, 1});
  return uikit::makeImage(canvas.snapshot());
}

enum class Badge { Glyph, Icon };

// A banner that is laid out in a superview. Its badge represents the application; a null application means an empty
// badge.
struct LaidOutBanner {
  objc::Ref<UIView> superview = UIView::withFrame<UIView>({{0, 0}, {359, 100}});
  objc::Ref<UIImage> icon = picture();
  objc::Ref<BrimContainer> banner = BrimContainer::make(icon, "Anna"_ns, "Sub"_ns, "Hello"_ns);

  LaidOutBanner(const char* application, NSInteger mode, Badge kind = Badge::Glyph) {
    banner->setColorSet(BrimColors::withMode(mode));
    banner->setEnableGlyphs(true);
    banner->setUseIconsInsteadOfGlyphs(kind == Badge::Icon);
    banner->setAppSize(40);
    if (application != nullptr) banner->setAppDetailImageBundleId(NSString::stringWithUTF8String(application));
    superview->addSubview(banner);
    superview->layoutIfNeeded();
  }
};

std::string nameOf(UIImage* image) {
  const auto pixels = uikit::imageOf(image);
  return pixels == nullptr ? "(none)" : pixels->name();
}

bool endsWith(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

struct GlyphCase {
  const char* application;
  const char* glyph;
};

void PrintTo(const GlyphCase& given, std::ostream* stream) { *stream << given.application; }

constexpr GlyphCase applications[] = {
    {"net.whatsapp.WhatsApp", "whatsapp"}, {"net.whatsapp.WhatsAppSMB", "whatsapp"},
    {"com.apple.MobileSMS", "imessages"},  {"com.atebits.Tweetie2", "twitter"},
    {"com.tinyspeck.chatlyio", "slack"},   {"com.hammerandchisel.discord", "discord"},
    {"com.burbn.instagram", "instagram"},  {"com.facebook.Messenger", "facebook_messenger"},
    {"ph.telegra.Telegraph", "telegram"}};

class Glyph : public testing::TestWithParam<GlyphCase> {};

TEST_P(Glyph, BelongsToTheApplicationAndContrastsWithTheColorMode) {
  const Phone phone;
  for (const NSInteger mode : {darkMode, blackMode, lightMode, NSInteger{0}, NSInteger{7}}) {
    const LaidOutBanner laidOut(GetParam().application, mode);
    laidOut.banner->updateImage(picture());
    const std::string color = mode == darkMode || mode == blackMode ? "white" : "black";
    const std::string name = nameOf(badge(laidOut.banner)->image());
    EXPECT_TRUE(endsWith(name, "glyphs/" + color + "/" + GetParam().glyph + ".png")) << name;
  }
}

INSTANTIATE_TEST_SUITE_P(Applications, Glyph, testing::ValuesIn(applications));

TEST(GlyphBadge, IsEmptyForAnApplicationWithoutGlyph) {
  const Phone phone;
  for (const char* application : {"org.example.unknown", "COM.APPLE.MOBILESMS", static_cast<const char*>(nullptr)}) {
    const LaidOutBanner laidOut(application, lightMode);
    laidOut.banner->updateImage(picture());
    EXPECT_EQ(badge(laidOut.banner)->image(), nullptr);
  }
}

TEST(UpdateImage, ShowsThePictureAndUsesTheIconAsBadge) {
  const Phone phone;
  const LaidOutBanner laidOut("com.apple.MobileSMS", lightMode, Badge::Icon);
  const auto photo = picture();
  laidOut.banner->updateImage(photo);
  EXPECT_EQ(largePicture(laidOut.banner)->image(), photo.get());
  EXPECT_EQ(badge(laidOut.banner)->image(), laidOut.icon.get());
}

TEST(UpdateImage, ShowsTheLastPictureAndIndentsTheTexts) {
  const Phone phone;
  const LaidOutBanner laidOut("com.apple.MobileSMS", lightMode);
  const auto first = picture();
  const auto second = picture();
  constexpr const char* indentations[] = {"_brimHeaderLeadingConstraint", "_brimSubHeaderLeadingConstraint",
                                          "_brimBodyLeadingConstraint"};
  for (const char* field : indentations) EXPECT_DOUBLE_EQ(constraintConstant(laidOut.banner, field), 16) << field;
  for (const auto& photo : {first, second}) {
    laidOut.banner->updateImage(photo);
    for (const char* field : indentations) {
      EXPECT_DOUBLE_EQ(constraintConstant(laidOut.banner, field), 24) << field;
      // The next picture must restore the indentation.
      objc::send<void, "setConstant:">(instanceVariable(laidOut.banner, field), CGFloat{16});
    }
  }
  EXPECT_EQ(largePicture(laidOut.banner)->image(), second.get());
}

CGRect frameOf(BrimContainer* banner, const char* name) { return instanceVariable(banner, name)->frame(); }

TEST(GlyphBadge, ExtendsFromTheCenterOfThePictureToTheUpperRight) {
  const Phone phone;
  const LaidOutBanner laidOut("com.apple.MobileSMS", lightMode);
  const CGRect picture = frameOf(laidOut.banner, "_appIV");
  const CGRect glyph = frameOf(laidOut.banner, "_appDetailImage");
  EXPECT_DOUBLE_EQ(glyph.origin.x, picture.origin.x + 20);
  EXPECT_DOUBLE_EQ(glyph.origin.y + glyph.size.height, picture.origin.y + 20);
  EXPECT_DOUBLE_EQ(glyph.size.width, 36);
  EXPECT_DOUBLE_EQ(glyph.size.height, 36);
  EXPECT_DOUBLE_EQ((objc::send<CGFloat, "cornerRadius">(badge(laidOut.banner)->layer())), 0);
}

TEST(IconBadge, IsARoundIconOverTheUpperRightCornerOfThePicture) {
  const Phone phone;
  const LaidOutBanner laidOut("com.apple.MobileSMS", lightMode, Badge::Icon);
  const CGRect picture = frameOf(laidOut.banner, "_appIV");
  const CGRect icon = frameOf(laidOut.banner, "_appDetailImage");
  EXPECT_DOUBLE_EQ(icon.origin.x + icon.size.width, picture.origin.x + picture.size.width + 7);
  EXPECT_DOUBLE_EQ(icon.origin.y, picture.origin.y - 7);
  EXPECT_DOUBLE_EQ(icon.size.width, 20);
  EXPECT_DOUBLE_EQ(icon.size.height, 20);
  EXPECT_DOUBLE_EQ((objc::send<CGFloat, "cornerRadius">(badge(laidOut.banner)->layer())), 10);
}

TEST(UpdateImage, NilClearsThePicture) {
  const Phone phone;
  const LaidOutBanner laidOut("com.apple.MobileSMS", lightMode);
  laidOut.banner->updateImage(nullptr);
  EXPECT_EQ(largePicture(laidOut.banner)->image(), nullptr);
}

TEST(UpdateColors, RecolorsAVisibleGlyph) {
  const Phone phone;
  const LaidOutBanner laidOut("com.apple.MobileSMS", lightMode);
  laidOut.banner->updateImage(picture());
  laidOut.banner->setColorSet(BrimColors::withMode(darkMode));
  laidOut.banner->updateColors();
  EXPECT_TRUE(endsWith(nameOf(badge(laidOut.banner)->image()), "glyphs/white/imessages.png"));
}

TEST(UpdateColors, LoadsNoGlyphForAnEmptyBadge) {
  const Phone phone;
  const LaidOutBanner laidOut("com.apple.MobileSMS", lightMode);
  laidOut.banner->updateColors();
  EXPECT_EQ(badge(laidOut.banner)->image(), nullptr);
  EXPECT_DOUBLE_EQ(constraintConstant(laidOut.banner, "_brimHeaderLeadingConstraint"), 16);
}

TEST(UpdateColors, DoesNotChangeAnIconBadge) {
  const Phone phone;
  const LaidOutBanner laidOut("com.apple.MobileSMS", lightMode, Badge::Icon);
  laidOut.banner->updateImage(picture());
  laidOut.banner->updateColors();
  EXPECT_EQ(badge(laidOut.banner)->image(), laidOut.icon.get());
}

TEST(UpdateColorMode, DoesNotChangeTheGlyph) {
  Phone phone;
  const LaidOutBanner laidOut("com.apple.MobileSMS", lightMode);
  laidOut.banner->updateImage(picture());
  laidOut.banner->updateColorMode(BrimColors::withMode(darkMode));
  phone.wait(1);
  EXPECT_TRUE(endsWith(nameOf(badge(laidOut.banner)->image()), "glyphs/black/imessages.png"));
}

TEST(AssetBundle, IsBelowTheRootOfThePhone) {
  const Phone phone;
  const auto banner = BrimContainer::make(nullptr, nullptr, nullptr, nullptr);
  const id object = objc::detail::toId(banner.get());
  const id bundle = object_getIvar(object, class_getInstanceVariable(object_getClass(object), "_lBundle"));
  ASSERT_NE(bundle, nullptr);
  const std::string path = objc::send<NSString*, "bundlePath">(bundle)->UTF8String();
  EXPECT_TRUE(std::filesystem::equivalent(path, phone.root() / "Library/Application Support/Brim/Assets.bundle"))
      << path;
}

TEST(AssetBundle, TextsAreEnglishAndBadgesAreEmptyIfItIsMissing) {
  Phone phone;
  std::filesystem::remove_all(phone.root() / "Library/Application Support/Brim/Assets.bundle");
  const LaidOutBanner laidOut("com.apple.MobileSMS", lightMode);
  laidOut.banner->updateImage(picture());
  EXPECT_EQ(badge(laidOut.banner)->image(), nullptr);
  phone.set("hide_unless_expanded", true);
  const int controller = phone.present({{"title", "Anna"}});
  EXPECT_EQ(phone.view(controller, "headerLabel").at("text"), "Content hidden");
}

TEST(AssetBundle, BadgeIsEmptyIfTheGlyphFileIsMissing) {
  Phone phone;
  const auto bundle = phone.root() / "Library/Application Support/Brim/Assets.bundle";
  std::filesystem::remove_all(bundle);
  std::filesystem::create_directories(bundle / "glyphs/black");
  const LaidOutBanner laidOut("com.apple.MobileSMS", lightMode);
  laidOut.banner->updateImage(picture());
  EXPECT_EQ(badge(laidOut.banner)->image(), nullptr);
}

}  // namespace
