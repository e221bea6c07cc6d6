// UIGestureRecognizer and its subclasses for taps and drags.
#pragma once

#include "platform/core_graphics.hpp"
#include "platform/ns_object.hpp"

class UIView;

enum class UIGestureRecognizerState : NSInteger { Possible, Began, Changed, Ended, Cancelled, Failed };

// The base class. A recognizer sends an action message to its target, which it does not retain.
class UIGestureRecognizer : public objc::Interface<"UIGestureRecognizer", NSObject> {
 public:
  UIGestureRecognizerState state() const { return objc::send<UIGestureRecognizerState, "state">(this); }
  // The view to which the recognizer is attached; nil if there is none.
  UIView* view() const { return objc::send<UIView*, "view">(this); }
};

class UITapGestureRecognizer : public objc::Interface<"UITapGestureRecognizer", UIGestureRecognizer> {
 public:
  static objc::Ref<UITapGestureRecognizer> withTarget(NSObject* target, SEL action) {
    return objc::adopt(objc::send<UITapGestureRecognizer*, "initWithTarget:action:">(
        objc::allocate<UITapGestureRecognizer>(), target, action));
  }
};

class UIPanGestureRecognizer : public objc::Interface<"UIPanGestureRecognizer", UIGestureRecognizer> {
 public:
  static objc::Ref<UIPanGestureRecognizer> withTarget(NSObject* target, SEL action) {
    return objc::adopt(objc::send<UIPanGestureRecognizer*, "initWithTarget:action:">(
        objc::allocate<UIPanGestureRecognizer>(), target, action));
  }
  // The distance that the touch has moved since it began, in points, in the coordinate system of the view.
  CGPoint translationInView(UIView* view) const { return objc::send<CGPoint, "translationInView:">(this, view); }
};
