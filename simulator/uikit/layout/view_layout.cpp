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

void constraintsChanged(const UIView* view) {
  const UIView* root = view;
  for (const UIView* each = view; each != nullptr; each = record(each).superview) {
    root = each;
    if (record(each).engine != nullptr) record(each).engine->invalidate();
  }
  record(root).constraintsChanged = true;
  noteDisplayChange();
}

// Above a view whose tree needs layout there are only such.
void needLayout(UIView* view) {
  record(view).needsLayout = true;
  for (const UIView* each = view; each != nullptr && !record(each).treeNeedsLayout; each = record(each).superview)
    record(each).treeNeedsLayout = true;
}

namespace {

// A view that asks for another layout in each of its layouts would go on forever.
constexpr int maxLayoutPasses = 8;

enum class LayoutWork : bool { None, Done };

// Whether constraints begin here: its frame is given, and it has constraints between what is inside it, or one of its
// subviews has its own size alone constrained.
bool beginsConstraints(const UIView* view) {
  const auto isPlacedByItself = [](const objc::Ref<UIView>& subview) {
    const ViewRecord& state = record(subview.get());
    return !state.translatesAutoresizingMask && !state.constraints.empty();
  };
  const ViewRecord& state = record(view);
  return !state.constraints.empty() || std::ranges::any_of(state.subviews, isPlacedByItself);
}

// What lies in different views whose frames are given has no influence on each other, so each of these has an engine of
// its own, and a banner more leaves the others alone. Collects those to be updated.
void collectStaleEngines(UIView* view, std::vector<LayoutEngine*>& stale) {
  ViewRecord& state = record(view);
  if (beginsConstraints(view)) {
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
    for (const UIView* view : engine->misplacedViews()) needLayout(record(view).superview);
  }
}

// The one that places the view's subviews, null where constraints place none.
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

// The topmost of the views above that need layout without a gap.
UIView* startOfLayout(UIView* view) {
  while (record(view).superview != nullptr && record(record(view).superview).needsLayout) view = record(view).superview;
  return view;
}

}  // namespace

void layoutIfNeeded(UIView* view) {
  const objc::Ref<UIView> kept = objc::retain(view);
  for (int pass = 0; pass < maxLayoutPasses; ++pass) {
    updateConstraints(rootOf(view));
    const objc::Ref<UIView> start = objc::retain(startOfLayout(view));
    if (layoutTree(start.get()) == LayoutWork::None && !record(rootOf(view)).constraintsChanged) return;
  }
}

namespace {

// The places that constraints give to the subviews.
void layoutSubviews(UIView* self) {
  const LayoutEngine* engine = engineOfSubviews(self);
  if (engine == nullptr) return;
  const std::vector<objc::Ref<UIView>> subviews = record(self).subviews;
  for (const objc::Ref<UIView>& subview : subviews) {
    if (!engine->places(subview.get())) continue;
    const CGRect frame = engine->frameOf(subview.get());
    if (frame != modelFrame(record(subview.get()).layer)) placeFrame(subview.get(), frame);
  }
}

void setNeedsLayoutOf(UIView* self) {
  needLayout(self);
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
