// The window that shows the phone. Main thread.
#pragma once

#include <gtk/gtk.h>

#include <string>

#include "simulator/plugins/phone_display/main_context.hpp"
#include "simulator/plugins/phone_display/window_layout.hpp"
#include "simulator/plugins/window/composer_panel.hpp"
#include "simulator/plugins/window/keyboard_input.hpp"
#include "simulator/plugins/window/pointer_input.hpp"
#include "simulator/plugins/window/screen_access.hpp"
#include "simulator/runner/window_plugin.hpp"
#include "simulator/uikit/rendering/display_link.hpp"
#include "simulator/uikit/rendering/renderer.hpp"

namespace window {

class PhoneWindow final : public runner::PhoneWindow {
 public:
  // Opens the window. GTK must be connected to a display.
  PhoneWindow();
  PhoneWindow(const PhoneWindow&) = delete;
  PhoneWindow& operator=(const PhoneWindow&) = delete;
  ~PhoneWindow() override;

  runner::WindowState state() const override { return state_; }
  std::string address() const override { return ""; }

 private:
  void end(runner::WindowState state);
  void connectSignals();
  void setInitialSize();
  void updateLayout();
  void draw(cairo_t* context);
  // Redraws the pixels that have changed.
  void present();
  void queueDraw(const cairo_region_t* pixels);
  CGPoint screenPoint(double x, double y) const;
  // Returns the rectangle of the area that shows a rectangle of the screen, which is in points.
  GdkRectangle areaRectangle(const CGRect& points) const;
  int pixelsPerUnit() const { return gtk_widget_get_scale_factor(area_); }

  const base::DeviceProfile& device_;
  GtkWidget* window_;
  // The part of the window inside its decorations.
  GtkWidget* area_;
  phone_display::WindowLayout layout_;
  uikit::ScreenPicture picture_;
  runner::WindowState state_ = runner::WindowState::Open;
  ScreenAccess access_;
  PointerInput pointer_;
  KeyboardInput keyboard_;
  ComposerPanel composer_;
  phone_display::MainContext mainContext_;
  uikit::DisplayLink displayLink_;
};

}  // namespace window
