#include "simulator/uikit/classes.hpp"

#include "simulator/foundation/main_queue.hpp"
#include "simulator/uikit/accessibility/accessible_properties.hpp"
#include "simulator/uikit/controls/control.hpp"
#include "simulator/uikit/controls/scroll_view.hpp"
#include "simulator/uikit/controls/slider.hpp"
#include "simulator/uikit/controls/switch.hpp"
#include "simulator/uikit/controls/text_field.hpp"
#include "simulator/uikit/controls/thumb.hpp"
#include "simulator/uikit/images/image_class.hpp"
#include "simulator/uikit/keyboard/keyboard.hpp"
#include "simulator/uikit/keyboard/keyboard_key.hpp"
#include "simulator/uikit/rendering/animation_frames.hpp"
#include "simulator/uikit/rendering/display_link.hpp"
#include "simulator/uikit/text/font_class.hpp"
#include "simulator/uikit/text/label.hpp"
#include "simulator/uikit/views/class_definitions.hpp"
#include "simulator/uikit/views/window.hpp"

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
  extendValues();
  defineWindow();
  defineApplication();
  defineViewController();
  defineImageView();
  defineLabel();
  defineControl();
  defineButton();
  defineTextField();
  defineThumb();
  defineSwitch();
  defineSlider();
  defineScrollView();
  defineStackView();
  defineVisualEffectView();
  defineKeyboard();
  defineAccessibility();
  // Lays out the views that changed during a run-loop iteration. The layout happens at the end of the iteration,
  // outside of any animation block. The finished layout is then presented.
  foundation::addIterationObserver([] {
    updateKeyboard();
    layoutWindows();
    scheduleAnimationFrames();
    presentDisplayChanges();
  });
}

}  // namespace uikit
