#include "simulator/plugins/web_page/element_tree.hpp"

#include <algorithm>
#include <iterator>

namespace web_page {

namespace {

using phone_display::Json;
using uikit::AccessibleElement;
using uikit::AccessibleRole;

struct RoleRow {
  AccessibleRole role;
  const char* name;
};
constexpr RoleRow roles[] = {
    {AccessibleRole::Button, "button"},     {AccessibleRole::Icon, "icon"},
    {AccessibleRole::Text, "text"},         {AccessibleRole::TextField, "textfield"},
    {AccessibleRole::Key, "key"},           {AccessibleRole::ListItem, "listitem"},
    {AccessibleRole::Group, "group"},       {AccessibleRole::List, "list"},
    {AccessibleRole::Keyboard, "keyboard"}, {AccessibleRole::Notification, "notification"},
};

const char* nameOf(AccessibleRole role) {
  const auto* const found = std::ranges::find(roles, role, &RoleRow::role);
  return found == std::end(roles) ? "group" : found->name;
}

}  // namespace

Json frameJson(const phone_display::WindowLayout& layout, const CGRect& frame) {
  const double scale = layout.scale;
  return {(layout.screen.x + frame.origin.x * scale) / layout.width,
          (layout.screen.y + frame.origin.y * scale) / layout.height, frame.size.width * scale / layout.width,
          frame.size.height * scale / layout.height};
}

Json elementsJson(const phone_display::WindowLayout& layout, const phone_display::Elements& elements,
                  std::uint64_t focus) {
  Json all = Json::array();
  for (const AccessibleElement& element : elements) {
    Json actions = Json::array();
    for (const uikit::AccessibleAction& action : element.actions) actions.push_back(action.name);
    const bool isFocused = focus == 0 ? element.isFirstResponder : element.identifier == focus;
    all.push_back({{"id", element.identifier},
                   {"parent", element.parent == AccessibleElement::noParent ? Json(nullptr) : Json(element.parent)},
                   {"role", nameOf(element.role)},
                   {"label", element.label},
                   {"value", element.value},
                   {"frame", frameJson(layout, element.frame)},
                   {"enabled", element.isEnabled},
                   {"focused", isFocused},
                   {"actions", actions}});
  }
  return all;
}

}  // namespace web_page
