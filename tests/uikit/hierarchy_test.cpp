#include "simulator/uikit/views/window.hpp"
#include "tests/uikit/uikit_fixture.hpp"

namespace test {

namespace {

class Hierarchy : public UIKitTest {};

Log tagsOf(NSArray* views) {
  Log tags;
  for (NSUInteger index = 0; index < views->count(); ++index)
    tags.push_back(std::to_string(objc::send<NSInteger, "tag">(views->objectAtIndex(index))));
  return tags;
}

void setTag(UIView* view, NSInteger tag) { objc::send<void, "setTag:">(view, tag); }

void insertAt(UIView* parent, UIView* child, NSInteger index) {
  objc::send<void, "insertSubview:atIndex:">(parent, child, index);
}

class SubviewOrder : public Hierarchy {
 public:
  SubviewOrder() {
    for (NSInteger tag = 1; tag <= 3; ++tag) {
      children.push_back(addView(parent, {}));
      setTag(children.back(), tag);
    }
  }
  Log order() const { return tagsOf(parent->subviews()); }

  objc::Ref<UIView> parent = UIView::withFrame<UIView>({});
  std::vector<objc::Ref<UIView>> children;
};

}  // namespace

TEST_F(SubviewOrder, IsTheOrderOfAddition) { EXPECT_EQ(order(), (Log{"1", "2", "3"})); }

TEST_F(SubviewOrder, ChangesWithBringToFrontAndSendToBack) {
  parent->bringSubviewToFront(children[0]);
  EXPECT_EQ(order(), (Log{"2", "3", "1"}));
  parent->sendSubviewToBack(children[2]);
  EXPECT_EQ(order(), (Log{"3", "2", "1"}));
}

TEST_F(SubviewOrder, InsertionIndexBeyondTheEndAddsAtTheFront) {
  const auto fourth = UIView::withFrame<UIView>({});
  const auto fifth = UIView::withFrame<UIView>({});
  setTag(fourth, 4);
  setTag(fifth, 5);
  insertAt(parent, fourth, 1);
  insertAt(parent, fifth, 99);
  EXPECT_EQ(order(), (Log{"1", "4", "2", "3", "5"}));
}

TEST_F(SubviewOrder, ChangesWithInsertionBesideASubview) {
  objc::send<void, "insertSubview:belowSubview:">(parent.get(), children[2].get(), children[1].get());
  EXPECT_EQ(order(), (Log{"1", "3", "2"}));
  objc::send<void, "insertSubview:aboveSubview:">(parent.get(), children[0].get(), children[1].get());
  EXPECT_EQ(order(), (Log{"3", "2", "1"}));
}

TEST_F(SubviewOrder, SubviewsArrayIsASnapshot) {
  NSArray* before = parent->subviews();
  children[0]->removeFromSuperview();
  EXPECT_EQ(before->count(), 3U);
  EXPECT_EQ(parent->subviews()->count(), 2U);
}

TEST_F(Hierarchy, MovingToAWindowSendsMessagesInOrder) {
  const auto window = makeWindow();
  const auto parent = ProbeView::named("parent");
  window->addSubview(parent);
  takeLog();
  const auto child = ProbeView::named("child");
  parent->addSubview(child);
  EXPECT_EQ(takeLog(),
            (Log{"child willMoveToSuperview parent", "child willMoveToWindow UIWindow",
                 "child didMoveToWindow UIWindow", "child didMoveToSuperview parent", "parent didAddSubview child"}));
}

TEST_F(Hierarchy, RemovalSendsMessagesWithANilSuperview) {
  const auto parent = ProbeView::named("parent");
  const auto child = ProbeView::named("child");
  parent->addSubview(child);
  takeLog();
  child->removeFromSuperview();
  EXPECT_EQ(takeLog(),
            (Log{"child willMoveToSuperview nil", "parent willRemoveSubview child", "child didMoveToSuperview nil"}));
  child->removeFromSuperview();
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(Hierarchy, MoveBetweenSuperviewsSendsEachMessageOnce) {
  const auto first = ProbeView::named("first");
  const auto second = ProbeView::named("second");
  const auto child = ProbeView::named("child");
  first->addSubview(child);
  takeLog();
  second->addSubview(child);
  EXPECT_EQ(takeLog(), (Log{"child willMoveToSuperview second", "first willRemoveSubview child",
                            "child didMoveToSuperview second", "second didAddSubview child"}));
  EXPECT_EQ(first->subviews()->count(), 0U);
}

TEST_F(Hierarchy, AddingAgainOnlyBringsToTheFront) {
  const auto parent = ProbeView::named("parent");
  const auto child = ProbeView::named("child");
  parent->addSubview(child);
  addView(parent, {});
  takeLog();
  parent->addSubview(child);
  EXPECT_EQ(takeLog(), Log{});
  EXPECT_EQ(parent->subviews()->objectAtIndex(1), child.get());
}

TEST_F(Hierarchy, NestedViewsAreNotifiedOfTheWindow) {
  const auto window = makeWindow();
  const auto outer = ProbeView::named("outer");
  const auto inner = ProbeView::named("inner");
  outer->addSubview(inner);
  takeLog();
  window->addSubview(outer);
  EXPECT_EQ(takeLog(), (Log{"outer willMoveToSuperview UIWindow", "outer willMoveToWindow UIWindow",
                            "inner willMoveToWindow UIWindow", "outer didMoveToWindow UIWindow",
                            "inner didMoveToWindow UIWindow", "outer didMoveToSuperview UIWindow"}));
  EXPECT_EQ(inner->window(), window.get());
}

TEST_F(Hierarchy, RejectsAViewInsideItself) {
  const auto outer = UIView::withFrame<UIView>({});
  const auto inner = addView(outer, {});
  inner->addSubview(outer);
  outer->addSubview(outer);
  outer->addSubview(nullptr);
  EXPECT_EQ(outer->superview(), nullptr);
  EXPECT_EQ(outer->subviews()->count(), 1U);
}

TEST_F(Hierarchy, ReleasedTreeIsDeallocatedCompletely) {
  const int before = livingObjects();
  {
    const auto window = makeWindow();
    auto outer = ProbeView::named("outer");
    const auto inner = ProbeView::named("inner");
    const auto target = objc::make<RecognizerTarget>();
    window->addSubview(outer);
    outer->addSubview(inner);
    inner->setTranslatesAutoresizingMaskIntoConstraints(false);
    inner->leadingAnchor()->equalTo(outer->leadingAnchor())->setActive(true);
    inner->widthAnchor()->equalToConstant(10)->setActive(true);
    inner->addGestureRecognizer(UITapGestureRecognizer::withTarget(target, objc::selector<"tap:">()));
    window->layoutIfNeeded();
    UIView::animate(1, objc::block([view = outer] { view->setAlpha(0); }));
    EXPECT_EQ(livingObjects(), before + 3);
    drainPool();
  }
  drainPool();
  EXPECT_EQ(livingObjects(), before);
}

TEST_F(Hierarchy, SubviewThatOutlivesItsSuperviewHasNone) {
  const auto child = UIView::withFrame<UIView>({});
  {
    const auto parent = UIView::withFrame<UIView>({});
    parent->addSubview(child);
  }
  EXPECT_EQ(child->superview(), nullptr);
}

TEST_F(Hierarchy, RemovedViewResignsFirstResponder) {
  const auto window = makeWindow();
  const auto outer = ProbeView::named("outer");
  const auto inner = ProbeView::named("inner");
  outer->addSubview(inner);
  EXPECT_FALSE(inner->becomeFirstResponder());
  window->addSubview(outer);
  window->makeKeyAndVisible();
  EXPECT_TRUE(inner->becomeFirstResponder());
  EXPECT_EQ(uikit::firstResponder(), inner.get());
  takeLog();
  outer->removeFromSuperview();
  EXPECT_EQ(takeLog()[1], "inner resigns");
  EXPECT_EQ(uikit::firstResponder(), nullptr);
  EXPECT_FALSE(inner->isFirstResponder());
}

TEST_F(Hierarchy, NewFirstResponderReplacesTheOldOne) {
  const auto window = makeWindow();
  const auto first = ProbeView::named("first");
  const auto second = ProbeView::named("second");
  window->addSubview(first);
  window->addSubview(second);
  first->becomeFirstResponder();
  takeLog();
  EXPECT_TRUE(second->becomeFirstResponder());
  EXPECT_EQ(takeLog(), Log{"first resigns"});
  EXPECT_TRUE(second->isFirstResponder());
  EXPECT_FALSE(first->isFirstResponder());
}

TEST_F(Hierarchy, ResponderChainGoesThroughControllersToTheApplication) {
  const auto application = objc::make<UIApplication>();
  uikit::setSharedApplication(application);
  const auto window = makeWindow();
  const auto controller = objc::make<UIViewController>();
  objc::send<void, "setRootViewController:">(window.get(), controller.get());
  const auto inner = addView(controller->view(), {});
  EXPECT_EQ(inner->nextResponder(), controller->view());
  EXPECT_EQ(controller->view()->nextResponder(), controller.get());
  EXPECT_EQ(controller->nextResponder(), window.get());
  EXPECT_EQ(window->nextResponder(), application.get());
  uikit::setSharedApplication(nullptr);
}

TEST_F(Hierarchy, GestureRecognizersVariableIsNilWithoutRecognizers) {
  const auto view = UIView::withFrame<UIView>({});
  const Ivar variable = class_getInstanceVariable(UIView::classObject(), "_gestureRecognizers");
  ASSERT_NE(variable, nullptr);
  EXPECT_STREQ(ivar_getTypeEncoding(variable), "@");
  const auto value = [&] {
    return static_cast<NSMutableArray*>(static_cast<void*>(object_getIvar(objc::detail::toId(view.get()), variable)));
  };
  EXPECT_EQ(value(), nullptr);
  EXPECT_EQ(view->gestureRecognizers(), nullptr);

  const auto tap = UITapGestureRecognizer::withTarget(nullptr, nullptr);
  view->addGestureRecognizer(tap);
  ASSERT_NE(value(), nullptr);
  EXPECT_EQ(value()->objectAtIndex(0), tap.get());
  EXPECT_EQ(tap->view(), view.get());

  view->removeGestureRecognizer(tap);
  EXPECT_EQ(value(), nullptr);
  EXPECT_EQ(tap->view(), nullptr);
}

}  // namespace test
