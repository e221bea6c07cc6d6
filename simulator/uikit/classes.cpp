#include "simulator/uikit/classes.hpp"

#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/keyboard.hpp"
#include "simulator/uikit/window.hpp"

namespace uikit {

void registerClasses() {
  defineColor();
  defineFont();
  defineImage();
  defineTraitCollection();
  defineLayer();
  defineLayoutConstraint();
  defineLayoutAnchors();
  defineGestureRecognizer();
  defineTouch();
  defineDevice();
  defineScreen();
  defineBlurEffect();
  defineResponder();
  defineView();
  defineWindow();
  defineApplication();
  defineViewController();
  defineImageView();
  defineLabel();
  defineControl();
  defineButton();
  defineTextField();
  defineStackView();
  defineVisualEffectView();
  defineKeyboard();
  // What a turn has changed is laid out at its end, outside of any animation.
  foundation::observeEndOfTurn([] {
    followFirstResponder();
    layoutWindows();
  });
}

}  // namespace uikit
