// The line above an unfolded group of the notification list. It shows the name of the application, and a button that
// folds the group. Lengths are in points. Main thread.
#pragma once

#include <string>

#include "objc/class_definition.hpp"
#include "platform/ui_label.hpp"
#include "platform/ui_view.hpp"

struct UnfoldedHeaderState {
  std::string section;
  std::string thread;
  objc::Ref<UILabel> name;
  objc::Ref<UIView> button;
};

class NCNotificationListSectionHeaderView : public objc::Interface<"NCNotificationListSectionHeaderView", UIView> {};
template <>
struct objc::StateOf<NCNotificationListSectionHeaderView> {
  using Type = UnfoldedHeaderState;
};

namespace springboard {

using UnfoldedHeader = NCNotificationListSectionHeaderView;

inline constexpr CGFloat unfoldedHeaderHeight = 36;

// Creates the header of a conversation: the bundle identifier of its application, and its thread.
objc::Ref<UnfoldedHeader> makeUnfoldedHeader(const std::string& section, const std::string& thread, CGFloat width);

void defineUnfoldedHeader();

}  // namespace springboard
