// The view toolkit's classes, defined one by one in the order of their superclasses.
#pragma once

namespace uikit {

// All of them, once, at the start of the process, after Foundation's.
void registerClasses();

void defineColor();
void defineFont();
void defineImage();
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
void defineImageView();
void defineLabel();
void defineControl();
void defineButton();
void defineTextField();
void defineKeyboard();
void defineKeyboardKey();
void defineStackView();
void defineBlurEffect();
void defineVisualEffectView();

}  // namespace uikit
