// What the toolkit keeps about a view, beside the instance variables that the runtime knows.
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

  UIView* superview = nullptr;                 // borrowed: it holds this view
  std::vector<objc::Ref<UIView>> subviews;     // back to front
  UIViewController* viewController = nullptr;  // borrowed: the controller whose view this is

  NSUInteger autoresizingMask = 0;
  UIViewContentMode contentMode = UIViewContentMode::ScaleToFill;
  NSInteger tag = 0;
  std::uint64_t contentVersion = nextContentVersion();  // another one for each content that any view has had
  UISemanticContentAttribute semanticContent = UISemanticContentAttribute::Unspecified;
  UserInteraction userInteraction = UserInteraction::Enabled;

  // Layout.
  bool translatesAutoresizingMask = true;
  bool needsLayout = true;
  bool treeNeedsLayout = true;                             // false where neither the view nor anything inside needs it
  bool hasContentMode = false;                             // it was chosen
  std::vector<objc::Ref<NSLayoutConstraint>> constraints;  // those whose nearest common ancestor this view is
  IntrinsicSize intrinsicSize;
  std::unique_ptr<LayoutEngine> engine;  // of the constraints inside, where no view above has any
  bool constraintsChanged = true;        // at the root of a tree
};

inline ViewRecord& record(const UIView* view) { return *objc::state(view).record; }

}  // namespace uikit
