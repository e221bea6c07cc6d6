// UIStackView: arranges its subviews in a row or a column.
#include "platform/ui_stack_view.hpp"

#include <algorithm>
#include <type_traits>
#include <utility>
#include <vector>

#include "simulator/uikit/views/class_definitions.hpp"
#include "simulator/uikit/views/view.hpp"

struct StackViewState {
  std::vector<objc::Ref<UIView>> arranged;
  UILayoutConstraintAxis axis = UILayoutConstraintAxis::Horizontal;
  UIStackViewAlignment alignment = UIStackViewAlignment::Fill;
  UIStackViewDistribution distribution = UIStackViewDistribution::Fill;
  CGFloat spacing = 0;
};
template <>
struct objc::StateOf<UIStackView> {
  using Type = StackViewState;
};

namespace uikit {

namespace {

using Views = std::vector<UIView*>;

// A size in the directions of the stack view: along its axis and across its axis.
struct Extent {
  double along = 0;
  double across = 0;
};

bool isHorizontal(const StackViewState& state) { return state.axis == UILayoutConstraintAxis::Horizontal; }

Extent extentOf(const StackViewState& state, CGSize size) {
  return isHorizontal(state) ? Extent{size.width, size.height} : Extent{size.height, size.width};
}
CGSize sizeOf(const StackViewState& state, const Extent& extent) {
  return isHorizontal(state) ? CGSize{extent.along, extent.across} : CGSize{extent.across, extent.along};
}

// Returns the views to arrange. Hidden views and views that have moved to another superview are omitted.
Views visibleViews(const UIStackView* stack) {
  Views views;
  for (const objc::Ref<UIView>& view : objc::state(stack).arranged)
    if (!objc::send<bool, "isHidden">(view.get()) && view->superview() == stack) views.push_back(view);
  return views;
}

// Returns the intrinsic size of the view. The length is 0 in a direction without an intrinsic size.
Extent intrinsicExtent(const StackViewState& state, const UIView* view) {
  const CGSize size = objc::send<CGSize, "intrinsicContentSize">(view);
  return extentOf(state, {std::max(size.width, 0.0), std::max(size.height, 0.0)});
}

double totalSpacing(const StackViewState& state, const Views& views) {
  return views.empty() ? 0 : state.spacing * static_cast<double>(views.size() - 1);
}

// Returns the length of each view. The last view takes the remaining space. If there is not enough space, the last
// views are shortened.
std::vector<double> filledLengths(const StackViewState& state, const Views& views, double room) {
  std::vector<double> lengths;
  for (const UIView* view : views) {
    lengths.push_back(std::min(intrinsicExtent(state, view).along, room));
    room -= lengths.back();
  }
  if (!lengths.empty()) lengths.back() += room;
  return lengths;
}

std::vector<double> lengthsOf(const StackViewState& state, const Views& views, double length) {
  const double room = std::max(length - totalSpacing(state, views), 0.0);
  if (state.distribution == UIStackViewDistribution::FillEqually)
    return std::vector<double>(views.size(), views.empty() ? 0 : room / static_cast<double>(views.size()));
  return filledLengths(state, views, room);
}

void layoutSubviews(UIStackView* self) {
  objc::sendSuper<"UIStackView", void, "layoutSubviews">(self);
  const StackViewState& state = objc::state(self);
  const CGRect bounds = self->bounds();
  const Extent whole = extentOf(state, bounds.size);
  const bool mirrored = isHorizontal(state) && effectiveDirection(self) == LayoutDirection::RightToLeft;
  const Views views = visibleViews(self);
  const std::vector<double> lengths = lengthsOf(state, views, whole.along);
  double position = 0;
  for (std::size_t index = 0; index < views.size(); ++index) {
    const double start = mirrored ? whole.along - position - lengths[index] : position;
    const CGPoint origin = isHorizontal(state) ? CGPoint{bounds.origin.x + start, bounds.origin.y}
                                               : CGPoint{bounds.origin.x, bounds.origin.y + start};
    views[index]->setFrame({origin, sizeOf(state, {lengths[index], whole.across})});
    position += lengths[index] + state.spacing;
  }
}

CGSize intrinsicContentSize(UIStackView* self) {
  const StackViewState& state = objc::state(self);
  const Views views = visibleViews(self);
  double longest = 0;
  Extent sum{totalSpacing(state, views), 0};
  for (const UIView* view : views) {
    const Extent extent = intrinsicExtent(state, view);
    longest = std::max(longest, extent.along);
    sum.along += extent.along;
    sum.across = std::max(sum.across, extent.across);
  }
  if (state.distribution == UIStackViewDistribution::FillEqually)
    sum.along = totalSpacing(state, views) + longest * static_cast<double>(views.size());
  return sizeOf(state, sum);
}

void invalidateRow(UIStackView* self) {
  setNeedsLayout(self);
  invalidateIntrinsicContentSize(self);
}

void removeFromRow(UIStackView* self, UIView* view) {
  std::erase_if(objc::state(self).arranged, [view](const objc::Ref<UIView>& each) { return each.get() == view; });
}

// Inserts a view at this index. If the view is already arranged, it moves to the index.
void insertArrangedSubview(UIStackView* self, UIView* view, NSUInteger index) {
  if (view == nullptr) return;
  const objc::Ref<UIView> retained = objc::retain(view);
  removeFromRow(self, view);
  auto& arranged = objc::state(self).arranged;
  const auto position = static_cast<std::ptrdiff_t>(std::min<NSUInteger>(index, arranged.size()));
  arranged.insert(arranged.begin() + position, retained);
  if (view->superview() != self) self->addSubview(view);
  invalidateRow(self);
}

void addArrangedSubview(UIStackView* self, UIView* view) { insertArrangedSubview(self, view, NSUInteger{SIZE_MAX}); }

// Removes a view from the arranged views. The view stays a subview and keeps its frame.
void removeArrangedSubview(UIStackView* self, UIView* view) {
  removeFromRow(self, view);
  invalidateRow(self);
}

void willRemoveSubview(UIStackView* self, UIView* view) {
  objc::sendSuper<"UIStackView", void, "willRemoveSubview:">(self, view);
  removeArrangedSubview(self, view);
}

NSArray* arrangedSubviews(UIStackView* self) {
  NSMutableArray* views = NSMutableArray::array();
  for (const objc::Ref<UIView>& view : objc::state(self).arranged) views->addObject(view);
  return views;
}

template <auto member>
auto value(UIStackView* self) {
  return objc::state(self).*member;
}

template <auto member>
void setValue(UIStackView* self, std::remove_reference_t<decltype(std::declval<StackViewState&>().*member)> given) {
  if (objc::state(self).*member == given) return;
  objc::state(self).*member = given;
  invalidateRow(self);
}

}  // namespace

void defineStackView() {
  using State = StackViewState;
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"axis", &value<&State::axis>>(),
      objc::method<"setAxis:", &setValue<&State::axis>>(),
      objc::method<"alignment", &value<&State::alignment>>(),
      objc::method<"setAlignment:", &setValue<&State::alignment>>(),
      objc::method<"distribution", &value<&State::distribution>>(),
      objc::method<"setDistribution:", &setValue<&State::distribution>>(),
      objc::method<"spacing", &value<&State::spacing>>(),
      objc::method<"setSpacing:", &setValue<&State::spacing>>(),
      objc::method<"addArrangedSubview:", &addArrangedSubview>(),
      objc::method<"insertArrangedSubview:atIndex:", &insertArrangedSubview>(),
      objc::method<"removeArrangedSubview:", &removeArrangedSubview>(),
      objc::method<"arrangedSubviews", &arrangedSubviews>(),
      objc::method<"willRemoveSubview:", &willRemoveSubview>(),
      objc::method<"layoutSubviews", &layoutSubviews>(),
      objc::method<"intrinsicContentSize", &intrinsicContentSize>(),
  };
  objc::defineClassWithState<UIStackView>(methods);
}

}  // namespace uikit
