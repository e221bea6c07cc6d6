// The data that the toolkit stores for a view, except for the instance variables that the runtime lists. Main thread
// only.
#pragma once

#include <memory>
#include <vector>

#include "platform/ui_view_controller.hpp"
#include "platform/ui_window.hpp"
#include "simulator/uikit/layout/layout_engine.hpp"
#include "simulator/uikit/views/layer.hpp"
#include "simulator/uikit/views/view.hpp"

enum class UISemanticContentAttribute : NSInteger {
  Unspecified,
  Playback,
  Spatial,
  ForceLeftToRight,
  ForceRightToLeft,
};

namespace uikit {

enum class UserInteraction : bool { Disabled, Enabled };

// Returns a number that this function has not returned before.
std::uint64_t nextContentVersion();

class ViewRecord {
 public:
  explicit ViewRecord(UIView* owner);
  ~ViewRecord();
  ViewRecord(const ViewRecord&) = delete;
  ViewRecord& operator=(const ViewRecord&) = delete;

  UIView* const view;
  const objc::Ref<CALayer> layerObject;
  LayerRecord& layer;
  objc::Ref<UIColor> backgroundColor;

  UIView* superview = nullptr;                 // borrowed; the superview retains this view
  std::vector<objc::Ref<UIView>> subviews;     // from back to front
  UIViewController* viewController = nullptr;  // borrowed; the controller retains this view

  NSUInteger autoresizingMask = 0;
  UIViewContentMode contentMode = UIViewContentMode::ScaleToFill;
  NSInteger tag = 0;
  std::uint64_t contentVersion = nextContentVersion();  // unique among all contents of all views
  UISemanticContentAttribute semanticContent = UISemanticContentAttribute::Unspecified;
  UserInteraction userInteraction = UserInteraction::Enabled;

  bool translatesAutoresizingMask = true;
  bool needsLayout = true;
  bool treeNeedsLayout = true;                             // false if neither the view nor a descendant needs layout
  bool hasContentMode = false;                             // whether -setContentMode: was called
  std::vector<objc::Ref<NSLayoutConstraint>> constraints;  // the constraints whose nearest common ancestor is this view
  IntrinsicSize intrinsicSize;
  // Solves the constraints inside this view. Null if an ancestor's engine solves them.
  std::unique_ptr<LayoutEngine> engine;
  bool constraintsChanged = true;  // used only if this view is the root of a tree
};

inline ViewRecord& record(const UIView* view) { return *objc::state(view).record; }

}  // namespace uikit
