#include "simulator/uikit/rendering/renderer.hpp"

#include <nlohmann/json.hpp>

#include "objc/class_definition.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/description/view_tree.hpp"
#include "simulator/uikit/views/color.hpp"
#include "tests/uikit/uikit_fixture.hpp"

namespace test {

// A view with two instance variables that refer to views. One of them is also a property.
class HolderView : public objc::Interface<"HolderView", UIView> {};

struct HolderState {
  objc::Ref<UIView> title;
  objc::Ref<UIView> mark;
};

}  // namespace test

template <>
struct objc::StateOf<test::HolderView> {
  using Type = test::HolderState;
};

namespace test {

namespace {

constexpr std::uint32_t red = 0xffff0000;
constexpr std::uint32_t black = 0xff000000;

class Renderer : public UIKitTest {
 public:
  static void setBackgroundColor(UIView* view, drawing::Color color) {
    CGColor value = {color};
    view->layer()->setBackgroundColor(&value);
  }
  objc::Ref<UIView> addRed(CGRect frame) const {
    auto view = addView(window, frame);
    setBackgroundColor(view, {1, 0, 0, 1});
    return view;
  }
  static std::uint32_t pixel(int x, int y) { return uikit::renderScreen(1)->pixel(x, y); }

  objc::Ref<UIWindow> window = makeWindow();
};

UIView* title(HolderView* self) { return objc::state(self).title; }

void defineHolder() {
  static constexpr objc::MethodEntry methods[] = {objc::method<"title", &title>()};
  static constexpr objc::FieldEntry fields[] = {
      objc::field<objc::Ref<UIView>>("_title", offsetof(HolderState, title)),
      objc::field<objc::Ref<UIView>>("_mark", offsetof(HolderState, mark)),
  };
  if (HolderView::classObject() == nullptr) objc::defineClassWithState<HolderView>(methods, fields);
}

}  // namespace

TEST_F(Renderer, DrawsBackgroundsAtTheirFrames) {
  addRed({{10, 10}, {20, 20}});
  EXPECT_EQ(pixel(9, 15), black);
  EXPECT_EQ(pixel(10, 15), red);
  EXPECT_EQ(pixel(29, 29), red);
  EXPECT_EQ(pixel(30, 30), black);
}

TEST_F(Renderer, SkipsHiddenViewsAndBlendsTransparentOnes) {
  const auto view = addRed({{10, 10}, {20, 20}});
  view->setAlpha(0.5);
  EXPECT_NEAR((pixel(15, 15) >> 16) & 0xff, 128, 1);
  view->setHidden(true);
  EXPECT_EQ(pixel(15, 15), black);
}

TEST_F(Renderer, ClipsSubviewsOnlyIfRequested) {
  const auto view = addView(window, {{10, 10}, {20, 20}});
  const auto inner = addView(view, {{10, 10}, {100, 100}});
  setBackgroundColor(inner, {1, 0, 0, 1});
  EXPECT_EQ(pixel(50, 50), red);
  view->setClipsToBounds(true);
  EXPECT_EQ(pixel(50, 50), black);
  EXPECT_EQ(pixel(25, 25), red);
}

TEST_F(Renderer, RoundsCorners) {
  const auto view = addRed({{10, 10}, {40, 40}});
  view->layer()->setCornerRadius(20);
  EXPECT_EQ(pixel(11, 11), black);
  EXPECT_EQ(pixel(30, 30), red);
}

TEST_F(Renderer, DrawsIntermediateStatesOfAnimations) {
  const auto view = addRed({{0, 0}, {10, 10}});
  UIView::animate(1, objc::block([view] { view->setFrame({{100, 0}, {10, 10}}); }));
  EXPECT_EQ(pixel(5, 5), red);
  foundation::stepClock(0.5);
  EXPECT_EQ(pixel(5, 5), black);
  EXPECT_EQ(pixel(55, 5), red);
  foundation::stepClock(0.5);
  EXPECT_EQ(pixel(105, 5), red);
}

TEST_F(Renderer, ReturnsTheSameImageWithoutAChange) {
  const auto view = addRed({{0, 0}, {10, 10}});
  const auto first = uikit::renderScreen(1);
  EXPECT_EQ(uikit::renderScreen(1), first);
  view->setHidden(true);
  EXPECT_NE(uikit::renderScreen(1), first);
}

TEST_F(Renderer, ScreenPictureReturnsTheChangedPixels) {
  const auto view = addRed({{10, 10}, {20, 20}});
  const auto extents = [](const drawing::RegionHandle& region) {
    cairo_rectangle_int_t all = {};
    cairo_region_get_extents(region.get(), &all);
    return std::vector<int>{all.x, all.y, all.width, all.height};
  };
  const CGSize screen = uikit::environment().device.screen;
  const int width = static_cast<int>(screen.width), height = static_cast<int>(screen.height);
  uikit::ScreenPicture picture;
  EXPECT_EQ(extents(picture.update(1)), (std::vector<int>{0, 0, width, height}));
  EXPECT_EQ(picture.canvas()->pixel(15, 15), red);
  EXPECT_EQ(extents(picture.update(1)), (std::vector<int>{0, 0, 0, 0}));
  view->setFrame({{40, 10}, {20, 20}});
  uikit::renderScreen(2);
  EXPECT_EQ(extents(picture.update(1)), (std::vector<int>{10, 10, 50, 20}));
  EXPECT_EQ(picture.canvas()->pixel(45, 15), red);
  uikit::invalidateScreen();
  EXPECT_EQ(extents(picture.update(1)), (std::vector<int>{0, 0, width, height}));
}

TEST_F(Renderer, NotifiesEachObserverOfDisplayChanges) {
  int first = 0;
  int second = 0;
  const uikit::DisplayObservation observation([&] { ++first; });
  {
    const uikit::DisplayObservation other([&] { ++second; });
    uikit::noteDisplayChange();
  }
  uikit::noteDisplayChange();
  EXPECT_EQ(first, 2);
  EXPECT_EQ(second, 1);
}

TEST_F(Renderer, IsDeterministic) {
  const auto view = addRed({{3.3, 4.7}, {40, 40}});
  view->layer()->setCornerRadius(9);
  view->layer()->setContinuousCorners(true);
  const auto first = uikit::renderScreen(2)->pixelsAsPng();
  uikit::noteDisplayChange();
  EXPECT_EQ(uikit::renderScreen(2)->pixelsAsPng(), first);
}

TEST_F(Renderer, CropsToAViewAtWholePoints) {
  const auto view = addRed({{10.5, 10.5}, {19, 19}});
  const auto picture = uikit::renderView(view, 2);
  EXPECT_EQ(picture->pixelWidth(), 40);
  EXPECT_EQ(picture->pixelHeight(), 40);
  EXPECT_EQ(picture->pixel(0, 0), black);
  EXPECT_EQ(picture->pixel(1, 1), red);
}

TEST_F(Renderer, TreeDescriptionContainsLaidOutFrames) {
  window->setFrame({{0, 5}, {100, 100}});
  const auto view = addConstrainedView(window);
  view->leadingAnchor()->equalTo(window->leadingAnchor(), 7)->setActive(true);
  view->topAnchor()->equalTo(window->topAnchor(), 8)->setActive(true);
  view->widthAnchor()->equalToConstant(9)->setActive(true);
  view->heightAnchor()->equalToConstant(10)->setActive(true);
  setBackgroundColor(view, {1, 0, 0, 1});
  view->layer()->setCornerRadius(4);
  view->layer()->setContinuousCorners(true);
  view->setContentMode(UIViewContentMode::Top);
  view->setAlpha(0.5);
  const auto tree = uikit::describeTree(window);
  EXPECT_EQ(tree.at("class"), "UIWindow");
  const auto& node = tree.at("children").at(0);
  EXPECT_EQ(node, nlohmann::ordered_json::parse(R"({"class":"UIView","frame":[7.0,13.0,9.0,10.0],"hidden":false,
      "alpha":0.5,"background":[1.0,0.0,0.0,1.0],"cornerRadius":4.0,"continuousCorners":true,"contentMode":5,
      "interactive":true,"children":[]})"));
}

TEST_F(Renderer, TreeDescriptionNamesViewsAfterTheirVariables) {
  defineHolder();
  const auto holder = UIView::withFrame<HolderView>({});
  window->addSubview(holder);
  objc::state(holder.get()).title = addView(holder, {});
  objc::state(holder.get()).mark = addView(window, {});
  addView(holder, {});
  const auto tree = uikit::describeTree(window);
  const auto& nodes = tree.at("children").at(0).at("children");
  EXPECT_EQ(nodes.at(0).at("property"), "title");
  EXPECT_FALSE(nodes.at(1).contains("property"));
  EXPECT_EQ(tree.at("children").at(1).at("property"), "_mark");
}

}  // namespace test
