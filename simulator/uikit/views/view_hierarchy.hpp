// The tree of views: who is inside whom.
#pragma once

#include "simulator/uikit/views/view_record.hpp"

namespace uikit {

// The topmost view above this one, or itself.
UIView* rootOf(const UIView* view);
bool isDescendant(const UIView* view, const UIView* ancestor);
// Null where they are in different trees.
UIView* commonAncestor(UIView* first, UIView* second);
// Its window, itself for a window; nil outside of one.
UIWindow* windowOf(const UIView* view);
// Calls for the view and everything inside it, parents first.
template <class Visitor>
void visitTree(UIView* view, const Visitor& visit) {
  visit(view);
  for (const objc::Ref<UIView>& subview : record(view).subviews) visitTree(subview.get(), visit);
}

// Places the child at that index (at most the count), from wherever it is.
void insertSubview(UIView* parent, UIView* child, std::size_t index);
void removeFromSuperview(UIView* view);

}  // namespace uikit
