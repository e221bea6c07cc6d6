#include "simulator/uikit/views/view_hierarchy.hpp"

#include <algorithm>
#include <cstdio>

#include "simulator/uikit/layout/layout_constraint.hpp"
#include "simulator/uikit/layout/view_layout.hpp"
#include "simulator/uikit/rendering/renderer.hpp"
#include "simulator/uikit/views/responder.hpp"
#include "simulator/uikit/views/view_categories.hpp"

namespace uikit {

UIView* rootOf(const UIView* view) {
  while (record(view).superview != nullptr) view = record(view).superview;
  return const_cast<UIView*>(view);
}

bool isDescendant(const UIView* view, const UIView* ancestor) {
  while (view != nullptr && view != ancestor) view = record(view).superview;
  return view != nullptr;
}

UIView* commonAncestor(UIView* first, UIView* second) {
  while (first != nullptr && !isDescendant(second, first)) first = record(first).superview;
  return first;
}

UIWindow* windowOf(const UIView* view) { return objc::as<UIWindow>(rootOf(view)); }

namespace {

std::vector<objc::Ref<UIView>> treeOf(UIView* view) {
  std::vector<objc::Ref<UIView>> views;
  visitTree(view, [&](UIView* each) { views.push_back(objc::retain(each)); });
  return views;
}

void sendWillMoveToWindow(UIView* view, UIWindow* window) {
  for (const objc::Ref<UIView>& each : treeOf(view)) objc::send<void, "willMoveToWindow:">(each.get(), window);
}

void sendDidMoveToWindow(UIView* view) {
  for (const objc::Ref<UIView>& each : treeOf(view)) objc::send<void, "didMoveToWindow">(each.get());
}

void reorder(UIView* parent, UIView* child, std::size_t index) {
  auto& siblings = record(parent).subviews;
  const auto from = std::ranges::find(siblings, child, &objc::Ref<UIView>::get);
  const auto to = siblings.begin() + static_cast<std::ptrdiff_t>(std::min(index, siblings.size() - 1));
  if (from < to)
    std::rotate(from, from + 1, to + 1);
  else
    std::rotate(to, from, from + 1);
  noteDisplayChange();
}

void detach(UIView* child) {
  ViewRecord& state = record(child);
  UIView* parent = state.superview;
  objc::send<void, "willRemoveSubview:">(parent, child);
  if (state.superview != parent) return;
  deactivateConstraintsAcross(child);
  invalidateConstraints(parent);
  auto& siblings = record(parent).subviews;
  const auto place = std::ranges::find(siblings, child, &objc::Ref<UIView>::get);
  const objc::Ref<UIView> retained = std::move(*place);
  siblings.erase(place);
  state.superview = nullptr;
  state.constraintsChanged = true;  // the child is now the root of a tree
  noteDisplayChange();
}

void attach(UIView* parent, UIView* child, std::size_t index) {
  auto& siblings = record(parent).subviews;
  siblings.insert(siblings.begin() + static_cast<std::ptrdiff_t>(std::min(index, siblings.size())),
                  objc::retain(child));
  record(child).superview = parent;
  record(child).engine.reset();
  markNeedsLayout(parent);
  invalidateConstraints(parent);
  noteDisplayChange();
}

}  // namespace

void insertSubview(UIView* parent, UIView* child, std::size_t index) {
  if (child == nullptr) return;
  if (isDescendant(parent, child)) {
    std::fprintf(stderr, "A view cannot become a subview of itself or of one of its descendants.\n");
    return;
  }
  if (record(child).superview == parent) return reorder(parent, child, index);

  const objc::Ref<UIView> retained = objc::retain(child);
  UIWindow* before = windowOf(child);
  UIWindow* after = windowOf(parent);
  objc::send<void, "willMoveToSuperview:">(child, parent);
  if (before != after) {
    resignFirstResponderInside(child);
    sendWillMoveToWindow(child, after);
  }
  if (record(child).superview != nullptr) detach(child);
  attach(parent, child, index);
  if (before != after) sendDidMoveToWindow(child);
  objc::send<void, "didMoveToSuperview">(child);
  objc::send<void, "didAddSubview:">(parent, child);
}

void removeFromSuperview(UIView* view) {
  if (record(view).superview == nullptr) return;
  const objc::Ref<UIView> retained = objc::retain(view);
  const bool leavesWindow = windowOf(view) != nullptr;
  objc::send<void, "willMoveToSuperview:">(view, static_cast<UIView*>(nullptr));
  if (leavesWindow) {
    resignFirstResponderInside(view);
    sendWillMoveToWindow(view, nullptr);
  }
  if (record(view).superview == nullptr) return;
  detach(view);
  visitTree(view, [](UIView* each) { record(each).layer.removeAnimations(); });
  if (leavesWindow) sendDidMoveToWindow(view);
  objc::send<void, "didMoveToSuperview">(view);
}

namespace {

UIView* superview(UIView* self) { return record(self).superview; }
UIWindow* window(UIView* self) { return windowOf(self); }

NSArray* subviews(UIView* self) {
  NSMutableArray* copy = NSMutableArray::array();
  for (const objc::Ref<UIView>& subview : record(self).subviews) copy->addObject(subview.get());
  return copy;
}

std::size_t indexOf(UIView* self, UIView* child) {
  const auto& siblings = record(self).subviews;
  return static_cast<std::size_t>(std::ranges::find(siblings, child, &objc::Ref<UIView>::get) - siblings.begin());
}

void addSubview(UIView* self, UIView* child) { insertSubview(self, child, record(self).subviews.size()); }

void insertSubviewAtIndex(UIView* self, UIView* child, NSInteger index) {
  insertSubview(self, child, static_cast<std::size_t>(std::max<NSInteger>(index, 0)));
}

// Inserts the child behind `sibling`. If `sibling` is not a subview, the child becomes the frontmost subview.
void insertSubviewBelow(UIView* self, UIView* child, UIView* sibling) {
  const std::size_t place = indexOf(self, sibling);
  const bool comesFromBelow = record(child).superview == self && indexOf(self, child) < place;
  insertSubview(self, child, place - (comesFromBelow ? 1 : 0));
}

void insertSubviewAbove(UIView* self, UIView* child, UIView* sibling) {
  const std::size_t place = indexOf(self, sibling);
  const bool comesFromBelow = record(child).superview == self && indexOf(self, child) < place;
  insertSubview(self, child, place + (comesFromBelow ? 0 : 1));
}

void bringSubviewToFront(UIView* self, UIView* child) {
  if (child != nullptr && record(child).superview == self) reorder(self, child, record(self).subviews.size());
}

void sendSubviewToBack(UIView* self, UIView* child) {
  if (child != nullptr && record(child).superview == self) reorder(self, child, 0);
}

bool isDescendantOfView(UIView* self, UIView* other) { return isDescendant(self, other); }

UIView* viewWithTag(UIView* self, NSInteger tag) {
  UIView* found = nullptr;
  visitTree(self, [&](UIView* each) {
    if (found == nullptr && record(each).tag == tag) found = each;
  });
  return found;
}

// These functions implement methods that do nothing until a subclass overrides them.
void ignoreView(UIView*, UIView*) {}
void ignoreWindow(UIView*, UIWindow*) {}
void ignore(UIView*) {}

}  // namespace

std::span<const objc::MethodEntry> viewHierarchyMethods() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"superview", &superview>(),
      objc::method<"subviews", &subviews>(),
      objc::method<"window", &window>(),
      objc::method<"addSubview:", &addSubview>(),
      objc::method<"insertSubview:atIndex:", &insertSubviewAtIndex>(),
      objc::method<"insertSubview:belowSubview:", &insertSubviewBelow>(),
      objc::method<"insertSubview:aboveSubview:", &insertSubviewAbove>(),
      objc::method<"removeFromSuperview", &removeFromSuperview>(),
      objc::method<"bringSubviewToFront:", &bringSubviewToFront>(),
      objc::method<"sendSubviewToBack:", &sendSubviewToBack>(),
      objc::method<"isDescendantOfView:", &isDescendantOfView>(),
      objc::method<"viewWithTag:", &viewWithTag>(),
      objc::method<"willMoveToSuperview:", &ignoreView>(),
      objc::method<"didMoveToSuperview", &ignore>(),
      objc::method<"willMoveToWindow:", &ignoreWindow>(),
      objc::method<"didMoveToWindow", &ignore>(),
      objc::method<"didAddSubview:", &ignoreView>(),
      objc::method<"willRemoveSubview:", &ignoreView>(),
  };
  return methods;
}

}  // namespace uikit
