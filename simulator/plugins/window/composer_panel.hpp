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

  // Shows the composer if the desktop is wide. Call this after the size of the window is set.
  void showIfWide();

 private:
  bool isVisible() const;
  // Changes the width of the window by that of the composer, so the phone keeps its size.
  void toggle();
  bool handleKey(const GdkEventKey& event);

  GtkWidget* window_;
  GtkWidget* area_;
  GtkWidget* row_;
  std::function<void()> whenChanged_;
  std::unique_ptr<Composer> composer_;  // null until it is first shown
};

}  // namespace window
