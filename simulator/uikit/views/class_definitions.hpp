// Functions that define the platform's view classes, one per class. Call each once, superclasses first.
#pragma once

namespace uikit {

void defineColor();
void defineResponder();
void defineLayer();
void defineLayoutConstraint();
void defineLayoutAnchors();
void defineTraitCollection();
void defineDevice();
void defineScreen();
void defineGestureRecognizer();
void defineTouch();
void defineView();
void defineWindow();
void defineApplication();
void defineViewController();
void defineStackView();
void defineBlurEffect();
void defineVisualEffectView();

}  // namespace uikit
