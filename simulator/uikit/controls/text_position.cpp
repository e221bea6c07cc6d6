#include "simulator/uikit/controls/text_position.hpp"

#include <utility>

namespace uikit {

namespace {

UITextPosition* start(UITextRange* self) { return textPosition(objc::state(self).range.location); }
UITextPosition* end(UITextRange* self) {
  const NSRange range = objc::state(self).range;
  return textPosition(range.location + range.length);
}
bool isEmpty(UITextRange* self) { return objc::state(self).range.length == 0; }

}  // namespace

UITextPosition* textPosition(NSUInteger offset) {
  objc::Ref<UITextPosition> position = objc::make<UITextPosition>();
  objc::state(position.get()).offset = offset;
  return objc::autorelease(std::move(position));
}

UITextRange* textRange(NSRange range) {
  objc::Ref<UITextRange> made = objc::make<UITextRange>();
  objc::state(made.get()).range = range;
  return objc::autorelease(std::move(made));
}

void defineTextPosition() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"start", &start>(),
      objc::method<"end", &end>(),
      objc::method<"isEmpty", &isEmpty>(),
  };
  objc::defineClassWithState<UITextPosition>({});
  objc::defineClassWithState<UITextRange>(methods);
}

}  // namespace uikit
