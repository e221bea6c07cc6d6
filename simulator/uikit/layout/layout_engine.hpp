// Solves the layout constraints between the descendants of a view whose frame is given. Lengths are in points. Main
// thread only.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "platform/ui_view.hpp"

namespace uikit {

// The cached intrinsic sizes of a view. They are queried again after they have been invalidated. A length of -1 means
// no intrinsic length.
struct IntrinsicSize {
  CGSize natural{-1, -1};     // the size if the width is not limited
  double height = -1;         // the height at measuredWidth
  double measuredWidth = -1;  // the width at the last layout; -1 before the first layout
  // The priorities with which the view resists a size below its intrinsic size.
  float widthResistance = 750;
  float heightResistance = 750;
  bool isValid = false;
  bool isBeingMeasured = false;
};

class LayoutEngine {
 public:
  explicit LayoutEngine(UIView* root);
  ~LayoutEngine();
  LayoutEngine(const LayoutEngine&) = delete;
  LayoutEngine& operator=(const LayoutEngine&) = delete;

  // Marks the solution as stale. Call this when a value that affects the constraints has changed.
  void invalidate() { isStale_ = true; }
  bool isStale() const { return isStale_; }
  // Solves the current constraints of the tree.
  void update();
  // Returns whether constraints determine the frame of the view.
  bool determinesFrameOf(const UIView* view) const;
  // Returns the solved frame in the superview's coordinates. Requires that determinesFrameOf(view) is true.
  CGRect frameOf(const UIView* view) const;
  // Returns the views whose current frame differs from the solved frame.
  std::vector<UIView*> misplacedViews() const;

  // The total cost of all updates.
  struct Work {
    std::size_t constraints = 0;  // the number of constraints read from the tree
    std::size_t pivots = 0;       // the number of pivot operations of the solver
  };
  Work work() const;

 private:
  struct Model;

  bool isStale_ = true;
  std::size_t constraintsRead_ = 0;
  std::unique_ptr<Model> model_;
};

}  // namespace uikit
