#include "tests/uikit/stage.hpp"

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

Journal& journal() {
  static Journal entries;
  return entries;
}

int& living() {
  static int count = 0;
  return count;
}

struct Counted {
  Counted() { ++living(); }
  ~Counted() { --living(); }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
  std::string name;
};

struct Length {
  int characters = 0;
  double width = 0;
};

}  // namespace

}  // namespace test

template <>
struct objc::StateOf<test::ProbeView> {
  using Type = test::Counted;
};
template <>
struct objc::StateOf<test::ParagraphView> {
  using Type = test::Length;
};
template <>
struct objc::StateOf<test::ActionTarget> {
  using Type = test::Counted;
};

namespace test {

namespace {

std::string nameOf(const NSObject* object) {
  if (object == nullptr) return "nil";
  const ProbeView* probe = objc::as<ProbeView>(object);
  return probe == nullptr ? class_getName(object_getClass(objc::detail::identifier(object))) : objc::state(probe).name;
}

void note(const ProbeView* probe, const std::string& what) { Stage::write(objc::state(probe).name + " " + what); }

void willMoveToSuperview(ProbeView* self, UIView* view) { note(self, "willMoveToSuperview " + nameOf(view)); }
void didMoveToSuperview(ProbeView* self) { note(self, "didMoveToSuperview " + nameOf(self->superview())); }
void willMoveToWindow(ProbeView* self, UIWindow* window) { note(self, "willMoveToWindow " + nameOf(window)); }
void didMoveToWindow(ProbeView* self) { note(self, "didMoveToWindow " + nameOf(self->window())); }
void didAddSubview(ProbeView* self, UIView* view) { note(self, "didAddSubview " + nameOf(view)); }
void willRemoveSubview(ProbeView* self, UIView* view) { note(self, "willRemoveSubview " + nameOf(view)); }
void layoutSubviews(ProbeView* self) {
  objc::sendSuper<"ProbeView", void, "layoutSubviews">(self);
  note(self, "layoutSubviews");
}
void touchesBegan(ProbeView* self, NSObject*, NSObject*) { note(self, "began"); }
void touchesMoved(ProbeView* self, NSObject*, NSObject*) { note(self, "moved"); }
void touchesEnded(ProbeView* self, NSObject*, NSObject*) { note(self, "ended"); }
void touchesCancelled(ProbeView* self, NSObject*, NSObject*) { note(self, "cancelled"); }
void traitsChanged(ProbeView* self, UITraitCollection* previous) {
  note(self, previous->userInterfaceStyle() == UIUserInterfaceStyle::Light ? "was light" : "was dark");
}
bool canBecomeFirstResponder(ProbeView*) { return true; }
bool resignFirstResponder(ProbeView* self) {
  note(self, "resigns");
  return objc::sendSuper<"ProbeView", bool, "resignFirstResponder">(self);
}

void setPreferredWidth(ParagraphView* self, CGFloat width) { objc::state(self).width = width; }
CGSize paragraphSize(ParagraphView* self) {
  const Length& length = objc::state(self);
  const double natural = 10.0 * length.characters;
  if (length.width <= 0 || length.width >= natural) return {natural, 10};
  const int inLine = std::max(1, static_cast<int>(length.width / 10));
  const int lines = (length.characters + inLine - 1) / inLine;
  return {10.0 * inLine, 10.0 * lines};
}

std::string number(double value) {
  std::string text = std::to_string(value);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

void pan(ActionTarget*, UIPanGestureRecognizer* recognizer) {
  const CGPoint translation = recognizer->translationInView(recognizer->view());
  Stage::write("pan " + std::to_string(static_cast<NSInteger>(recognizer->state())) + " " + number(translation.x) +
               "," + number(translation.y));
}
void tapped(ActionTarget*, UITapGestureRecognizer* recognizer) {
  Stage::write("tap " + std::to_string(static_cast<NSInteger>(recognizer->state())));
}
void plainAction(ActionTarget*) { Stage::write("plain"); }

void defineProbes() {
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
      objc::method<"tap:", &tapped>(),
      objc::method<"plain", &plainAction>(),
  };
  objc::defineClassWithState<ProbeView>(probeMethods);
  objc::defineClassWithState<ParagraphView>(paragraphMethods);
  objc::defineClassWithState<ActionTarget>(targetMethods);
}

void startProcess() {
  static const bool started = [] {
    foundation::registerClasses();
    foundation::useClock(foundation::ClockMode::Stepped, 0);
    uikit::registerClasses();
    defineProbes();
    return true;
  }();
  (void)started;
}

}  // namespace

Stage::Stage() {
  startProcess();
  pool_.emplace();
  uikit::setEnvironment({});
  journal().clear();
}

Stage::~Stage() {
  foundation::stepClock(10);
  foundation::drainMainQueue();
}

objc::Ref<UIWindow> Stage::makeWindow() {
  auto window = UIView::withFrame<UIWindow>({{}, uikit::environment().device.screen});
  window->setHidden(false);
  return window;
}

objc::Ref<UIView> Stage::addView(UIView* parent, CGRect frame) {
  auto view = UIView::withFrame<UIView>(frame);
  parent->addSubview(view);
  return view;
}

objc::Ref<UIView> Stage::addConstrainedView(UIView* parent) {
  auto view = addView(parent, {});
  view->setTranslatesAutoresizingMaskIntoConstraints(false);
  return view;
}

void Stage::drag(CGPoint from, CGPoint by, int steps) {
  uikit::deliverTouch(UITouchPhase::Began, from, foundation::now());
  for (int step = 1; step <= steps; ++step)
    uikit::deliverTouch(UITouchPhase::Moved, {from.x + by.x * step / steps, from.y + by.y * step / steps},
                        foundation::now());
  uikit::deliverTouch(UITouchPhase::Ended, {from.x + by.x, from.y + by.y}, foundation::now());
}

void Stage::tap(CGPoint point) {
  uikit::deliverTouch(UITouchPhase::Began, point, foundation::now());
  uikit::deliverTouch(UITouchPhase::Ended, point, foundation::now());
}

Journal Stage::takeJournal() { return std::exchange(journal(), {}); }
void Stage::write(const std::string& entry) { journal().push_back(entry); }

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

int livingObjects() { return living(); }

}  // namespace test
