#include "library/view/continuous_update.hpp"

#include "library/view/brim_container_state.hpp"
#include "library/view/tiny_line.hpp"

namespace {

// Returns the two texts in the format "%@\n%@", which represents nil as "(null)".
NSString* appendedLine(NSString* body, NSString* line) {
  NSString* before = body == nullptr ? "(null)"_ns : body;
  NSString* after = line == nullptr ? "(null)"_ns : line;
  return before->stringByAppendingString("\n"_ns)->stringByAppendingString(after);
}

}  // namespace

void updateForContinuousNotification(BrimContainer* self, NSString* text) {
  BrimContainerState& state = objc::state(self);
  if (state.tinyBanner) state.header = state.originalHeader;
  state.body = objc::retain(appendedLine(state.body, text));
  if (state.tinyBanner) {
    showTinyLine(self);
  } else {
    state.bodyLabel->setText(state.body);
  }
}
