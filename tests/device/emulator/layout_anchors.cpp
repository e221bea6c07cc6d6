// Layout anchors of views, and the constraints that they create. A constraint's value is its relation as text, such as
// "BrimLabel.top == UIImageView.top". Its constant and its active state are properties.
#include "tests/device/emulator/platform_classes.hpp"
#include "tests/device/emulator/recorded_methods.hpp"

namespace device {

namespace {

struct Anchor {
  const char* getter;
  const char* edge;
  const char* className;
};

constexpr Anchor anchors[] = {
    {"leadingAnchor", "leading", "NSLayoutXAxisAnchor"}, {"trailingAnchor", "trailing", "NSLayoutXAxisAnchor"},
    {"centerXAnchor", "centerX", "NSLayoutXAxisAnchor"}, {"topAnchor", "top", "NSLayoutYAxisAnchor"},
    {"bottomAnchor", "bottom", "NSLayoutYAxisAnchor"},   {"centerYAnchor", "centerY", "NSLayoutYAxisAnchor"},
    {"widthAnchor", "width", "NSLayoutDimension"},       {"heightAnchor", "height", "NSLayoutDimension"},
};

void makeConstraint(const Message& message, Platform& platform, const std::string& relation, const std::string& other) {
  const double constant = message.number(0);
  ObjectiveC& runtime = message.runtime;
  const Address made = makeString(runtime, textOf(runtime, message.self) + relation + other, "NSLayoutConstraint");
  runtime.retain(made);
  platform.constraints.push_back(made);
  runtime.send(made, "setConstant:", {}, {constant});
  message.answer(made);
}

}  // namespace

void defineLayoutAnchors(ObjectiveC& runtime, Platform& platform) {
  runtime.define("NSLayoutConstraint");
  addProperty(runtime, "NSLayoutConstraint", "constant", "d");
  addProperty(runtime, "NSLayoutConstraint", "active", "B");
  addRecordedMethod(runtime, "NSLayoutConstraint", "isActive", "B@:");

  runtime.define("NSLayoutAnchor");
  for (const char* name : {"NSLayoutXAxisAnchor", "NSLayoutYAxisAnchor", "NSLayoutDimension"})
    runtime.define(name, "NSLayoutAnchor");
  for (const Anchor& anchor : anchors) {
    runtime.addMethod("UIView", anchor.getter, "@@:", [anchor](const Message& message) {
      const std::string edge = message.runtime.classOf(message.self).name + "." + anchor.edge;
      message.answer(makeString(message.runtime, edge, anchor.className));
    });
  }
  runtime.addMethod(
      "NSLayoutAnchor", "constraintEqualToAnchor:constant:", "@@:@d",
      [&platform](const Message& message) { makeConstraint(message, platform, " == ", message.text(0)); });
  runtime.addMethod(
      "NSLayoutAnchor", "constraintGreaterThanOrEqualToAnchor:constant:", "@@:@d",
      [&platform](const Message& message) { makeConstraint(message, platform, " >= ", message.text(0)); });
  runtime.addMethod("NSLayoutDimension", "constraintEqualToConstant:", "@@:d",
                    [&platform](const Message& message) { makeConstraint(message, platform, "", ""); });
}

}  // namespace device
