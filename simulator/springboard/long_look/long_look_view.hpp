// The card of a long look: the header with a close button, and all texts of the notification. If the texts do not fit,
// the body ends with an ellipsis, and a drag scrolls all texts. Main thread.
#pragma once

#include <array>
#include <memory>

#include "platform/ui_control.hpp"
#include "simulator/springboard/platter/platter_header.hpp"
#include "simulator/springboard/platter/scrolling.hpp"

struct LongLookViewState {
  objc::Ref<UIView> headerStrip;
  objc::Ref<PLPlatterHeaderContentView> header;
  objc::Ref<UIControl> closeButton;
  std::array<objc::Ref<UILabel>, 3> texts;  // the labels of title, subtitle and body
  objc::Ref<UIPanGestureRecognizer> pan;    // scrolls the texts; disabled if the card shows them completely
  std::unique_ptr<springboard::Scroller> scroller;
  bool hasScrolled = false;  // whether the body is no longer limited to the lines that fit
};

class NCNotificationLongLookView : public objc::Interface<"NCNotificationLongLookView", UIView> {};
template <>
struct objc::StateOf<NCNotificationLongLookView> {
  using Type = LongLookViewState;
};

namespace springboard {

// Creates the card. The caller adds a target to its close button.
objc::Ref<NCNotificationLongLookView> makeLongLookView(const NCNotificationRequest* request);

// Limits the number of lines of the body so that the card fits into `maxHeight` at this width, and returns the height
// of the card. The body keeps at least one line, so the result can exceed `maxHeight`. All lengths are in points.
CGFloat fitLongLookView(const NCNotificationLongLookView* view, CGFloat width, CGFloat maxHeight);

void defineLongLookView();

}  // namespace springboard
