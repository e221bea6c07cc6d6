// Arranges the phone and the composer in the window, and shows or hides the composer. Main thread.
#pragma once

#include <gtk/gtk.h>

#include <functional>
#include <memory>

#include "simulator/plugins/window/composer.hpp"

namespace window {

class ComposerPanel {
 public:
  // Adds the area of the phone to the window, with a button that shows or hides the composer. The key F9 does the same.
  // Calls `whenChanged` after a change of the composer outside of GTK's callbacks.
  ComposerPanel(GtkWidget* window, GtkWidget* area, std::function<void()> whenChanged);
  ComposerPanel(const ComposerPanel&) = delete;
  ComposerPanel& operator=(const ComposerPanel&) = delete;

  // Shows the composer if the desktop is wide enough. Call this after setting the size of the window.
  void showIfWide();

 private:
  bool isVisible() const;
  // Shows or hides the composer. The window becomes wider or narrower, so the phone keeps its size.
  void toggle();
  bool handleKey(const GdkEventKey& event);

  GtkWidget* window_;
  GtkWidget* area_;
  GtkWidget* row_;
  std::function<void()> whenChanged_;
  std::unique_ptr<Composer> composer_;  // null until it is first shown
};

}  // namespace window
