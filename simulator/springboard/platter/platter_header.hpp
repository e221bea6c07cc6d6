// The first line of a notification's card: the application's icon and name, and how long ago it came.
#pragma once

#include "platform/ui_image_view.hpp"
#include "platform/ui_label.hpp"
#include "simulator/springboard/services/notification_request.hpp"

struct PlatterHeaderState {
  objc::Ref<UIImageView> icon;
  objc::Ref<UILabel> name;
  objc::Ref<UILabel> date;
  CGFloat trailingRoom = 0;
};

class PLPlatterHeaderContentView : public objc::Interface<"PLPlatterHeaderContentView", UIView> {};
template <>
struct objc::StateOf<PLPlatterHeaderContentView> {
  using Type = PlatterHeaderState;
};

namespace springboard {

inline constexpr CGFloat platterHeaderHeight = 40;

// What stands at the end leaves so much room for something else.
objc::Ref<PLPlatterHeaderContentView> makePlatterHeader(const NCNotificationRequest* request, CGFloat trailingRoom);

// Says how long ago it is now.
void renewDate(PLPlatterHeaderContentView* header, const NCNotificationRequest* request);

void definePlatterHeader();

}  // namespace springboard
