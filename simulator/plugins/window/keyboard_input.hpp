// Delivers the keys of the physical keyboard to the first responder of the phone, through the user's input method. The
// unfinished text of the input method is the marked text of the first responder. Main thread.
#pragma once

#include <gtk/gtk.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/core_graphics.hpp"

namespace window {

class KeyboardInput {
 public:
  // Handles the key events of the window, which must outlive this object. `windowRectangle` converts points of the
  // phone's screen to coordinates of the window.
  KeyboardInput(GtkWidget* window, std::function<GdkRectangle(const CGRect& points)> windowRectangle);
  KeyboardInput(const KeyboardInput&) = delete;
  KeyboardInput& operator=(const KeyboardInput&) = delete;
  ~KeyboardInput();

  // Reports changes of the phone's text field to the input method. Call this when the screen has changed.
  void update();

 private:
  bool handleKey(GdkEventKey& event);
  void commit(const char* text);
  void scheduleMarkedText();
  void showMarkedText();
  void reportCaret();
  bool reportSurroundingText();

  GtkIMContext* inputMethod_;
  std::function<GdkRectangle(const CGRect& points)> windowRectangle_;
  // The unfinished text that the phone shows.
  std::string markedText_;
  int markedCaret_ = 0;
  GdkRectangle caret_ = {};
  bool isResetting_ = false;
  // The number of changes of the unfinished text. The phone shows only the latest change. Work on the main queue that
  // outlives this object detects that the number no longer exists.
  std::shared_ptr<unsigned> changes_ = std::make_shared<unsigned>(0);
};

}  // namespace window
