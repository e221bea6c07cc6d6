// UIControl: its targets, and how it follows a finger.
#include "simulator/uikit/controls/control.hpp"

#include "simulator/uikit/touch/touch.hpp"
#include "tests/uikit/content.hpp"
#include "tests/uikit/listener.hpp"

namespace test {

namespace {

constexpr auto pressed = UIControlEvents::TouchUpInside;

class Controls : public Stage {
 public:
  Controls() { window->addSubview(control); }

  void listen(SEL action, UIControlEvents events = pressed) const { control->addTarget(listener, action, events); }

  objc::Ref<UIWindow> window = makeWindow();
  objc::Ref<UIControl> control = UIView::withFrame<UIControl>({{100, 100}, {100, 40}});
  objc::Ref<Listener> listener = Listener::make();
};

void touch(UITouchPhase phase, CGPoint point) { uikit::deliverTouch(phase, point, 0); }
bool isHighlighted(const UIControl* control) { return objc::send<bool, "isHighlighted">(control); }

TEST_F(Controls, TellTheirTargetsWhatTheyAskFor) {
  listen(objc::selector<"plain">());
  listen(objc::selector<"withSender:">());
  listen(objc::selector<"withSender:event:">());
  uikit::sendActions(control, pressed);
  EXPECT_EQ(takeJournal(), (Journal{"plain", "sender UIControl", "sender and event"}));
}

TEST_F(Controls, TellOnlyOfTheEventsAskedFor) {
  listen(objc::selector<"plain">());
  uikit::sendActions(control, UIControlEvents::EditingDidBegin);
  EXPECT_EQ(takeJournal(), Journal{});
}

TEST_F(Controls, TellATargetOnceOfTheSameAction) {
  listen(objc::selector<"plain">());
  listen(objc::selector<"plain">());
  listen(objc::selector<"plain">(), UIControlEvents::EditingDidEnd);
  uikit::sendActions(control, pressed);
  EXPECT_EQ(takeJournal(), Journal{"plain"});
  uikit::sendActions(control, UIControlEvents::EditingDidEnd);
  EXPECT_EQ(takeJournal(), Journal{"plain"});
}

TEST_F(Controls, DoNotKeepTheirTargets) {
  listen(objc::selector<"plain">());
  listener = nullptr;
  drainPool();
  uikit::sendActions(control, pressed);
  EXPECT_EQ(takeJournal(), Journal{});
}

TEST_F(Controls, ForgetTargetsThatAreRemoved) {
  listen(objc::selector<"plain">());
  listen(objc::selector<"withSender:">());
  objc::send<void, "removeTarget:action:forControlEvents:">(control.get(), listener.get(), objc::selector<"plain">(),
                                                            pressed);
  uikit::sendActions(control, pressed);
  EXPECT_EQ(takeJournal(), Journal{"sender UIControl"});
  objc::send<void, "removeTarget:action:forControlEvents:">(control.get(), static_cast<NSObject*>(nullptr),
                                                            static_cast<SEL>(nullptr), pressed);
  uikit::sendActions(control, pressed);
  EXPECT_EQ(takeJournal(), Journal{});
}

TEST_F(Controls, IgnoreActionsThatNobodyKnows) {
  listen(sel_registerName("unheardOf:"));
  control->addTarget(nullptr, sel_registerName("unheardOf:"), pressed);
  control->addTarget(listener, nullptr, pressed);
  uikit::sendActions(control, pressed);
  EXPECT_EQ(takeJournal(), Journal{});
}

TEST_F(Controls, ArePressedByATap) {
  listen(objc::selector<"plain">());
  tap({150, 120});
  EXPECT_EQ(takeJournal(), Journal{"plain"});
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

TEST_F(Controls, ArePressedByAFingerThatLeavesThemALittle) {
  listen(objc::selector<"plain">());
  drag({150, 120}, {0, 80});
  EXPECT_EQ(takeJournal(), Journal{"plain"});
}

TEST_F(Controls, AreNotPressedByAFingerThatIsLiftedElsewhere) {
  listen(objc::selector<"plain">());
  listen(objc::selector<"withSender:">(), uikit::touchUpOutside);
  drag({150, 120}, {0, 200});
  EXPECT_EQ(takeJournal(), Journal{"sender UIControl"});
}

TEST_F(Controls, AreNotPressedByATouchThatIsCancelled) {
  listen(objc::selector<"plain">());
  listen(objc::selector<"withSender:">(), uikit::touchCancel);
  touch(UITouchPhase::Began, {150, 120});
  touch(UITouchPhase::Cancelled, {150, 120});
  EXPECT_EQ(takeJournal(), Journal{"sender UIControl"});
  EXPECT_FALSE(isHighlighted(control));
}

TEST_F(Controls, TellWhenTheFingerCrossesTheirEdge) {
  listen(objc::selector<"plain">(), uikit::touchDragExit);
  listen(objc::selector<"withSender:">(), uikit::touchDragEnter);
  touch(UITouchPhase::Began, {150, 120});
  for (const double y : {130.0, 300.0, 320.0, 120.0}) touch(UITouchPhase::Moved, {150, y});
  touch(UITouchPhase::Ended, {150, 120});
  EXPECT_EQ(takeJournal(), (Journal{"plain", "sender UIControl"}));
}

TEST_F(Controls, DoNothingWhenDisabled) {
  listen(objc::selector<"plain">());
  control->setEnabled(false);
  tap({150, 120});
  EXPECT_EQ(takeJournal(), Journal{});
  EXPECT_FALSE(described(control).at("enabled"));
}

TEST_F(Controls, TellTheirState) {
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
