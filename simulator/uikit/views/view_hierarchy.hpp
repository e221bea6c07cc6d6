// The hierarchy of views: superviews and subviews. Views must not be nil unless stated otherwise. Main thread only.
#pragma once

#include "simulator/uikit/views/view_record.hpp"

namespace uikit {

// Returns the root of the view's tree. This is the view itself if it has no superview.
UIView* rootOf(const UIView* view);
// Returns whether `view` is `ancestor` or inside it. Returns false if the view is nil.
bool isDescendant(const UIView* view, const UIView* ancestor);
// Returns the nearest view that contains both views. It can be one of the two views. Returns null if the views are in
// different trees.
UIView* commonAncestor(UIView* first, UIView* second);
// Returns the window that contains the view, or the view itself if it is a window. Returns nil if there is no window.
UIWindow* windowOf(const UIView* view);
// Calls `visit` for the view and all its descendants, superviews first.
template <class Visitor>
void visitTree(UIView* view, const Visitor& visit) {
  visit(view);
  for (const objc::Ref<UIView>& subview : record(view).subviews) visitTree(subview.get(), visit);
}

// Inserts the child at this index, or moves it to this index if it is a subview already. An index beyond the number of
// subviews counts as that number. Ignores a nil child. Logs an error if the child contains `parent`.
void insertSubview(UIView* parent, UIView* child, std::size_t index);
void removeFromSuperview(UIView* view);

}  // namespace uikit
