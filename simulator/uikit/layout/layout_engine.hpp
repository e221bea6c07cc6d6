// Solves the constraints inside a view whose frame is given.
#pragma once

#include <cstddef>
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

  // To be told when something that the constraints depend on has changed.
  void invalidate() { isStale_ = true; }
  bool isStale() const { return isStale_; }
  // Brings the solution up to date with the tree.
  void update();
  // Whether constraints place the view.
  bool places(const UIView* view) const;
  // As solved, in the superview's coordinates; of a view that it places.
  CGRect frameOf(const UIView* view) const;
  // The views that are not where the solution puts them.
  std::vector<UIView*> misplacedViews() const;

  // What all updates together have cost.
  struct Work {
    std::size_t constraints = 0;  // read from the tree
    std::size_t pivots = 0;       // of the solver
  };
  Work work() const;

 private:
  struct Model;

  bool isStale_ = true;
  std::size_t constraintsRead_ = 0;
  std::unique_ptr<Model> model_;
};

}  // namespace uikit
