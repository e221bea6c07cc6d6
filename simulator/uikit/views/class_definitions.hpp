// Functions that define the view classes of the platform. Call each function once, and the function of a superclass
// before those of its subclasses. Main thread only.
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
// Adds the accessors of rectangles to NSValue.
void extendValues();
void defineWindow();
void defineApplication();
void defineViewController();
void defineStackView();
void defineBlurEffect();
void defineVisualEffectView();

}  // namespace uikit
