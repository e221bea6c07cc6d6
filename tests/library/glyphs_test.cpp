#include <gtest/gtest.h>

#include "library/view/brim_container.hpp"
#include "platform/ns_data.hpp"
#include "simulator/drawing/canvas.hpp"
#include "simulator/uikit/images/image_class.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::Phone;

UIView* heldBy(BrimContainer* banner, const char* field) {
  const id object = objc::detail::identifier(banner);
  return static_cast<UIView*>(
      static_cast<void*>(object_getIvar(object, class_getInstanceVariable(object_getClass(object), field))));
}

UIImageView* badge(BrimContainer* banner) { return static_cast<UIImageView*>(heldBy(banner, "_appDetailImage")); }
UIImageView* largePicture(BrimContainer* banner) { return static_cast<UIImageView*>(heldBy(banner, "_appIV")); }

CGFloat leadingConstant(BrimContainer* banner, const char* field) {
  return objc::send<CGFloat, "constant">(heldBy(banner, field));
}

objc::Ref<UIImage> picture() {
  drawing::Canvas canvas({4, 4}, 1);
  canvas.clear({1, 0, 0, 1});
  return uikit::makeImage(canvas.snapshot());
}

enum class Badge { Glyph, Icon };

// A laid out banner of the application, in the color mode.
struct Shown {
  objc::Ref<UIView> superview = UIView::withFrame<UIView>({{0, 0}, {359, 100}});
  objc::Ref<UIImage> icon = picture();
  objc::Ref<BrimContainer> banner = BrimContainer::make(icon, "Anna"_ns, "Sub"_ns, "Hello"_ns);

  Shown(const char* application, NSInteger mode, Badge kind = Badge::Glyph) {
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

TEST_P(Glyph, IsTheApplicationsInTheColorThatSuitsTheMode) {
  const Phone phone;
  for (const NSInteger mode : {darkMode, blackMode, lightMode, NSInteger{0}, NSInteger{7}}) {
    const Shown shown(GetParam().application, mode);
    shown.banner->updateImage(picture());
    const std::string color = mode == darkMode || mode == blackMode ? "white" : "black";
    const std::string name = nameOf(badge(shown.banner)->image());
    EXPECT_TRUE(endsWith(name, "glyphs/" + color + "/" + GetParam().glyph + ".png")) << name;
  }
}

INSTANTIATE_TEST_SUITE_P(Applications, Glyph, testing::ValuesIn(applications));

TEST(GlyphBadge, IsEmptyForAnApplicationWithoutGlyph) {
  const Phone phone;
  for (const char* application : {"org.example.unknown", "COM.APPLE.MOBILESMS", static_cast<const char*>(nullptr)}) {
    const Shown shown(application, lightMode);
    shown.banner->updateImage(picture());
    EXPECT_EQ(badge(shown.banner)->image(), nullptr);
  }
}

TEST(UpdateImage, ShowsThePictureLargeAndTheApplicationsIconAsBadge) {
  const Phone phone;
  const Shown shown("com.apple.MobileSMS", lightMode, Badge::Icon);
  const auto photo = picture();
  shown.banner->updateImage(photo);
  EXPECT_EQ(largePicture(shown.banner)->image(), photo.get());
  EXPECT_EQ(badge(shown.banner)->image(), shown.icon.get());
}

TEST(UpdateImage, LastPictureStaysAndTextsMakeRoomEachTime) {
  const Phone phone;
  const Shown shown("com.apple.MobileSMS", lightMode);
  const auto first = picture();
  const auto second = picture();
  for (const auto& photo : {first, second}) {
    shown.banner->updateImage(photo);
    for (const char* field :
         {"_brimHeaderLeadingConstraint", "_brimSubHeaderLeadingConstraint", "_brimBodyLeadingConstraint"})
      EXPECT_DOUBLE_EQ(leadingConstant(shown.banner, field), 24) << field;
  }
  EXPECT_EQ(largePicture(shown.banner)->image(), second.get());
}

TEST(UpdateImage, OfNilClearsTheLargePicture) {
  const Phone phone;
  const Shown shown("com.apple.MobileSMS", lightMode);
  shown.banner->updateImage(nullptr);
  EXPECT_EQ(largePicture(shown.banner)->image(), nullptr);
}

TEST(UpdateColors, RecolorsAGlyphThatIsShown) {
  const Phone phone;
  const Shown shown("com.apple.MobileSMS", lightMode);
  shown.banner->updateImage(picture());
  shown.banner->setColorSet(BrimColors::withMode(darkMode));
  shown.banner->updateColors();
  EXPECT_TRUE(endsWith(nameOf(badge(shown.banner)->image()), "glyphs/white/imessages.png"));
}

TEST(UpdateColors, LoadsNoGlyphWhereTheBadgeIsEmpty) {
  const Phone phone;
  const Shown shown("com.apple.MobileSMS", lightMode);
  shown.banner->updateColors();
  EXPECT_EQ(badge(shown.banner)->image(), nullptr);
  EXPECT_DOUBLE_EQ(leadingConstant(shown.banner, "_brimHeaderLeadingConstraint"), 16);
}

TEST(UpdateColors, LeavesAnIconBadgeAlone) {
  const Phone phone;
  const Shown shown("com.apple.MobileSMS", lightMode, Badge::Icon);
  shown.banner->updateImage(picture());
  shown.banner->updateColors();
  EXPECT_EQ(badge(shown.banner)->image(), shown.icon.get());
}

TEST(UpdateColorMode, DoesNotTouchTheGlyph) {
  Phone phone;
  const Shown shown("com.apple.MobileSMS", lightMode);
  shown.banner->updateImage(picture());
  shown.banner->updateColorMode(BrimColors::withMode(darkMode));
  phone.wait(1);
  EXPECT_TRUE(endsWith(nameOf(badge(shown.banner)->image()), "glyphs/black/imessages.png"));
}

TEST(AssetBundle, ThatIsMissingLeavesEnglishWordsAndNoGlyph) {
  Phone phone;
  std::filesystem::remove_all(phone.root() / "Library/Application Support/Brim/Assets.bundle");
  const Shown shown("com.apple.MobileSMS", lightMode);
  shown.banner->updateImage(picture());
  EXPECT_EQ(badge(shown.banner)->image(), nullptr);
  phone.set("hide_unless_expanded", true);
  const int controller = phone.present({{"title", "Anna"}});
  EXPECT_EQ(phone.view(controller, "headerLabel").at("text"), "Content hidden");
}

TEST(AssetBundle, ThatIsHalfThereLeavesWhatItHas) {
  Phone phone;
  const auto bundle = phone.root() / "Library/Application Support/Brim/Assets.bundle";
  std::filesystem::remove_all(bundle);
  std::filesystem::create_directories(bundle / "glyphs/black");
  const Shown shown("com.apple.MobileSMS", lightMode);
  shown.banner->updateImage(picture());
  EXPECT_EQ(badge(shown.banner)->image(), nullptr);
}

}  // namespace
