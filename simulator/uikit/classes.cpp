#include "simulator/uikit/classes.hpp"

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
}

}  // namespace uikit
