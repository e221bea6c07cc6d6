#include "simulator/uikit/layout/view_layout.hpp"

#include <algorithm>
#include <memory>
#include <vector>

#include "simulator/uikit/layout/layout_constraint.hpp"
#include "simulator/uikit/rendering/renderer.hpp"
#include "simulator/uikit/views/view_categories.hpp"
#include "simulator/uikit/views/view_geometry.hpp"
#include "simulator/uikit/views/view_hierarchy.hpp"

namespace uikit {

void invalidateConstraints(const UIView* view) {
  const UIView* root = view;
  for (const UIView* each = view; each != nullptr; each = record(each).superview) {
    root = each;
    if (record(each).engine != nullptr) record(each).engine->invalidate();
  }
  record(root).constraintsChanged = true;
  noteDisplayChange();
}

// If treeNeedsLayout is set for a view, it is also set for all its ancestors. Therefore, the loop can stop at the first
// such view.
void markNeedsLayout(UIView* view) {
  record(view).needsLayout = true;
  for (const UIView* each = view; each != nullptr && !record(each).treeNeedsLayout; each = record(each).superview)
    record(each).treeNeedsLayout = true;
}

namespace {

// The maximum number of layout passes. The limit prevents an endless loop if a view requests another layout in each
// layout pass.
constexpr int maxLayoutPasses = 8;

enum class LayoutWork : bool { None, Done };

// Returns whether this view needs an engine, if none of its ancestors has one. It needs an engine if it holds
// constraints between views inside it, or if a subview holds constraints, for example for its own size.
bool isConstraintRoot(const UIView* view) {
  const auto hasConstrainedSize = [](const objc::Ref<UIView>& subview) {
    const ViewRecord& state = record(subview.get());
    return !state.translatesAutoresizingMask && !state.constraints.empty();
  };
  const ViewRecord& state = record(view);
  return !state.constraints.empty() || std::ranges::any_of(state.subviews, hasConstrainedSize);
}

// Collects the stale engines. If the frames of two views are given, constraints inside one view cannot affect the
// other. Therefore, each of the two views has its own engine, and a new banner does not cause the constraints of the
// other banners to be solved again.
void collectStaleEngines(UIView* view, std::vector<LayoutEngine*>& stale) {
  ViewRecord& state = record(view);
  if (isConstraintRoot(view)) {
    if (state.engine == nullptr) state.engine = std::make_unique<LayoutEngine>(view);
    if (state.engine->isStale()) stale.push_back(state.engine.get());
    return;
  }
  state.engine.reset();
  for (const objc::Ref<UIView>& subview : state.subviews) collectStaleEngines(subview.get(), stale);
}

void updateConstraints(UIView* root) {
  ViewRecord& state = record(root);
  if (!state.constraintsChanged) return;
  state.constraintsChanged = false;
  std::vector<LayoutEngine*> stale;
  collectStaleEngines(root, stale);
  for (LayoutEngine* engine : stale) {
    engine->update();
    for (const UIView* view : engine->misplacedViews()) markNeedsLayout(record(view).superview);
  }
}

// Returns the engine that solves the constraints of the view's subviews. Returns null if there is none.
const LayoutEngine* engineOfSubviews(const UIView* view) {
  while (view != nullptr && record(view).engine == nullptr) view = record(view).superview;
  return view == nullptr ? nullptr : record(view).engine.get();
}

bool treeNeedsLayout(const objc::Ref<UIView>& view) { return record(view.get()).treeNeedsLayout; }

LayoutWork layoutTree(UIView* view) {
  ViewRecord& state = record(view);
  if (!state.treeNeedsLayout) return LayoutWork::None;
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
  state.treeNeedsLayout = state.needsLayout || std::ranges::any_of(state.subviews, treeNeedsLayout);
  return work;
}

// Follows the superviews upward as long as they need layout, and returns the last of them. Returns the view itself if
// its superview does not need layout.
UIView* topmostViewNeedingLayout(UIView* view) {
  while (record(view).superview != nullptr && record(record(view).superview).needsLayout) view = record(view).superview;
  return view;
}

}  // namespace

void layoutIfNeeded(UIView* view) {
  const objc::Ref<UIView> retained = objc::retain(view);
  for (int pass = 0; pass < maxLayoutPasses; ++pass) {
    updateConstraints(rootOf(view));
    const objc::Ref<UIView> start = objc::retain(topmostViewNeedingLayout(view));
    if (layoutTree(start.get()) == LayoutWork::None && !record(rootOf(view)).constraintsChanged) return;
  }
}

namespace {

// Sets the frames of those subviews whose frames are determined by constraints.
void layoutSubviews(UIView* self) {
  const LayoutEngine* engine = engineOfSubviews(self);
  if (engine == nullptr) return;
  const std::vector<objc::Ref<UIView>> subviews = record(self).subviews;
  for (const objc::Ref<UIView>& subview : subviews) {
    if (!engine->determinesFrameOf(subview.get())) continue;
    const CGRect frame = engine->frameOf(subview.get());
    if (frame != modelFrame(record(subview.get()).layer)) setFrameFromLayout(subview.get(), frame);
  }
}

void setNeedsLayoutOf(UIView* self) {
  markNeedsLayout(self);
  noteDisplayChange();
}

CGSize intrinsicContentSize(UIView*) { return {UIViewNoIntrinsicMetric, UIViewNoIntrinsicMetric}; }

void invalidateIntrinsicContentSizeOf(UIView* self) {
  IntrinsicSize& size = record(self).intrinsicSize;
  if (size.isBeingMeasured) return;
  size.isValid = false;
  invalidateConstraints(self);
}

bool translatesAutoresizingMask(UIView* self) { return record(self).translatesAutoresizingMask; }
void setTranslatesAutoresizingMask(UIView* self, bool translates) {
  record(self).translatesAutoresizingMask = translates;
  invalidateConstraints(self);
}

float& resistance(UIView* view, UILayoutConstraintAxis axis) {
  IntrinsicSize& size = record(view).intrinsicSize;
  return axis == UILayoutConstraintAxis::Horizontal ? size.widthResistance : size.heightResistance;
}
float compressionResistance(UIView* self, UILayoutConstraintAxis axis) { return resistance(self, axis); }
void setCompressionResistance(UIView* self, float priority, UILayoutConstraintAxis axis) {
  resistance(self, axis) = priority;
  invalidateConstraints(self);
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
  invalidateConstraints(self);
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
      objc::method<"contentCompressionResistancePriorityForAxis:", &compressionResistance>(),
      objc::method<"setContentCompressionResistancePriority:forAxis:", &setCompressionResistance>(),
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
