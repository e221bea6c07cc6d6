// One finger from down to up: the view it is on, the recognizers that watch it, and which of them wins.
#pragma once

#include <vector>

#include "simulator/uikit/touch/touch.hpp"

namespace uikit {

class TouchSequence {
 public:
  // Goes down at a point of the screen.
  TouchSequence(CGPoint point, double timestamp);
  ~TouchSequence();
  TouchSequence(const TouchSequence&) = delete;
  TouchSequence& operator=(const TouchSequence&) = delete;

  void begin();
  void advance(UITouchPhase phase, CGPoint point, double timestamp);

  // Whether the recognizer is part of it and nothing has won yet; it wins then, and the others fail.
  bool grant(UIGestureRecognizer* recognizer);

  // The one under way; null without.
  static TouchSequence* current();

 private:
  void collectRecognizers();
  void tellRecognizers();
  void tellView(UITouchPhase phase);
  void settleRecognizers();

  objc::Ref<UITouch> touch_;
  objc::Ref<UIEvent> event_;
  objc::Ref<UIView> view_;
  std::vector<objc::Ref<UIGestureRecognizer>> recognizers_;
  UIGestureRecognizer* winner_ = nullptr;
  bool viewIsTold_ = true;  // until a recognizer takes the touch from it
};

}  // namespace uikit
