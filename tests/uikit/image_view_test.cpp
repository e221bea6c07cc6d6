// Tests of UIImageView.
#include "platform/ui_image_view.hpp"

#include "simulator/uikit/images/image_class.hpp"
#include "simulator/uikit/rendering/renderer.hpp"
#include "tests/uikit/view_content.hpp"

namespace test {

namespace {

constexpr std::uint32_t red = 0xffff0000;
constexpr std::uint32_t black = 0xff000000;

class ImageView : public UIKitTest {
 public:
  objc::Ref<UIImageView> addImageView(CGRect frame, UIViewContentMode mode) const {
    auto view = UIView::withFrame<UIImageView>(frame);
    view->setImage(uikit::makeImage(solidImage(20, 10)));
    view->setContentMode(mode);
    window->addSubview(view);
    return view;
  }

  objc::Ref<UIWindow> window = makeWindow();
};

CGSize intrinsicSize(const UIView* view) { return objc::send<CGSize, "intrinsicContentSize">(view); }

TEST_F(ImageView, HasTheIntrinsicSizeOfItsImage) {
  auto view = UIView::withFrame<UIImageView>({});
  EXPECT_EQ(intrinsicSize(view), (CGSize{-1, -1}));
  view->setImage(uikit::makeImage(solidImage(20, 10, red, 2)));
  EXPECT_EQ(intrinsicSize(view), (CGSize{10, 5}));
}

TEST_F(ImageView, InitWithImageSetsTheSize) {
  const auto image = uikit::makeImage(solidImage(20, 10));
  auto view = objc::adopt(objc::send<UIImageView*, "initWithImage:">(objc::allocate<UIImageView>(), image.get()));
  EXPECT_EQ(view->frame(), (CGRect{{0, 0}, {20, 10}}));
  EXPECT_EQ(view->image(), image.get());
}

TEST_F(ImageView, IgnoresTouchesByDefault) {
  EXPECT_FALSE((objc::send<bool, "isUserInteractionEnabled">(UIView::withFrame<UIImageView>({}).get())));
}

TEST_F(ImageView, ResizesWithItsImageUnderConstraints) {
  auto view = UIView::withFrame<UIImageView>({});
  view->setTranslatesAutoresizingMaskIntoConstraints(false);
  window->addSubview(view);
  view->leadingAnchor()->equalTo(window->leadingAnchor())->activated();
  view->topAnchor()->equalTo(window->topAnchor())->activated();
  view->setImage(uikit::makeImage(solidImage(20, 10)));
  window->layoutIfNeeded();
  EXPECT_EQ(view->frame().size, (CGSize{20, 10}));
  view->setImage(uikit::makeImage(solidImage(30, 40)));
  window->layoutIfNeeded();
  EXPECT_EQ(view->frame().size, (CGSize{30, 40}));
}

TEST_F(ImageView, ScalesToFill) {
  addImageView({{0, 0}, {40, 40}}, UIViewContentMode::ScaleToFill);
  EXPECT_EQ(inkBounds(black), (CGRect{{0, 0}, {40, 40}}));
}

TEST_F(ImageView, AspectFitShowsTheWholeImage) {
  addImageView({{0, 0}, {40, 40}}, UIViewContentMode::ScaleAspectFit);
  EXPECT_EQ(inkBounds(black), (CGRect{{0, 10}, {40, 20}}));
}

TEST_F(ImageView, AspectFillExceedsItsBoundsUnlessClipped) {
  auto view = addImageView({{100, 100}, {40, 40}}, UIViewContentMode::ScaleAspectFill);
  EXPECT_EQ(inkBounds(black), (CGRect{{80, 100}, {80, 40}}));
  view->setClipsToBounds(true);
  EXPECT_EQ(inkBounds(black), (CGRect{{100, 100}, {40, 40}}));
}

TEST_F(ImageView, CenterModeKeepsTheSizeOfTheImage) {
  addImageView({{0, 0}, {40, 40}}, UIViewContentMode::Center);
  EXPECT_EQ(inkBounds(black), (CGRect{{10, 15}, {20, 10}}));
}

TEST_F(ImageView, DrawsNothingWithoutAnImage) {
  auto view = addImageView({{0, 0}, {40, 40}}, UIViewContentMode::ScaleToFill);
  view->setImage(nullptr);
  EXPECT_EQ(inkBounds(black), CGRect{});
}

TEST_F(ImageView, DescriptionNamesTheSourceOfTheImage) {
  auto view = UIView::withFrame<UIImageView>({});
  EXPECT_FALSE(describe(view).contains("image"));
  view->setImage(uikit::makeImage(solidImage(20, 10)->named("folder/mail.png")));
  EXPECT_EQ(describe(view).at("image"), "folder/mail.png");
  view->setImage(uikit::makeImage(solidImage(20, 10)));
  EXPECT_EQ(describe(view).at("image"), "data 20x10");
}

}  // namespace

}  // namespace test
