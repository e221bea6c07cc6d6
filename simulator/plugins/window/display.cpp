#include "simulator/plugins/window/display.hpp"

#include <X11/Xlib.h>
#include <gdk/gdkwayland.h>
#include <gdk/gdkx.h>
#include <gtk/gtk.h>

#include <utility>

namespace window {

namespace {

std::function<void()>& errorObserver() {
  static std::function<void()> observer = [] {};
  return observer;
}

// The first function that Xlib calls after a connection failure. GTK's own handler would end the process.
int ignoreError(Display*) { return 0; }

// The second function that Xlib calls. From now on, the functions of Xlib fail.
void reportError(Display*, void*) { errorObserver()(); }

}  // namespace

bool connectToDisplay() {
  // The phone has its own language, and numbers in its files have the format of the C locale.
  gtk_disable_setlocale();
  // The window is painted without OpenGL, and AccessibilityBus connects to the accessibility bus when it is needed.
  // These settings save ten megabytes and several threads.
  g_setenv("GDK_GL", "disable", FALSE);
  g_setenv("NO_AT_BRIDGE", "1", FALSE);
  // Sets the class of the window on X11, and its application identifier on Wayland.
  g_set_prgname("brim");
  gdk_set_allowed_backends("wayland,x11");
  return gtk_init_check(nullptr, nullptr) != FALSE;
}

int displayDescriptor() {
  GdkDisplay* const display = gdk_display_get_default();
  if (GDK_IS_X11_DISPLAY(display)) return ConnectionNumber(gdk_x11_display_get_xdisplay(display));
  return wl_display_get_fd(gdk_wayland_display_get_wl_display(display));
}

void observeDisplayErrors(std::function<void()> observer) {
  errorObserver() = std::move(observer);
  GdkDisplay* const display = gdk_display_get_default();
  if (!GDK_IS_X11_DISPLAY(display)) return;
  XSetIOErrorHandler(&ignoreError);
  XSetIOErrorExitHandler(gdk_x11_display_get_xdisplay(display), &reportError, nullptr);
}

}  // namespace window
