#include "simulator/uikit/layout/layout_constraint.hpp"

#include <algorithm>
#include <array>
#include <cstdio>

#include "simulator/layout/solver.hpp"
#include "simulator/uikit/layout/view_layout.hpp"
#include "simulator/uikit/views/class_definitions.hpp"
#include "simulator/uikit/views/view_hierarchy.hpp"

namespace uikit {

namespace {

// Logs an error for a constraint that cannot be activated. The constraint remains inactive. The platform raises an
// exception instead.
void reportInvalidConstraint(const ConstraintRecord& constraint, const char* reason) {
  std::fprintf(stderr, "Unable to activate the constraint %s: %s.\n", describeConstraint(constraint).c_str(), reason);
}

std::string describeView(const UIView* view) {
  if (view == nullptr) return "(deallocated view)";
  std::array<char, 128> text{};
  std::snprintf(text.data(), text.size(), "<%s %p>", class_getName(object_getClass(objc::detail::toId(view))),
                static_cast<const void*>(view));
  return text.data();
}

std::string describeItem(const LayoutItem& item) {
  return describeView(item.view.lock().get()) + "." + nameOf(item.attribute);
}

std::string describeNumber(double number) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%g", number);
  return text.data();
}

bool involves(const ConstraintRecord& constraint, const UIView* leaving) {
  return isDescendant(constraint.firstView, leaving) ||
         (constraint.secondView != nullptr && isDescendant(constraint.secondView, leaving));
}

}  // namespace

const char* nameOf(NSLayoutAttribute attribute) {
  switch (attribute) {
    case NSLayoutAttribute::NotAnAttribute:
      return "none";
    case NSLayoutAttribute::Left:
      return "left";
    case NSLayoutAttribute::Right:
      return "right";
    case NSLayoutAttribute::Top:
      return "top";
    case NSLayoutAttribute::Bottom:
      return "bottom";
    case NSLayoutAttribute::Leading:
      return "leading";
    case NSLayoutAttribute::Trailing:
      return "trailing";
    case NSLayoutAttribute::Width:
      return "width";
    case NSLayoutAttribute::Height:
      return "height";
    case NSLayoutAttribute::CenterX:
      return "centerX";
    case NSLayoutAttribute::CenterY:
      return "centerY";
    case NSLayoutAttribute::FirstBaseline:
      return "firstBaseline";
  }
  return "unknown";
}

std::string describeConstraint(const ConstraintRecord& constraint) {
  constexpr std::array<const char*, 3> relations = {"<=", "==", ">="};
  std::string text = describeItem(constraint.first) + " " +
                     relations[static_cast<std::size_t>(static_cast<NSInteger>(constraint.relation) + 1)] + " ";
  if (constraint.second.attribute == NSLayoutAttribute::NotAnAttribute) {
    text += describeNumber(constraint.constant);
  } else {
    if (constraint.multiplier < 1 || constraint.multiplier > 1) text += describeNumber(constraint.multiplier) + " * ";
    text += describeItem(constraint.second);
    if (constraint.constant > 0) text += " + " + describeNumber(constraint.constant);
    if (constraint.constant < 0) text += " - " + describeNumber(-constraint.constant);
  }
  if (constraint.priority < layout::Solver::required)
    text += " @" + describeNumber(static_cast<double>(constraint.priority));
  return text;
}

void activate(NSLayoutConstraint* constraint) {
  ConstraintRecord& state = objc::state(constraint);
  if (state.holder != nullptr) return;
  UIView* first = state.first.view.lock().get();
  UIView* second = state.second.view.lock().get();
  const bool hasSecond = state.second.attribute != NSLayoutAttribute::NotAnAttribute;
  if (first == nullptr || (hasSecond && second == nullptr))
    return reportInvalidConstraint(state, "one of its views was deallocated");
  UIView* holder = hasSecond ? commonAncestor(first, second) : first;
  if (holder == nullptr) return reportInvalidConstraint(state, "its views have no common ancestor");
  state.holder = holder;
  state.firstView = first;
  state.secondView = second;
  record(holder).constraints.push_back(objc::retain(constraint));
  invalidateConstraints(holder);
}

