// UIView: a rectangle on the screen, with a layer, subviews, layout constraints and gesture recognizers. A view retains
// its subviews and recognizers, but not its superview.
#pragma once

#include "objc/block.hpp"
#include "platform/ca_layer.hpp"
#include "platform/ns_array.hpp"
#include "platform/ns_layout_constraint.hpp"
#include "platform/ui_color.hpp"
#include "platform/ui_gesture_recognizer.hpp"
#include "platform/ui_responder.hpp"

class UIWindow;

enum class UIViewContentMode : NSInteger { ScaleToFill, ScaleAspectFit, ScaleAspectFill, Redraw, Center, Top };

enum class UILayoutConstraintAxis : NSInteger { Horizontal, Vertical };

// The autoresizing mask for a flexible width and a flexible height.
inline constexpr NSUInteger UIViewAutoresizingFlexibleSize = 18;

class UIView : public objc::Interface<"UIView", UIResponder> {
 public:
  template <class Type>
  static objc::Ref<Type> withFrame(CGRect frame) {
    return objc::adopt(objc::send<Type*, "initWithFrame:">(objc::allocate<Type>(), frame));
  }

  CGRect frame() const { return objc::send<CGRect, "frame">(this); }
  void setFrame(CGRect frame) { objc::send<void, "setFrame:">(this, frame); }
  CGRect bounds() const { return objc::send<CGRect, "bounds">(this); }
  CALayer* layer() const { return objc::send<CALayer*, "layer">(this); }

  // Converts a rectangle from the coordinate system of another view, or of the window if `other` is nil.
  CGRect convertRect(CGRect rect, UIView* other) const {
    return objc::send<CGRect, "convertRect:fromView:">(this, rect, other);
  }

  UIView* superview() const { return objc::send<UIView*, "superview">(this); }
  NSArray* subviews() const { return objc::send<NSArray*, "subviews">(this); }
  UIWindow* window() const { return objc::send<UIWindow*, "window">(this); }
  void addSubview(UIView* child) { objc::send<void, "addSubview:">(this, child); }
  void removeFromSuperview() { objc::send<void, "removeFromSuperview">(this); }
  void bringSubviewToFront(UIView* child) { objc::send<void, "bringSubviewToFront:">(this, child); }
  void sendSubviewToBack(UIView* child) { objc::send<void, "sendSubviewToBack:">(this, child); }

  void setBackgroundColor(UIColor* color) { objc::send<void, "setBackgroundColor:">(this, color); }
  UIColor* backgroundColor() const { return objc::send<UIColor*, "backgroundColor">(this); }
  void setAlpha(CGFloat alpha) { objc::send<void, "setAlpha:">(this, alpha); }
  CGFloat alpha() const { return objc::send<CGFloat, "alpha">(this); }
  void setHidden(bool hidden) { objc::send<void, "setHidden:">(this, hidden); }
  bool isHidden() const { return objc::send<bool, "isHidden">(this); }
  void setClipsToBounds(bool clips) { objc::send<void, "setClipsToBounds:">(this, clips); }
  void setContentMode(UIViewContentMode mode) { objc::send<void, "setContentMode:">(this, mode); }
  void setUserInteractionEnabled(bool enabled) { objc::send<void, "setUserInteractionEnabled:">(this, enabled); }

  void setAutoresizingMask(NSUInteger mask) { objc::send<void, "setAutoresizingMask:">(this, mask); }
  void setTranslatesAutoresizingMaskIntoConstraints(bool translates) {
    objc::send<void, "setTranslatesAutoresizingMaskIntoConstraints:">(this, translates);
  }
  // The priority with which the view resists becoming smaller than its intrinsic size.
  void setCompressionResistance(float priority, UILayoutConstraintAxis axis) {
    objc::send<void, "setContentCompressionResistancePriority:forAxis:">(this, priority, axis);
  }
  void layoutIfNeeded() { objc::send<void, "layoutIfNeeded">(this); }
  UIEdgeInsets safeAreaInsets() const { return objc::send<UIEdgeInsets, "safeAreaInsets">(this); }
  NSLayoutXAxisAnchor* leadingAnchor() const { return objc::send<NSLayoutXAxisAnchor*, "leadingAnchor">(this); }
  NSLayoutXAxisAnchor* trailingAnchor() const { return objc::send<NSLayoutXAxisAnchor*, "trailingAnchor">(this); }
  NSLayoutXAxisAnchor* centerXAnchor() const { return objc::send<NSLayoutXAxisAnchor*, "centerXAnchor">(this); }
  NSLayoutYAxisAnchor* topAnchor() const { return objc::send<NSLayoutYAxisAnchor*, "topAnchor">(this); }
  NSLayoutYAxisAnchor* bottomAnchor() const { return objc::send<NSLayoutYAxisAnchor*, "bottomAnchor">(this); }
  NSLayoutYAxisAnchor* centerYAnchor() const { return objc::send<NSLayoutYAxisAnchor*, "centerYAnchor">(this); }
  NSLayoutDimension* widthAnchor() const { return objc::send<NSLayoutDimension*, "widthAnchor">(this); }
  NSLayoutDimension* heightAnchor() const { return objc::send<NSLayoutDimension*, "heightAnchor">(this); }

  void addGestureRecognizer(UIGestureRecognizer* recognizer) {
    objc::send<void, "addGestureRecognizer:">(this, recognizer);
  }
  void removeGestureRecognizer(UIGestureRecognizer* recognizer) {
    objc::send<void, "removeGestureRecognizer:">(this, recognizer);
  }
  NSArray* gestureRecognizers() const { return objc::send<NSArray*, "gestureRecognizers">(this); }

  // Animates the changes that the block `animations` makes. The duration is in seconds. The argument of the completion
  // block is true if the animation was not interrupted.
  static void animate(double duration, objc::Block<void()>* animations, objc::Block<void(bool)>* completion) {
    objc::send<void, "animateWithDuration:animations:completion:">(classObject(), duration, animations, completion);
  }
  static void animate(double duration, objc::Block<void()>* animations) {
    objc::send<void, "animateWithDuration:animations:">(classObject(), duration, animations);
  }
};
