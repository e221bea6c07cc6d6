// Tests of UIControl: target-action dispatch and touch tracking.
#include "simulator/uikit/controls/control.hpp"

#include "simulator/uikit/touch/touch.hpp"
#include "tests/uikit/control_target.hpp"
#include "tests/uikit/view_content.hpp"

namespace test {

namespace {

constexpr auto touchUpInside = UIControlEvents::TouchUpInside;

class Controls : public UIKitTest {
 public:
  Controls() { window->addSubview(control); }

  void addAction(SEL action, UIControlEvents events = touchUpInside) const {
    control->addTarget(target, action, events);
  }

  objc::Ref<UIWindow> window = makeWindow();
  objc::Ref<UIControl> control = UIView::withFrame<UIControl>({{100, 100}, {100, 40}});
  objc::Ref<ControlTarget> target = ControlTarget::make();
};

void touch(UITouchPhase phase, CGPoint point) { uikit::deliverTouch(phase, point, 0); }
bool isHighlighted(const UIControl* control) { return objc::send<bool, "isHighlighted">(control); }

TEST_F(Controls, PassTheArgumentsThatTheActionTakes) {
  addAction(objc::selector<"plain">());
  addAction(objc::selector<"withSender:">());
  addAction(objc::selector<"withSender:event:">());
  uikit::sendActions(control, touchUpInside);
  EXPECT_EQ(takeLog(), (Log{"plain", "sender UIControl", "sender and event"}));
}

TEST_F(Controls, SendActionsOnlyForTheirEvents) {
  addAction(objc::selector<"plain">());
  uikit::sendActions(control, UIControlEvents::EditingDidBegin);
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(Controls, SendTheSameActionToATargetOnce) {
  addAction(objc::selector<"plain">());
  addAction(objc::selector<"plain">());
  addAction(objc::selector<"plain">(), UIControlEvents::EditingDidEnd);
  uikit::sendActions(control, touchUpInside);
  EXPECT_EQ(takeLog(), Log{"plain"});
  uikit::sendActions(control, UIControlEvents::EditingDidEnd);
  EXPECT_EQ(takeLog(), Log{"plain"});
}

TEST_F(Controls, DoNotRetainTheirTargets) {
  addAction(objc::selector<"plain">());
  target = nullptr;
  drainPool();
  uikit::sendActions(control, touchUpInside);
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(Controls, DoNotSendActionsToRemovedTargets) {
  addAction(objc::selector<"plain">());
  addAction(objc::selector<"withSender:">());
  objc::send<void, "removeTarget:action:forControlEvents:">(control.get(), target.get(), objc::selector<"plain">(),
                                                            touchUpInside);
  uikit::sendActions(control, touchUpInside);
  EXPECT_EQ(takeLog(), Log{"sender UIControl"});
  objc::send<void, "removeTarget:action:forControlEvents:">(control.get(), static_cast<NSObject*>(nullptr),
                                                            static_cast<SEL>(nullptr), touchUpInside);
  uikit::sendActions(control, touchUpInside);
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(Controls, IgnoreUnknownActions) {
  addAction(sel_registerName("unheardOf:"));
  control->addTarget(nullptr, sel_registerName("unheardOf:"), touchUpInside);
  control->addTarget(target, nullptr, touchUpInside);
  uikit::sendActions(control, touchUpInside);
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(Controls, SendTouchUpInsideOnATap) {
  addAction(objc::selector<"plain">());
  tap({150, 120});
  EXPECT_EQ(takeLog(), Log{"plain"});
}

TEST_F(Controls, AreHighlightedWhileAFingerIsOnThem) {
  touch(UITouchPhase::Began, {150, 120});
  EXPECT_TRUE(isHighlighted(control));
  touch(UITouchPhase::Moved, {150, 320});
  EXPECT_FALSE(isHighlighted(control));
  touch(UITouchPhase::Moved, {150, 200});
  EXPECT_TRUE(isHighlighted(control));
  touch(UITouchPhase::Ended, {150, 200});
  EXPECT_FALSE(isHighlighted(control));
}

TEST_F(Controls, SendTouchUpInsideIfTheFingerEndsSlightlyOutside) {
  addAction(objc::selector<"plain">());
  drag({150, 120}, {0, 80});
  EXPECT_EQ(takeLog(), Log{"plain"});
}

TEST_F(Controls, SendTouchUpOutsideIfTheFingerEndsFarAway) {
  addAction(objc::selector<"plain">());
  addAction(objc::selector<"withSender:">(), uikit::touchUpOutside);
  drag({150, 120}, {0, 200});
  EXPECT_EQ(takeLog(), Log{"sender UIControl"});
}

TEST_F(Controls, SendTouchCancelIfTheTouchIsCanceled) {
  addAction(objc::selector<"plain">());
  addAction(objc::selector<"withSender:">(), uikit::touchCancel);
  touch(UITouchPhase::Began, {150, 120});
  touch(UITouchPhase::Cancelled, {150, 120});
  EXPECT_EQ(takeLog(), Log{"sender UIControl"});
  EXPECT_FALSE(isHighlighted(control));
}

TEST_F(Controls, SendDragExitAndDragEnterAtTheirEdge) {
  addAction(objc::selector<"plain">(), uikit::touchDragExit);
  addAction(objc::selector<"withSender:">(), uikit::touchDragEnter);
  touch(UITouchPhase::Began, {150, 120});
  for (const double y : {130.0, 300.0, 320.0, 120.0}) touch(UITouchPhase::Moved, {150, y});
  touch(UITouchPhase::Ended, {150, 120});
  EXPECT_EQ(takeLog(), (Log{"plain", "sender UIControl"}));
}

TEST_F(Controls, SendNothingWhenDisabled) {
  addAction(objc::selector<"plain">());
  control->setEnabled(false);
  tap({150, 120});
  EXPECT_EQ(takeLog(), Log{});
  EXPECT_FALSE(describe(control).at("enabled"));
}

TEST_F(Controls, ReturnTheirState) {
  const auto state = [this] { return objc::send<UIControlState, "state">(control.get()); };
  EXPECT_EQ(state(), UIControlState::Normal);
  control->setEnabled(false);
  EXPECT_EQ(state(), uikit::disabledState);
  control->setEnabled(true);
  objc::send<void, "setSelected:">(control.get(), true);
  EXPECT_EQ(state(), uikit::selectedState);
}

}  // namespace

}  // namespace test
