#include "simulator/uikit/controls/control.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string_view>

#include "simulator/uikit/description/view_tree.hpp"
#include "simulator/uikit/views/view.hpp"

namespace uikit {

bool hasActions(const UIControl* control, UIControlEvents events) {
  return std::ranges::any_of(objc::state(control).actions, [events](const ControlAction& action) {
    return contains(action.events, events) &&
           (action.receiver == ControlAction::Receiver::ResponderChain || action.target.lock() != nullptr);
  });
}

namespace {

using Receiver = ControlAction::Receiver;

UIControlEvents unite(UIControlEvents left, UIControlEvents right) {
  return static_cast<UIControlEvents>(static_cast<NSUInteger>(left) | static_cast<NSUInteger>(right));
}
UIControlEvents without(UIControlEvents mask, UIControlEvents removed) {
  return static_cast<UIControlEvents>(static_cast<NSUInteger>(mask) & ~static_cast<NSUInteger>(removed));
}

bool isSameAction(const ControlAction& entry, const NSObject* target, SEL action) {
  const bool isSameReceiver =
      target == nullptr ? entry.receiver == Receiver::ResponderChain : entry.target.lock().get() == target;
  return isSameReceiver && sel_isEqual(entry.action, action);
}

// Adds an action. If the target already has the action, adds the events to the existing entry. If the target is nil,
// the action is sent along the responder chain.
void addTarget(UIControl* self, NSObject* target, SEL action, UIControlEvents events) {
  if (action == nullptr) return;
  std::vector<ControlAction>& actions = objc::state(self).actions;
  for (ControlAction& entry : actions) {
    if (!isSameAction(entry, target, action)) continue;
    entry.events = unite(entry.events, events);
    return;
  }
  const Receiver receiver = target == nullptr ? Receiver::ResponderChain : Receiver::Target;
  actions.push_back({receiver, objc::Weak<NSObject>(target), action, events});
}

// Removes the events from the actions. A nil target selects all targets. A null action selects all actions of the
// target.
void removeTarget(UIControl* self, NSObject* target, SEL action, UIControlEvents events) {
  std::vector<ControlAction>& actions = objc::state(self).actions;
  for (ControlAction& entry : actions) {
    if (target != nullptr && entry.target.lock().get() != target) continue;
    if (action != nullptr && !sel_isEqual(entry.action, action)) continue;
    entry.events = without(entry.events, events);
  }
  std::erase_if(actions, [](const ControlAction& entry) { return entry.events == UIControlEvents{}; });
}

UIResponder* findResponderFor(UIResponder* responder, SEL action) {
  while (responder != nullptr && !responder->respondsToSelector(action)) responder = responder->nextResponder();
  return responder;
}

// Sends the action. Passes the control and the event as arguments if the selector has one or two parameters.
void sendAction(UIControl* self, SEL action, NSObject* target, NSObject* event) {
  NSObject* receiver = target != nullptr ? target : findResponderFor(self, action);
  if (receiver == nullptr || !receiver->respondsToSelector(action)) return;
  const id object = objc::detail::toId(receiver);
  const IMP implementation = objc::implementationFor(object, action);
  switch (std::ranges::count(std::string_view(sel_getName(action)), ':')) {
    case 0:
      return objc::detail::call<void>(implementation, object, action);
    case 1:
      return objc::detail::call<void>(implementation, object, action, self);
    default:
      return objc::detail::call<void>(implementation, object, action, self, event);
  }
}

// Sends the actions for the events. Retains the control and copies the list of actions first, because an action can
// remove the control or change the list.
void sendActionsFor(UIControl* self, UIControlEvents events) {
  const objc::Ref<UIControl> retained = objc::retain(self);
  const std::vector<ControlAction> actions = objc::state(self).actions;
  for (const ControlAction& entry : actions) {
    if (!contains(entry.events, events)) continue;
    const objc::Ref<NSObject> target = entry.target.lock();
    if (target == nullptr && entry.receiver == Receiver::Target) continue;
    objc::send<void, "sendAction:to:forEvent:">(self, entry.action, target.get(), static_cast<NSObject*>(nullptr));
  }
}

template <bool ControlState::*member>
bool flag(UIControl* self) {
  return objc::state(self).*member;
}

template <bool ControlState::*member>
void setFlag(UIControl* self, bool value) {
  bool& current = objc::state(self).*member;
  if (current == value) return;
  current = value;
  objc::send<void, "_controlStateChanged">(self);
}

// Updates the control after a change of its state. Subclasses override this method.
void controlStateChanged(UIControl* self) {
  setNeedsLayout(self);
  setNeedsDisplay(self);
}

UIControlState stateOfControl(UIControl* self) {
  const ControlState& state = objc::state(self);
  NSUInteger mask = 0;
  if (state.highlighted) mask |= static_cast<NSUInteger>(highlightedState);
  if (!state.enabled) mask |= static_cast<NSUInteger>(disabledState);
  if (state.selected) mask |= static_cast<NSUInteger>(selectedState);
  return static_cast<UIControlState>(mask);
}

UIControlContentVerticalAlignment verticalAlignment(UIControl* self) { return objc::state(self).verticalAlignment; }
void setVerticalAlignment(UIControl* self, UIControlContentVerticalAlignment alignment) {
  objc::state(self).verticalAlignment = alignment;
  objc::send<void, "_controlStateChanged">(self);
}

void describe(UIControl* self, void* description) {
  objc::sendSuper<"UIControl", void, "_describe:">(self, description);
  descriptionAt(description)["enabled"] = objc::state(self).enabled;
}

}  // namespace

void defineControl() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"addTarget:action:forControlEvents:", &addTarget>(),
      objc::method<"removeTarget:action:forControlEvents:", &removeTarget>(),
      objc::method<"sendAction:to:forEvent:", &sendAction>(),
      objc::method<"sendActionsForControlEvents:", &sendActionsFor>(),
      objc::method<"isEnabled", &flag<&ControlState::enabled>>(),
      objc::method<"setEnabled:", &setFlag<&ControlState::enabled>>(),
      objc::method<"isSelected", &flag<&ControlState::selected>>(),
      objc::method<"setSelected:", &setFlag<&ControlState::selected>>(),
      objc::method<"isHighlighted", &flag<&ControlState::highlighted>>(),
      objc::method<"setHighlighted:", &setFlag<&ControlState::highlighted>>(),
      objc::method<"state", &stateOfControl>(),
      objc::method<"_controlStateChanged", &controlStateChanged>(),
      objc::method<"contentVerticalAlignment", &verticalAlignment>(),
      objc::method<"setContentVerticalAlignment:", &setVerticalAlignment>(),
      objc::method<"_describe:", &describe>(),
  };
  objc::defineClassWithState<UIControl>(methods);
  objc::addCategory(UIControl::classObject(), controlTouchMethods());
}

}  // namespace uikit
