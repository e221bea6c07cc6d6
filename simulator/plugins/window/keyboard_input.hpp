// Delivers the keys of the physical keyboard to the first responder of the phone, through the user's input method. The
// input method displays unfinished text itself, because the phone's text fields do not support marked text. Main
// thread.
#pragma once

#include <gtk/gtk.h>

namespace window {

class KeyboardInput {
 public:
  // Handles the key events of the window, which must exist as long as this object.
  explicit KeyboardInput(GtkWidget* window);
  KeyboardInput(const KeyboardInput&) = delete;
  KeyboardInput& operator=(const KeyboardInput&) = delete;
  ~KeyboardInput();

 private:
  bool handleKey(GdkEventKey& event);

  GtkIMContext* inputMethod_;
};

}  // namespace window
