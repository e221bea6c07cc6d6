#include "library/view/grabber.hpp"

#include "library/view/construction.hpp"

namespace {

// In points.
constexpr CGFloat width = 36;
constexpr CGFloat height = 5.33;
constexpr CGFloat cornerRadius = 2.665;
constexpr CGFloat distanceFromBottom = 6;

}  // namespace

void layOutGrabber(BrimContainer* self, BrimContainerState& state) {
  state.grabber = makeConstrained<UIView>();
  state.grabber->setBackgroundColor(state.colorSet->containerGrabberColor());
  roundCorners(state.grabber, cornerRadius);
  self->addSubview(state.grabber);
  state.grabber->centerXAnchor()->equalTo(self->centerXAnchor())->activated();
  setSize(state.grabber, width, height);
  state.grabber->bottomAnchor()->equalTo(self->bottomAnchor(), -distanceFromBottom)->activated();
}
