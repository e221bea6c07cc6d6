// Views, labels, buttons and text fields. They store their properties and form a tree of subviews.
#include <bit>

#include "tests/device/emulator/c_library.hpp"
#include "tests/device/emulator/platform_classes.hpp"
#include "tests/device/emulator/recorded_methods.hpp"

namespace device {

namespace {

struct ViewClass {
  const char* name;
  const char* superclass;
};

constexpr ViewClass viewClasses[] = {
    {"UIView", "UIResponder"},    {"UILabel", "UIView"},
    {"UIControl", "UIView"},      {"UIButton", "UIControl"},
    {"UITextField", "UIControl"}, {"UIImageView", "UIView"},
    {"UIStackView", "UIView"},    {"UIVisualEffectView", "UIView"},
    {"UIWindow", "UIView"},
};

struct Recorded {
  const char* className;
  const char* selector;
  const char* encoding;
};

constexpr Recorded recorded[] = {
    {"CALayer", "setBackgroundColor:", "v@:^{CGColor=}"},
    {"CALayer", "setCornerRadius:", "v@:d"},
    {"CALayer", "setContinuousCorners:", "v@:B"},
    {"UIView", "superview", "@@:"},
    {"UIView", "setFrame:", "v@:{CGRect={CGPoint=dd}{CGSize=dd}}"},
    {"UIView", "bounds", "{CGRect={CGPoint=dd}{CGSize=dd}}@:"},
    {"UIView", "setBackgroundColor:", "v@:@"},
    {"UIView", "setAlpha:", "v@:d"},
    {"UIView", "setHidden:", "v@:B"},
    {"UIView", "setClipsToBounds:", "v@:B"},
    {"UIView", "setContentMode:", "v@:q"},
    {"UIView", "setUserInteractionEnabled:", "v@:B"},
    {"UIView", "setAutoresizingMask:", "v@:Q"},
    {"UIView", "setTranslatesAutoresizingMaskIntoConstraints:", "v@:B"},
    {"UIView", "bringSubviewToFront:", "v@:@"},
    {"UIView", "sendSubviewToBack:", "v@:@"},
    {"UIView", "addGestureRecognizer:", "v@:@"},
    {"UIView", "safeAreaInsets", "{UIEdgeInsets=dddd}@:"},
    {"UILabel", "setText:", "v@:@"},
    {"UILabel", "setAttributedText:", "v@:@"},
    {"UILabel", "setFont:", "v@:@"},
    {"UILabel", "setTextColor:", "v@:@"},
    {"UILabel", "setTextAlignment:", "v@:q"},
    {"UILabel", "setNumberOfLines:", "v@:q"},
    {"UIImageView", "image", "@@:"},
    {"UIImageView", "setImage:", "v@:@"},
    {"UIControl", "setEnabled:", "v@:B"},
    {"UIControl", "setContentVerticalAlignment:", "v@:q"},
    {"UIControl", "addTarget:action:forControlEvents:", "v@:^v:Q"},
    {"UIButton", "setTitle:forState:", "v@:@Q"},
    {"UIButton", "setTitleColor:forState:", "v@:@Q"},
    {"UITextField", "setTextColor:", "v@:@"},
    {"UITextField", "setFont:", "v@:@"},
    {"UITextField", "setBorderStyle:", "v@:q"},
    {"UITextField", "setKeyboardType:", "v@:q"},
    {"UITextField", "setReturnKeyType:", "v@:q"},
    {"UIStackView", "setAxis:", "v@:q"},
    {"UIStackView", "setAlignment:", "v@:q"},
    {"UIStackView", "setDistribution:", "v@:q"},
    {"UIStackView", "setSpacing:", "v@:d"},
    {"UIFont", "pointSize", "d@:"},
};

void addSubview(const Message& message) {
  const Address child = message.argument(0);
  message.runtime.retain(child);
  message.runtime.object(message.self).properties["subviews"].push_back(child);
  storeValues(message.runtime, child, "superview", {message.self});
  message.runtime.send(child, "didMoveToSuperview");
}

void makeFont(const Message& message, const char* face) {
  const std::uint64_t size = std::bit_cast<std::uint64_t>(message.number(0));
  const Address made = makeString(message.runtime, face, "UIFont");
  storeValues(message.runtime, made, "pointSize", {size});
  message.answer(made);
}

void defineFonts(ObjectiveC& runtime) {
  runtime.define("UIFont");
  runtime.addClassMethod("UIFont", "systemFontOfSize:", "@@:d",
                         [](const Message& message) { makeFont(message, "regular"); });
  runtime.addClassMethod("UIFont", "boldSystemFontOfSize:", "@@:d",
                         [](const Message& message) { makeFont(message, "bold"); });
  runtime.addMethod("UIFont", "fontWithSize:", "@@:d",
                    [](const Message& message) { makeFont(message, textOf(message.runtime, message.self).c_str()); });
}

void defineEffects(ObjectiveC& runtime) {
  runtime.define("UIBlurEffect");
  runtime.addClassMethod("UIBlurEffect", "effectWithStyle:", "@@:q", [](const Message& message) {
    const std::uint64_t style = message.argument(0);
    const Address made = message.runtime.make("UIBlurEffect");
    storeValues(message.runtime, made, "style", {style});
    message.answer(message.runtime.autorelease(made));
  });
  runtime.addMethod("UIVisualEffectView", "initWithEffect:", "@@:@", [](const Message& message) {
    storeValues(message.runtime, message.self, "effect", {message.argument(0)});
    message.answer(message.self);
  });
  for (const char* name : {"UITapGestureRecognizer", "UIPanGestureRecognizer"}) {
    runtime.define(name);
    runtime.addMethod(name, "initWithTarget:action:", "@@:@:", [](const Message& message) {
      storeValues(message.runtime, message.self, "target", {message.argument(0), message.argument(1)});
      message.answer(message.self);
    });
  }
}

void defineApplication(ObjectiveC& runtime, Platform& platform) {
  runtime.define("UIApplication", "UIResponder");
  runtime.addClassMethod("UIApplication", "sharedApplication", "@@:", [&platform](const Message& message) {
    if (platform.application == 0) platform.application = message.runtime.make("UIApplication");
    message.answer(platform.application);
  });
  addPart(runtime, "UIApplication", "keyWindow", "UIWindow");
}

}  // namespace

void defineViews(ObjectiveC& runtime, Platform& platform) {
  runtime.define("UIResponder");
  runtime.define("CALayer");
  for (const ViewClass& each : viewClasses) runtime.define(each.name, each.superclass);
  runtime.addMethod("UIView", "initWithFrame:", "@@:{CGRect={CGPoint=dd}{CGSize=dd}}",
                    [](const Message& message) { message.answer(message.self); });
  runtime.addMethod("UIView", "didMoveToSuperview", "v@:", [](const Message&) {});
  runtime.addMethod("UIView", "addSubview:", "v@:@", addSubview);
  // Animations finish immediately.
  runtime.addClassMethod("UIView", "animateWithDuration:animations:", "v@:d@?",
                         [](const Message& message) { callBlock(message.processor, message.argument(0)); });
  runtime.addClassMethod("UIView", "animateWithDuration:animations:completion:", "v@:d@?@?",
                         [](const Message& message) {
                           const Address completion = message.argument(1);
                           callBlock(message.processor, message.argument(0));
                           if (completion != 0) callBlock(message.processor, completion, true);
                         });
  runtime.addMethod("UIView", "layoutIfNeeded", "v@:", [](const Message&) {});
  runtime.addMethod("UIStackView", "addArrangedSubview:", "v@:@", addSubview);
  defineFonts(runtime);
  for (const Recorded& each : recorded) addRecordedMethod(runtime, each.className, each.selector, each.encoding);
  addPart(runtime, "UIView", "layer", "CALayer");
  addPart(runtime, "UIButton", "titleLabel", "UILabel");
  // A label has a default font.
  runtime.addMethod("UILabel", "font", "@@:", [](const Message& message) {
    const Address own = storedValue(message.runtime, message.self, "font");
    const Address fontClass = message.runtime.find("UIFont")->address;
    message.answer(own != 0 ? own : message.runtime.send(fontClass, "systemFontOfSize:", {}, {17}));
  });
  defineEffects(runtime);
  defineApplication(runtime, platform);
}

}  // namespace device
