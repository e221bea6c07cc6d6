#include "tests/uikit/uikit_fixture.hpp"

#include <algorithm>
#include <utility>

#include "objc/class_definition.hpp"
#include "simulator/foundation/classes.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/classes.hpp"
#include "simulator/uikit/touch/touch.hpp"
#include "simulator/uikit/views/view.hpp"

namespace test {

namespace {

Log& logEntries() {
  static Log entries;
  return entries;
}

int& livingCount() {
  static int count = 0;
  return count;
}

struct ProbeState {
  ProbeState() { ++livingCount(); }
  ~ProbeState() { --livingCount(); }
  ProbeState(const ProbeState&) = delete;
  ProbeState& operator=(const ProbeState&) = delete;
  std::string name;
};

struct ParagraphState {
  int characters = 0;
  double preferredWidth = 0;
};

}  // namespace

}  // namespace test

template <>
struct objc::StateOf<test::ProbeView> {
  using Type = test::ProbeState;
};
template <>
struct objc::StateOf<test::ParagraphView> {
  using Type = test::ParagraphState;
};
template <>
struct objc::StateOf<test::RecognizerTarget> {
  using Type = test::ProbeState;
};

namespace test {

namespace {

std::string nameOf(const NSObject* object) {
  if (object == nullptr) return "nil";
  const ProbeView* probe = objc::as<ProbeView>(object);
  return probe == nullptr ? class_getName(object_getClass(objc::detail::toId(object))) : objc::state(probe).name;
}

void logCall(const ProbeView* probe, const std::string& message) {
  UIKitTest::log(objc::state(probe).name + " " + message);
}

void willMoveToSuperview(ProbeView* self, UIView* view) { logCall(self, "willMoveToSuperview " + nameOf(view)); }
void didMoveToSuperview(ProbeView* self) { logCall(self, "didMoveToSuperview " + nameOf(self->superview())); }
void willMoveToWindow(ProbeView* self, UIWindow* window) { logCall(self, "willMoveToWindow " + nameOf(window)); }
void didMoveToWindow(ProbeView* self) { logCall(self, "didMoveToWindow " + nameOf(self->window())); }
void didAddSubview(ProbeView* self, UIView* view) { logCall(self, "didAddSubview " + nameOf(view)); }
void willRemoveSubview(ProbeView* self, UIView* view) { logCall(self, "willRemoveSubview " + nameOf(view)); }
void layoutSubviews(ProbeView* self) {
  objc::sendSuper<"ProbeView", void, "layoutSubviews">(self);
  logCall(self, "layoutSubviews");
}
void touchesBegan(ProbeView* self, NSObject*, NSObject*) { logCall(self, "began"); }
void touchesMoved(ProbeView* self, NSObject*, NSObject*) { logCall(self, "moved"); }
void touchesEnded(ProbeView* self, NSObject*, NSObject*) { logCall(self, "ended"); }
void touchesCancelled(ProbeView* self, NSObject*, NSObject*) { logCall(self, "cancelled"); }
void traitsChanged(ProbeView* self, UITraitCollection* previous) {
  logCall(self, previous->userInterfaceStyle() == UIUserInterfaceStyle::Light ? "was light" : "was dark");
}
bool canBecomeFirstResponder(ProbeView*) { return true; }
bool resignFirstResponder(ProbeView* self) {
  logCall(self, "resigns");
  return objc::sendSuper<"ProbeView", bool, "resignFirstResponder">(self);
}

void setPreferredWidth(ParagraphView* self, CGFloat width) { objc::state(self).preferredWidth = width; }
CGSize paragraphSize(ParagraphView* self) {
  const ParagraphState& state = objc::state(self);
  const double natural = 10.0 * state.characters;
  if (state.preferredWidth <= 0 || state.preferredWidth >= natural) return {natural, 10};
  const int charactersPerLine = std::max(1, static_cast<int>(state.preferredWidth / 10));
  const int lines = (state.characters + charactersPerLine - 1) / charactersPerLine;
  return {10.0 * charactersPerLine, 10.0 * lines};
}

std::string number(double value) {
  std::string text = std::to_string(value);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

void pan(RecognizerTarget*, UIPanGestureRecognizer* recognizer) {
  const CGPoint translation = recognizer->translationInView(recognizer->view());
  UIKitTest::log("pan " + std::to_string(static_cast<NSInteger>(recognizer->state())) + " " + number(translation.x) +
                 "," + number(translation.y));
}
void tap(RecognizerTarget*, UITapGestureRecognizer* recognizer) {
  UIKitTest::log("tap " + std::to_string(static_cast<NSInteger>(recognizer->state())));
}
void plainAction(RecognizerTarget*) { UIKitTest::log("plain"); }

void defineTestClasses() {
  static constexpr objc::MethodEntry probeMethods[] = {
      objc::method<"willMoveToSuperview:", &willMoveToSuperview>(),
      objc::method<"didMoveToSuperview", &didMoveToSuperview>(),
      objc::method<"willMoveToWindow:", &willMoveToWindow>(),
      objc::method<"didMoveToWindow", &didMoveToWindow>(),
      objc::method<"didAddSubview:", &didAddSubview>(),
      objc::method<"willRemoveSubview:", &willRemoveSubview>(),
      objc::method<"layoutSubviews", &layoutSubviews>(),
      objc::method<"touchesBegan:withEvent:", &touchesBegan>(),
      objc::method<"touchesMoved:withEvent:", &touchesMoved>(),
      objc::method<"touchesEnded:withEvent:", &touchesEnded>(),
      objc::method<"touchesCancelled:withEvent:", &touchesCancelled>(),
      objc::method<"traitCollectionDidChange:", &traitsChanged>(),
      objc::method<"canBecomeFirstResponder", &canBecomeFirstResponder>(),
      objc::method<"resignFirstResponder", &resignFirstResponder>(),
  };
  static constexpr objc::MethodEntry paragraphMethods[] = {
      objc::method<"_setPreferredWidth:", &setPreferredWidth>(),
      objc::method<"intrinsicContentSize", &paragraphSize>(),
  };
  static constexpr objc::MethodEntry targetMethods[] = {
      objc::method<"pan:", &pan>(),
      objc::method<"tap:", &tap>(),
      objc::method<"plain", &plainAction>(),
  };
  objc::defineClassWithState<ProbeView>(probeMethods);
  objc::defineClassWithState<ParagraphView>(paragraphMethods);
  objc::defineClassWithState<RecognizerTarget>(targetMethods);
}

void initializeProcess() {
  static const bool initialized = [] {
    foundation::registerClasses();
    foundation::useClock(foundation::ClockMode::Stepped, 0);
    uikit::registerClasses();
    defineTestClasses();
    return true;
  }();
  (void)initialized;
}

}  // namespace

UIKitTest::UIKitTest() {
  initializeProcess();
  pool_.emplace();
  uikit::setEnvironment({});
  logEntries().clear();
}

UIKitTest::~UIKitTest() {
  foundation::stepClock(10);
  foundation::drainMainQueue();
}

objc::Ref<UIWindow> UIKitTest::makeWindow() {
  auto window = UIView::withFrame<UIWindow>({{}, uikit::environment().device.screen});
  window->setHidden(false);
  return window;
}

objc::Ref<UIView> UIKitTest::addView(UIView* parent, CGRect frame) {
  auto view = UIView::withFrame<UIView>(frame);
  parent->addSubview(view);
  return view;
}

objc::Ref<UIView> UIKitTest::addConstrainedView(UIView* parent) {
  auto view = addView(parent, {});
  view->setTranslatesAutoresizingMaskIntoConstraints(false);
  return view;
}

void UIKitTest::drag(CGPoint from, CGPoint translation, int steps) {
  uikit::deliverTouch(UITouchPhase::Began, from, foundation::now());
  for (int step = 1; step <= steps; ++step) {
    uikit::deliverTouch(UITouchPhase::Moved,
                        {from.x + translation.x * step / steps, from.y + translation.y * step / steps},
                        foundation::now());
  }
  uikit::deliverTouch(UITouchPhase::Ended, {from.x + translation.x, from.y + translation.y}, foundation::now());
}

void UIKitTest::tap(CGPoint point) {
  uikit::deliverTouch(UITouchPhase::Began, point, foundation::now());
  uikit::deliverTouch(UITouchPhase::Ended, point, foundation::now());
}

Log UIKitTest::takeLog() { return std::exchange(logEntries(), {}); }
void UIKitTest::log(const std::string& entry) { logEntries().push_back(entry); }

objc::Ref<ProbeView> ProbeView::named(const std::string& name) {
  auto probe = UIView::withFrame<ProbeView>({{}, {100, 100}});
  objc::state(probe.get()).name = name;
  return probe;
}

objc::Ref<ParagraphView> ParagraphView::withLength(int characters) {
  auto view = UIView::withFrame<ParagraphView>({});
  objc::state(view.get()).characters = characters;
  view->setTranslatesAutoresizingMaskIntoConstraints(false);
  return view;
}

int livingObjects() { return livingCount(); }

}  // namespace test
