// The touches of one finger from Began to Ended or Cancelled. A sequence contains the touched view, the recognizers
// that receive the touches, and the recognizer that has claimed them. Main thread only.
#pragma once

#include <vector>

#include "simulator/uikit/touch/touch.hpp"

namespace uikit {

class TouchSequence {
 public:
  // Starts a sequence at a point in screen coordinates. The timestamp is in seconds.
  TouchSequence(CGPoint point, double timestamp);
  ~TouchSequence();
  TouchSequence(const TouchSequence&) = delete;
  TouchSequence& operator=(const TouchSequence&) = delete;

  void begin();
  void advance(UITouchPhase phase, CGPoint point, double timestamp);

  // Lets the recognizer begin and makes the other recognizers fail. Returns false if the recognizer is not part of this
  // sequence, if another recognizer has begun, or if the view does not allow it to begin.
  bool claim(UIGestureRecognizer* recognizer);

  // Returns the sequence that is in progress, or null if there is none.
  static TouchSequence* current();

 private:
  void collectRecognizers();
  void sendToRecognizers();
  void sendToView(UITouchPhase phase);
  void resetRecognizers();

  objc::Ref<UITouch> touch_;
  objc::Ref<UIEvent> event_;
  objc::Ref<UIView> view_;
  std::vector<objc::Ref<UIGestureRecognizer>> recognizers_;
  UIGestureRecognizer* winner_ = nullptr;
  bool viewReceivesTouches_ = true;  // false after a recognizer has canceled the touches in the view
};

}  // namespace uikit
