#include "simulator/uikit/view_layout.hpp"

#include "simulator/uikit/layout_constraint.hpp"
#include "simulator/uikit/renderer.hpp"
#include "simulator/uikit/view_categories.hpp"
#include "simulator/uikit/view_geometry.hpp"
#include "simulator/uikit/view_hierarchy.hpp"

namespace uikit {

void constraintsChanged(const UIView* view) {
  record(rootOf(view)).constraintsChanged = true;
  noteDisplayChange();
}

namespace {

// A view that asks for another layout in each of its layouts would go on forever.
constexpr int maximumLayoutPasses = 8;

enum class LayoutWork : bool { None, Done };

bool hasConstraints(UIView* root) {
  bool found = false;
  visitTree(root, [&](UIView* view) { found = found || !record(view).constraints.empty(); });
  return found;
}

void updateConstraints(UIView* root) {
  ViewRecord& state = record(root);
  if (!state.constraintsChanged) return;
  state.constraintsChanged = false;
  if (state.engine == nullptr) {
    if (!hasConstraints(root)) return;
    state.engine = std::make_unique<LayoutEngine>(root);
  }
  state.engine->update();
  for (const UIView* view : state.engine->misplacedViews()) record(record(view).superview).needsLayout = true;
}

LayoutWork layoutTree(UIView* view) {
  ViewRecord& state = record(view);
  LayoutWork work = LayoutWork::None;
  if (state.needsLayout) {
    state.needsLayout = false;
    work = LayoutWork::Done;
    objc::send<void, "viewWillLayoutSubviews">(state.viewController);
    objc::send<void, "layoutSubviews">(view);
    objc::send<void, "viewDidLayoutSubviews">(state.viewController);
  }
  const std::vector<objc::Ref<UIView>> subviews = state.subviews;
  for (const objc::Ref<UIView>& subview : subviews)
    if (layoutTree(subview.get()) == LayoutWork::Done) work = LayoutWork::Done;
  return work;
}

// The topmost of the views above that need layout without a gap.
UIView* startOfLayout(UIView* view) {
  while (record(view).superview != nullptr && record(record(view).superview).needsLayout) view = record(view).superview;
  return view;
}

}  // namespace

void layoutIfNeeded(UIView* view) {
  const objc::Ref<UIView> kept = objc::retain(view);
  for (int pass = 0; pass < maximumLayoutPasses; ++pass) {
    updateConstraints(rootOf(view));
    if (layoutTree(startOfLayout(view)) == LayoutWork::None && !record(rootOf(view)).constraintsChanged) return;
  }
}

namespace {

// The places that constraints give to the subviews.
void layoutSubviews(UIView* self) {
  const LayoutEngine* engine = record(rootOf(self)).engine.get();
  if (engine == nullptr) return;
  const std::vector<objc::Ref<UIView>> subviews = record(self).subviews;
  for (const objc::Ref<UIView>& subview : subviews) {
    if (!engine->places(subview.get())) continue;
    const CGRect frame = engine->frameOf(subview.get());
    if (frame != modelFrame(record(subview.get()).layer)) placeFrame(subview.get(), frame);
  }
}

void setNeedsLayoutOf(UIView* self) {
  record(self).needsLayout = true;
  noteDisplayChange();
}

CGSize intrinsicContentSize(UIView*) { return {UIViewNoIntrinsicMetric, UIViewNoIntrinsicMetric}; }

void invalidateIntrinsicContentSizeOf(UIView* self) {
  IntrinsicSize& size = record(self).intrinsicSize;
  if (size.isBeingMeasured) return;
  size.isValid = false;
  constraintsChanged(self);
}

bool translatesAutoresizingMask(UIView* self) { return record(self).translatesAutoresizingMask; }
void setTranslatesAutoresizingMask(UIView* self, bool translates) {
  record(self).translatesAutoresizingMask = translates;
  constraintsChanged(self);
}

template <NSLayoutAttribute attribute>
NSLayoutAnchor* anchor(UIView* self) {
  return makeAnchor(self, attribute);
}

NSArray* constraints(UIView* self) {
  NSMutableArray* copy = NSMutableArray::array();
  for (const objc::Ref<NSLayoutConstraint>& constraint : record(self).constraints) copy->addObject(constraint.get());
  return copy;
}

UISemanticContentAttribute semanticContentAttribute(UIView* self) { return record(self).semanticContent; }
void setSemanticContentAttribute(UIView* self, UISemanticContentAttribute attribute) {
  record(self).semanticContent = attribute;
  setNeedsDisplay(self);
  constraintsChanged(self);
}

NSInteger effectiveUserInterfaceLayoutDirection(UIView* self) {
  return effectiveDirection(self) == LayoutDirection::RightToLeft ? 1 : 0;
}

}  // namespace

LayoutDirection effectiveDirection(const UIView* view) {
  switch (record(view).semanticContent) {
    case UISemanticContentAttribute::Playback:
    case UISemanticContentAttribute::Spatial:
    case UISemanticContentAttribute::ForceLeftToRight:
      return LayoutDirection::LeftToRight;
    case UISemanticContentAttribute::ForceRightToLeft:
      return LayoutDirection::RightToLeft;
    case UISemanticContentAttribute::Unspecified:
      break;
  }
  return environment().direction;
}

CGRect mirroredIfNeeded(const UIView* view, CGRect frame) {
  if (effectiveDirection(view) == LayoutDirection::RightToLeft)
    frame.origin.x = view->bounds().size.width - frame.origin.x - frame.size.width;
  return frame;
}

std::span<const objc::MethodEntry> viewLayoutMethods() {
  using enum NSLayoutAttribute;
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"layoutSubviews", &layoutSubviews>(),
      objc::method<"layoutIfNeeded", &layoutIfNeeded>(),
      objc::method<"setNeedsLayout", &setNeedsLayoutOf>(),
      objc::method<"intrinsicContentSize", &intrinsicContentSize>(),
      objc::method<"invalidateIntrinsicContentSize", &invalidateIntrinsicContentSizeOf>(),
      objc::method<"translatesAutoresizingMaskIntoConstraints", &translatesAutoresizingMask>(),
      objc::method<"setTranslatesAutoresizingMaskIntoConstraints:", &setTranslatesAutoresizingMask>(),
      objc::method<"constraints", &constraints>(),
      objc::method<"leftAnchor", &anchor<Left>>(),
      objc::method<"rightAnchor", &anchor<Right>>(),
      objc::method<"leadingAnchor", &anchor<Leading>>(),
      objc::method<"trailingAnchor", &anchor<Trailing>>(),
      objc::method<"topAnchor", &anchor<Top>>(),
      objc::method<"bottomAnchor", &anchor<Bottom>>(),
      objc::method<"centerXAnchor", &anchor<CenterX>>(),
      objc::method<"centerYAnchor", &anchor<CenterY>>(),
      objc::method<"widthAnchor", &anchor<Width>>(),
      objc::method<"heightAnchor", &anchor<Height>>(),
      objc::method<"firstBaselineAnchor", &anchor<FirstBaseline>>(),
      objc::method<"semanticContentAttribute", &semanticContentAttribute>(),
      objc::method<"setSemanticContentAttribute:", &setSemanticContentAttribute>(),
      objc::method<"effectiveUserInterfaceLayoutDirection", &effectiveUserInterfaceLayoutDirection>(),
  };
  return methods;
}

}  // namespace uikit
