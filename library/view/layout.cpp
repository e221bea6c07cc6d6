#include "library/view/layout.hpp"

#include "library/view/blur.hpp"
#include "library/view/brim_container_state.hpp"
#include "library/view/button_row.hpp"
#include "library/view/construction.hpp"
#include "library/view/grabber.hpp"
#include "library/view/height_and_position.hpp"
#include "library/view/icon_and_badge.hpp"
#include "library/view/privacy.hpp"
#include "library/view/reply_field.hpp"
#include "library/view/status_line.hpp"
#include "library/view/texts.hpp"

namespace {

void placeBanner(BrimContainer* self, BrimContainerState& state) {
  UIView* superview = self->superview();
  self->setTranslatesAutoresizingMaskIntoConstraints(false);
  self->setContentMode(UIViewContentMode::Top);
  self->leadingAnchor()->equalTo(superview->leadingAnchor())->activated();
  self->trailingAnchor()->equalTo(superview->trailingAnchor())->activated();
  state.top = objc::retain(self->topAnchor()->equalTo(superview->topAnchor()));
  self->updateTop(self->defaultOffset());
  self->layer()->setBackgroundColor(state.colorSet->containerBackgroundColor()->CGColor());
  roundCorners(self, points(state.containerCornerRadius));
  self->setUserInteractionEnabled(true);
  state.showingReply = false;
}

}  // namespace

// The order of the calls matters, because later parts are placed relative to earlier parts.
void layOut(BrimContainer* self) {
  BrimContainerState& state = objc::state(self);
  if (state.enablePrivacy) replaceTextsWithPlaceholder(state);
  state.barTop = statusLineTop(state);
  addKeyboardBackdrop(self, state);
  placeBanner(self, state);
  addBackgroundBlur(self, state);
  layOutStatusLine(self, state);
  layOutIcon(self, state);
  layOutTexts(self, state);
  addHeightConstraints(self, state);
  if (state.enableGrabber) layOutGrabber(self, state);
  if (state.enableButtons) layOutButtonRow(self, state);
  layOutReplyField(self, state);
}
