// The header of a notification card: the application's icon and name, and the age of the notification. Main thread.
#pragma once

#include "platform/ui_image_view.hpp"
#include "platform/ui_label.hpp"
#include "simulator/springboard/services/notification_request.hpp"

struct PlatterHeaderState {
  objc::Ref<UIImageView> icon;
  objc::Ref<UILabel> name;
  objc::Ref<UILabel> date;
  CGFloat trailingSpace = 0;
};

class PLPlatterHeaderContentView : public objc::Interface<"PLPlatterHeaderContentView", UIView> {};
template <>
struct objc::StateOf<PLPlatterHeaderContentView> {
  using Type = PlatterHeaderState;
};

namespace springboard {

inline constexpr CGFloat platterHeaderHeight = 40;  // in points

// Creates the header. `trailingSpace` is the width, in points, that remains empty at its trailing edge.
objc::Ref<PLPlatterHeaderContentView> makePlatterHeader(const NCNotificationRequest* request, CGFloat trailingSpace);

// Updates the displayed age to the current time.
void refreshDate(PLPlatterHeaderContentView* header, const NCNotificationRequest* request);

void definePlatterHeader();

}  // namespace springboard
