// The hierarchy of views: superviews and subviews. Views must not be nil unless stated otherwise. Main thread only.
#pragma once

#include "simulator/uikit/views/view_record.hpp"

namespace uikit {

// The root of the view's tree, which is the view itself if it has no superview.
UIView* rootOf(const UIView* view);
// Whether the view is the ancestor or inside it. False if the view is nil.
bool isDescendant(const UIView* view, const UIView* ancestor);
// The nearest view that contains both views, which can be one of them. Null if they are in different trees.
UIView* commonAncestor(UIView* first, UIView* second);
// The window that contains the view; the view itself if it is a window. nil if there is no window.
UIWindow* windowOf(const UIView* view);
// Calls `visit` for the view and all its descendants, superviews first.
template <class Visitor>
void visitTree(UIView* view, const Visitor& visit) {
  visit(view);
  for (const objc::Ref<UIView>& subview : record(view).subviews) visitTree(subview.get(), visit);
}

// Inserts the child at this index, or moves it there if it is a subview already. Greater indexes count as the number of
// subviews. A nil child is ignored; a child that contains `parent` is an error, which is logged.
void insertSubview(UIView* parent, UIView* child, std::size_t index);
void removeFromSuperview(UIView* view);

}  // namespace uikit
