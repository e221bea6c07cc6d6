// A long look's card: the header with a button to close it, and everything that the notification says.
#pragma once

#include <array>

#include "platform/ui_control.hpp"
#include "simulator/springboard/platter/platter_header.hpp"

struct LongLookViewState {
  objc::Ref<UIView> headerStrip;
  objc::Ref<PLPlatterHeaderContentView> header;
  objc::Ref<UIControl> closeButton;
  std::array<objc::Ref<UILabel>, 3> texts;  // title, subtitle, body
};

class NCNotificationLongLookView : public objc::Interface<"NCNotificationLongLookView", UIView> {};
template <>
struct objc::StateOf<NCNotificationLongLookView> {
  using Type = LongLookViewState;
};

namespace springboard {

// The button is the caller's to listen to.
objc::Ref<NCNotificationLongLookView> makeLongLookView(const NCNotificationRequest* request);

// How high the card wants to be at this width, at most this high. A body that does not fit loses its last lines;
// one stays, so that a card can be higher than `most`.
CGFloat fitLongLookView(const NCNotificationLongLookView* view, CGFloat width, CGFloat most);

void defineLongLookView();

}  // namespace springboard
