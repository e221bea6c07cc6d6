#include "simulator/runner/typing.hpp"

#include "platform/ns_string.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/uikit/views/window.hpp"

namespace runner {

namespace {

TypingResult insert(NSString* text) {
  UIResponder* responder = uikit::firstResponder();
  if (!respondsTo<"insertText:">(responder)) return TypingResult::NoReceiver;
  objc::send<void, "insertText:">(responder, text);
  return TypingResult::Received;
}

TypingResult deleteBackward() {
  UIResponder* responder = uikit::firstResponder();
  if (!respondsTo<"deleteBackward">(responder)) return TypingResult::NoReceiver;
  objc::send<void, "deleteBackward">(responder);
  return TypingResult::Received;
}

}  // namespace

TypingResult typeText(const std::string& text) { return insert(base::stringOf(text)); }

TypingResult pressKey(Key key) { return key == Key::Return ? insert("\n"_ns) : deleteBackward(); }

}  // namespace runner
