#include "simulator/uikit/keyboard/keyboard.hpp"

#include <optional>

#include "objc/class_definition.hpp"
#include "platform/ns_notification_center.hpp"
#include "platform/ns_string.hpp"
#include "platform/ns_value.hpp"
#include "platform/ui_text_field.hpp"
#include "platform/ui_window.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/environment/trait_collection.hpp"
#include "simulator/uikit/keyboard/keyboard_key.hpp"
#include "simulator/uikit/views/view_record.hpp"
#include "simulator/uikit/views/window.hpp"

class UIRemoteKeyboardWindow : public objc::Interface<"UIRemoteKeyboardWindow", UIWindow> {};

// The object that receives the actions of the keys.
class UIKeyboardImpl : public objc::Interface<"UIKeyboardImpl", NSObject> {};

namespace uikit {

namespace {

constexpr double slideSeconds = 0.25;
constexpr double levelAboveEverything = 10000;

// Everything that determines the keys of the keyboard and their appearance.
struct KeyboardAppearance {
  KeyboardPlane plane = KeyboardPlane::Letters;
  Shift shift = Shift::On;
  UIUserInterfaceStyle style = UIUserInterfaceStyle::Light;
  UIReturnKeyType returnKey{};
  bool hasText = false;
  bool acceptsReturnKey = true;
  friend bool operator==(const KeyboardAppearance&, const KeyboardAppearance&) = default;
};

struct Keyboard {
  objc::Ref<UIRemoteKeyboardWindow> window;
  objc::Ref<UIKeyboardImpl> listener;
  UIResponder* textInput = nullptr;  // not retained, because it is only compared with other pointers
  KeyboardPlane plane = KeyboardPlane::Letters;
  std::optional<Shift> shiftOverride;
  std::optional<KeyboardAppearance> appearance;
  bool isShown = false;
};

Keyboard& keyboard() {
  static Keyboard& instance = *new Keyboard;
  return instance;
}

KeyboardSize sizeOfKeyboard() { return {environment().device.screen.width, environment().device.safeArea.bottom}; }

CGRect frameWhen(bool isShown) {
  const double height = sizeOfKeyboard().height();
  const CGSize screen = environment().device.screen;
  return {{0, isShown ? screen.height - height : screen.height}, {screen.width, height}};
}

UIResponder* currentTextInput() {
  UIResponder* responder = firstResponder();
  return respondsTo<"insertText:">(responder) ? responder : nullptr;
}

bool hasText(UIResponder* textInput) {
  return respondsTo<"hasText">(textInput) && objc::send<bool, "hasText">(textInput);
}

// Returns the appearance of the keyboard for this responder. Shift is on for an empty text, because a sentence begins
// with a capital letter.
KeyboardAppearance appearanceFor(UIResponder* textInput) {
  KeyboardAppearance appearance;
  appearance.plane = keyboard().plane;
  appearance.hasText = hasText(textInput);
  appearance.acceptsReturnKey = appearance.hasText || !respondsTo<"enablesReturnKeyAutomatically">(textInput) ||
                                !objc::send<bool, "enablesReturnKeyAutomatically">(textInput);
  appearance.shift = keyboard().shiftOverride.value_or(appearance.hasText ? Shift::Off : Shift::On);
  if (const auto* view = objc::as<UIView>(textInput)) appearance.style = styleOf(view);
  if (respondsTo<"returnKeyType">(textInput))
    appearance.returnKey = objc::send<UIReturnKeyType, "returnKeyType">(textInput);
  return appearance;
}

UIColor* backgroundOf(UIUserInterfaceStyle style) {
  return style == UIUserInterfaceStyle::Dark ? UIColor::withRed(0.17, 0.17, 0.175, 1)
                                             : UIColor::withRed(0.82, 0.827, 0.85, 1);
}

void rebuildKeys(const KeyboardAppearance& appearance) {
  UIRemoteKeyboardWindow* window = keyboard().window;
  const auto old = record(window).subviews;
  for (const objc::Ref<UIView>& key : old) key->removeFromSuperview();
  window->setBackgroundColor(backgroundOf(appearance.style));
  const bool sends = appearance.returnKey == UIReturnKeyType::Send;
  const KeyboardFace face = {appearance.plane, appearance.shift, lettersForLocale(environment().locale),
                             sends ? "send" : "return"};
  std::vector<Key> keys = keyboardKeys(sizeOfKeyboard(), face);
  const double characterSize = characterSizeFor(keys);
  for (Key& key : keys) {
    const bool isProminent = key.role == KeyRole::Return && sends && appearance.acceptsReturnKey;
    const auto view = makeKeyView({std::move(key), appearance.shift, appearance.style, isProminent, characterSize});
    view->addTarget(keyboard().listener, objc::selector<"keyPressed:">(), UIControlEvents::TouchUpInside);
    window->addSubview(view);
  }
}

void press(const Key& key, UIResponder* textInput) {
  const auto insert = [textInput](const std::string& text) {
    objc::send<void, "insertText:">(textInput, NSString::stringWithUTF8String(text.c_str()));
  };
  switch (key.role) {
    case KeyRole::Character:
      keyboard().shiftOverride.reset();
      return insert(key.label);
    case KeyRole::Space:
      return insert(" ");
    case KeyRole::Return:
      return insert("\n");
    case KeyRole::Backspace:
      return objc::send<void, "deleteBackward">(textInput);
    case KeyRole::Shift:
      keyboard().shiftOverride = keyboard().appearance->shift == Shift::On ? Shift::Off : Shift::On;
      return;
    case KeyRole::Plane:
      keyboard().plane = key.plane;
      return;
    case KeyRole::Emoji:
    case KeyRole::Globe:
    case KeyRole::Microphone:
      return;  // other keyboards and dictation are not simulated
  }
}

void keyPressed(UIKeyboardImpl*, UIKBKeyView* sender) {
  UIResponder* textInput = currentTextInput();
  if (textInput == nullptr) return;
  const Key key = objc::state(sender).key;
  press(key, textInput);
}

void makeKeyboard() {
  Keyboard& made = keyboard();
  made.window = UIView::withFrame<UIRemoteKeyboardWindow>(frameWhen(false));
  made.listener = objc::make<UIKeyboardImpl>();
  objc::send<void, "setWindowLevel:">(made.window.get(), CGFloat{levelAboveEverything});
}

// Posts the platform's notification of a change of the keyboard's frame.
void announceFrame() {
  NSMutableDictionary* userInfo = NSMutableDictionary::dictionaryWithCapacity(1);
  userInfo->setObject(objc::send<NSObject*, "valueWithCGRect:">(NSValue::classObject(), frameWhen(keyboard().isShown)),
                      "UIKeyboardFrameEndUserInfoKey"_ns);
  NSNotificationCenter::defaultCenter()->post("UIKeyboardWillChangeFrameNotification"_ns, userInfo);
}

void slide(bool up) {
  Keyboard& moved = keyboard();
  moved.isShown = up;
  const auto window = moved.window;
  if (up) window->setHidden(false);
  UIView::animate(slideSeconds, objc::block([window, up] { window->setFrame(frameWhen(up)); }),
                  objc::block([window](bool) {
                    if (!keyboard().isShown) window->setHidden(true);
                  }));
}

}  // namespace

void updateKeyboard() {
  UIResponder* textInput = currentTextInput();
  Keyboard& shown = keyboard();
  if (textInput == nullptr) {
    shown.textInput = nullptr;
    if (!shown.isShown) return;
    slide(false);
    announceFrame();
    return;
  }
  if (shown.window == nullptr) makeKeyboard();
  const bool isOtherInput = shown.textInput != textInput;
  if (isOtherInput) {
    shown.textInput = textInput;
    shown.plane = KeyboardPlane::Letters;
    shown.shiftOverride.reset();
  }
  if (const KeyboardAppearance appearance = appearanceFor(textInput); shown.appearance != appearance) {
    shown.appearance = appearance;
    rebuildKeys(appearance);
  }
  const bool appears = !shown.isShown;
  if (appears) slide(true);
  if (appears || isOtherInput) announceFrame();
}

void defineKeyboard() {
  defineKeyboardKey();
  static constexpr objc::MethodEntry methods[] = {objc::method<"keyPressed:", &keyPressed>()};
  objc::defineClass<UIRemoteKeyboardWindow>({});
  objc::defineClass<UIKeyboardImpl>(methods);
}

}  // namespace uikit
