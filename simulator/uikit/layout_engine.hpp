// Solves the constraints of one tree of views.
#pragma once

#include <memory>
#include <vector>

#include "platform/ui_view.hpp"

namespace uikit {

// A view's intrinsic sizes as last asked for; asked again after they were invalidated.
struct IntrinsicSize {
  CGSize natural{-1, -1};     // without a limit of width
  double height = -1;         // at the width of the last layout
  double measuredWidth = -1;  // that width
  bool isValid = false;
  bool isBeingMeasured = false;
};

class LayoutEngine {
 public:
  explicit LayoutEngine(UIView* root);
  ~LayoutEngine();
  LayoutEngine(const LayoutEngine&) = delete;
  LayoutEngine& operator=(const LayoutEngine&) = delete;

  // Brings the solution up to date with the tree.
  void update();
  // Whether constraints place the view.
  bool places(const UIView* view) const;
  // As solved, in the superview's coordinates; of a view that it places.
  CGRect frameOf(const UIView* view) const;
  // The views that are not where the solution puts them.
  std::vector<UIView*> misplacedViews() const;

 private:
  struct Model;

  std::unique_ptr<Model> model_;
};

}  // namespace uikit
