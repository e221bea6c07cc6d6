#include "simulator/uikit/keyboard/keyboard.hpp"

#include <optional>

#include "objc/class_definition.hpp"
#include "platform/ns_string.hpp"
#include "platform/ui_text_field.hpp"
#include "platform/ui_window.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/environment/trait_collection.hpp"
#include "simulator/uikit/keyboard/keyboard_key.hpp"
#include "simulator/uikit/views/view_record.hpp"
#include "simulator/uikit/views/window.hpp"

class UIRemoteKeyboardWindow : public objc::Interface<"UIRemoteKeyboardWindow", UIWindow> {};

// Hears the keys.
class UIKeyboardImpl : public objc::Interface<"UIKeyboardImpl", NSObject> {};

namespace uikit {

namespace {

constexpr double slideSeconds = 0.25;
constexpr double levelAboveEverything = 10000;

// All that decides how the keyboard looks.
struct Look {
  KeyboardPlane plane = KeyboardPlane::Letters;
  Shift shift = Shift::On;
  UIUserInterfaceStyle style = UIUserInterfaceStyle::Light;
  UIReturnKeyType returnKey{};
  bool hasText = false;
  bool takesReturnKey = true;
  friend bool operator==(const Look&, const Look&) = default;
};

struct Keyboard {
  objc::Ref<UIRemoteKeyboardWindow> window;
  objc::Ref<UIKeyboardImpl> listener;
  UIResponder* typist = nullptr;  // only compared
  KeyboardPlane plane = KeyboardPlane::Letters;
  std::optional<Shift> chosenShift;
  std::optional<Look> look;
  bool isUp = false;
};

Keyboard& keyboard() {
  static Keyboard& held = *new Keyboard;
  return held;
}

KeyboardSize sizeOfKeyboard() { return {environment().device.screen.width, environment().device.safeArea.bottom}; }

CGRect frameWhen(bool isUp) {
  const double height = sizeOfKeyboard().height();
  const CGSize screen = environment().device.screen;
  return {{0, isUp ? screen.height - height : screen.height}, {screen.width, height}};
}

UIResponder* typistNow() {
  UIResponder* responder = firstResponder();
  return answers<"insertText:">(responder) ? responder : nullptr;
}

bool hasText(UIResponder* typist) { return answers<"hasText">(typist) && objc::send<bool, "hasText">(typist); }

// A sentence begins with a capital.
Look lookFor(UIResponder* typist) {
  Look look;
  look.plane = keyboard().plane;
  look.hasText = hasText(typist);
  look.takesReturnKey = look.hasText || !answers<"enablesReturnKeyAutomatically">(typist) ||
                        !objc::send<bool, "enablesReturnKeyAutomatically">(typist);
  look.shift = keyboard().chosenShift.value_or(look.hasText ? Shift::Off : Shift::On);
  if (const auto* view = objc::as<UIView>(typist)) look.style = styleOf(view);
  if (answers<"returnKeyType">(typist)) look.returnKey = objc::send<UIReturnKeyType, "returnKeyType">(typist);
  return look;
}

UIColor* backgroundOf(UIUserInterfaceStyle style) {
  return style == UIUserInterfaceStyle::Dark ? UIColor::withRed(0.17, 0.17, 0.175, 1)
                                             : UIColor::withRed(0.82, 0.827, 0.85, 1);
}

void rebuildKeys(const Look& look) {
  UIRemoteKeyboardWindow* window = keyboard().window;
  const auto old = record(window).subviews;
  for (const objc::Ref<UIView>& key : old) key->removeFromSuperview();
  window->setBackgroundColor(backgroundOf(look.style));
  const bool sends = look.returnKey == UIReturnKeyType::Send;
  const KeyboardFace face = {look.plane, look.shift, lettersOf(environment().locale), sends ? "send" : "return"};
  for (Key& key : keysOf(sizeOfKeyboard(), face)) {
    const bool isProminent = key.role == KeyRole::Return && sends && look.takesReturnKey;
    const auto view = makeKeyView({std::move(key), look.shift, look.style, isProminent});
    view->addTarget(keyboard().listener, objc::selector<"keyPressed:">(), UIControlEvents::TouchUpInside);
    window->addSubview(view);
  }
}

void press(const Key& key, UIResponder* typist) {
  const auto insert = [typist](const std::string& text) {
    objc::send<void, "insertText:">(typist, NSString::stringWithUTF8String(text.c_str()));
  };
  switch (key.role) {
    case KeyRole::Character:
      keyboard().chosenShift.reset();
      return insert(key.label);
    case KeyRole::Space:
      return insert(" ");
    case KeyRole::Return:
      return insert("\n");
    case KeyRole::Backspace:
      return objc::send<void, "deleteBackward">(typist);
    case KeyRole::Shift:
      keyboard().chosenShift = keyboard().look->shift == Shift::On ? Shift::Off : Shift::On;
      return;
    case KeyRole::Plane:
      keyboard().plane = key.plane;
      return;
    case KeyRole::Emoji:
    case KeyRole::Globe:
    case KeyRole::Microphone:
      return;  // there is no other keyboard, and nobody listens
  }
}

void keyPressed(UIKeyboardImpl*, UIKBKeyView* sender) {
  UIResponder* typist = typistNow();
  if (typist == nullptr) return;
  const Key key = objc::state(sender).key;
  press(key, typist);
}

void makeKeyboard() {
  Keyboard& made = keyboard();
  made.window = UIView::withFrame<UIRemoteKeyboardWindow>(frameWhen(false));
  made.listener = objc::make<UIKeyboardImpl>();
  objc::send<void, "setWindowLevel:">(made.window.get(), CGFloat{levelAboveEverything});
}

void slide(bool up) {
  Keyboard& moved = keyboard();
  moved.isUp = up;
  const auto window = moved.window;
  if (up) window->setHidden(false);
  UIView::animate(slideSeconds, objc::block([window, up] { window->setFrame(frameWhen(up)); }),
                  objc::block([window](bool) {
                    if (!keyboard().isUp) window->setHidden(true);
                  }));
}

}  // namespace

void followFirstResponder() {
  UIResponder* typist = typistNow();
  Keyboard& shown = keyboard();
  if (typist == nullptr) {
    if (shown.isUp) slide(false);
    shown.typist = nullptr;
    return;
  }
  if (shown.window == nullptr) makeKeyboard();
  if (shown.typist != typist) {
    shown.typist = typist;
    shown.plane = KeyboardPlane::Letters;
    shown.chosenShift.reset();
  }
  if (const Look look = lookFor(typist); shown.look != look) {
    shown.look = look;
    rebuildKeys(look);
  }
  if (!shown.isUp) slide(true);
}

void defineKeyboard() {
  defineKeyboardKey();
  static constexpr objc::MethodEntry methods[] = {objc::method<"keyPressed:", &keyPressed>()};
  objc::defineClass<UIRemoteKeyboardWindow>({});
  objc::defineClass<UIKeyboardImpl>(methods);
}

}  // namespace uikit
