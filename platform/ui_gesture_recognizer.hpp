// UIGestureRecognizer and the two kinds that a banner uses.
#pragma once

#include "platform/core_graphics.hpp"
#include "platform/ns_object.hpp"

class UIView;

enum class UIGestureRecognizerState : NSInteger { Possible, Began, Changed, Ended, Cancelled, Failed };

// The target is not kept.
class UIGestureRecognizer : public objc::Interface<"UIGestureRecognizer", NSObject> {
 public:
  UIGestureRecognizerState state() const { return objc::send<UIGestureRecognizerState, "state">(this); }
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
  // How far the finger has come, in points of the view's coordinates.
  CGPoint translationInView(UIView* view) const { return objc::send<CGPoint, "translationInView:">(this, view); }
};
