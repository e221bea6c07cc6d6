#include <array>

#include "tests/device/emulator/platform_classes.hpp"

namespace device {

namespace {

using Color = std::array<double, 4>;

Address makeColor(ObjectiveC& runtime, Color color) {
  const Address made = runtime.allocate(*runtime.find("UIColor"));
  runtime.object(made).value = color;
  return runtime.autorelease(made);
}

void defineColors(ObjectiveC& runtime) {
  runtime.define("UIColor");
  runtime.addClassMethod("UIColor", "colorWithRed:green:blue:alpha:", "@@:dddd", [](const Message& message) {
    const Color color = {message.number(0), message.number(1), message.number(2), message.number(3)};
    message.answer(makeColor(message.runtime, color));
  });
  // A color is its own CGColor.
  runtime.addMethod("UIColor", "CGColor",
                    "^{CGColor=}@:", [](const Message& message) { message.answer(message.self); });
  runtime.addClassMethod("UIColor", "clearColor", "@@:", [](const Message& message) {
    message.answer(makeColor(message.runtime, {0, 0, 0, 0}));
  });
  runtime.addClassMethod("UIColor", "redColor", "@@:", [](const Message& message) {
    message.answer(makeColor(message.runtime, {1, 0, 0, 1}));
  });
}

void defineDevice(ObjectiveC& runtime, Platform& platform) {
  runtime.define("UIDevice");
  runtime.addClassMethod("UIDevice", "currentDevice", "@@:", [](const Message& message) {
    message.answer(message.runtime.autorelease(message.runtime.make("UIDevice")));
  });
  runtime.addMethod("UIDevice", "systemVersion", "@@:", [&platform](const Message& message) {
    message.answer(makeString(message.runtime, platform.systemVersion));
  });
  runtime.addMethod("UIDevice", "valueForKey:", "@@:@", [&platform](const Message& message) {
    if (message.text(0) != "_feedbackSupportLevel") throw std::runtime_error("an unknown key: " + message.text(0));
    const Address made = message.runtime.allocate(*message.runtime.find("NSNumber"));
    message.runtime.object(made).value = platform.feedbackSupportLevel;
    message.answer(message.runtime.autorelease(made));
  });
}

// An image's value is the path of its file.
void defineImages(ObjectiveC& runtime) {
  runtime.define("UIImage");
  runtime.addMethod("UIImage", "initWithData:", "@@:@", [](const Message& message) {
    message.runtime.object(message.self).value = std::string("decoded");
    message.answer(message.self);
  });
  runtime.addClassMethod("UIImage", "imageWithContentsOfFile:", "@@:@", [](const Message& message) {
    message.answer(makeString(message.runtime, message.text(0), "UIImage"));
  });
}

}  // namespace

void defineViewToolkit(ObjectiveC& runtime, Platform& platform) {
  defineColors(runtime);
  defineDevice(runtime, platform);
  defineImages(runtime);
  defineViews(runtime, platform);
  defineLayoutAnchors(runtime, platform);
}

}  // namespace device