void deactivate(NSLayoutConstraint* constraint) {
  ConstraintRecord& state = objc::state(constraint);
  if (state.holder == nullptr) return;
  const objc::Ref<NSLayoutConstraint> retained = objc::retain(constraint);
  invalidateConstraints(state.holder);
  std::erase_if(record(state.holder).constraints,
                [&](const objc::Ref<NSLayoutConstraint>& each) { return each.get() == constraint; });
  state.holder = state.firstView = state.secondView = nullptr;
  state.conflictReported = false;
}

void deactivateConstraintsAcross(const UIView* leaving) {
  for (UIView* ancestor = record(leaving).superview; ancestor != nullptr; ancestor = record(ancestor).superview) {
    const std::vector<objc::Ref<NSLayoutConstraint>> constraints = record(ancestor).constraints;
    for (const objc::Ref<NSLayoutConstraint>& constraint : constraints)
      if (involves(objc::state(constraint.get()), leaving)) deactivate(constraint);
  }
}

namespace {

CGFloat constant(NSLayoutConstraint* self) { return objc::state(self).constant; }

void setConstant(NSLayoutConstraint* self, CGFloat value) {
  ConstraintRecord& state = objc::state(self);
  if (state.constant == value) return;
  state.constant = value;
  if (state.holder != nullptr) invalidateConstraints(state.holder);
}

bool isActive(NSLayoutConstraint* self) { return objc::state(self).holder != nullptr; }
void setActive(NSLayoutConstraint* self, bool active) { active ? activate(self) : deactivate(self); }

float priority(NSLayoutConstraint* self) { return objc::state(self).priority; }

void setPriority(NSLayoutConstraint* self, float value) {
  ConstraintRecord& state = objc::state(self);
  state.priority = value;
  if (state.holder != nullptr) invalidateConstraints(state.holder);
}

NSLayoutRelation relation(NSLayoutConstraint* self) { return objc::state(self).relation; }
CGFloat multiplier(NSLayoutConstraint* self) { return objc::state(self).multiplier; }
UIView* firstItem(NSLayoutConstraint* self) { return objc::autorelease(objc::state(self).first.view.lock()); }
UIView* secondItem(NSLayoutConstraint* self) { return objc::autorelease(objc::state(self).second.view.lock()); }
NSLayoutAttribute firstAttribute(NSLayoutConstraint* self) { return objc::state(self).first.attribute; }
NSLayoutAttribute secondAttribute(NSLayoutConstraint* self) { return objc::state(self).second.attribute; }

void setActiveEach(NSArray* constraints, bool active) {
  for (NSUInteger index = 0; index < constraints->count(); ++index)
    static_cast<NSLayoutConstraint*>(constraints->objectAtIndex(index))->setActive(active);
}
void activateConstraints(Class, NSArray* constraints) { setActiveEach(constraints, true); }
void deactivateConstraints(Class, NSArray* constraints) { setActiveEach(constraints, false); }

}  // namespace

void defineLayoutConstraint() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"constant", &constant>(),
      objc::method<"setConstant:", &setConstant>(),
      objc::method<"isActive", &isActive>(),
      objc::method<"setActive:", &setActive>(),
      objc::method<"priority", &priority>(),
      objc::method<"setPriority:", &setPriority>(),
      objc::method<"relation", &relation>(),
      objc::method<"multiplier", &multiplier>(),
      objc::method<"firstItem", &firstItem>(),
      objc::method<"secondItem", &secondItem>(),
      objc::method<"firstAttribute", &firstAttribute>(),
      objc::method<"secondAttribute", &secondAttribute>(),
      objc::classMethod<"activateConstraints:", &activateConstraints>(),
      objc::classMethod<"deactivateConstraints:", &deactivateConstraints>(),
  };
  objc::defineClassWithState<NSLayoutConstraint>(methods);
}

}  // namespace uikit
