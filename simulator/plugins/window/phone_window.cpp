#include "simulator/plugins/window/phone_window.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <utility>

#include "simulator/drawing/cairo_handles.hpp"
#include "simulator/foundation/root.hpp"
#include "simulator/plugins/phone_display/phone_drawing.hpp"
#include "simulator/plugins/window/display.hpp"
#include "simulator/process/signals.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace window {

namespace {

// The maximum height of the window, as a fraction of the desktop's height.
constexpr double maxPartOfDesktop = 0.92;

// Returns the height of the desktop without its panels, or 0 if it is unknown.
int desktopHeight() {
  GdkDisplay* const display = gdk_display_get_default();
  GdkMonitor* monitor = gdk_display_get_primary_monitor(display);
  if (monitor == nullptr) monitor = gdk_display_get_monitor(display, 0);
  GdkRectangle workArea = {};
  if (monitor != nullptr) gdk_monitor_get_workarea(monitor, &workArea);
  return workArea.height;
}

void setIcons(GtkWindow* window) {
  GList* icons = nullptr;
  for (const int side : {32, 64, 128}) {
    const drawing::SurfaceHandle picture(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, side, side));
    const drawing::ContextHandle context(cairo_create(picture.get()));
    phone_display::drawIcon(context.get(), side);
    icons = g_list_append(icons, gdk_pixbuf_get_from_surface(picture.get(), 0, 0, side, side));
  }
  gtk_window_set_icon_list(window, icons);
  g_list_free_full(icons, &g_object_unref);
}

std::string windowTitle(const base::DeviceProfile& device) {
  return "Brim – " + phone_display::productName(device.name) + " – " + foundation::root().string();
}

}  // namespace

PhoneWindow::PhoneWindow()
    : device_(uikit::environment().device),
      window_(gtk_window_new(GTK_WINDOW_TOPLEVEL)),
      area_(makePhoneArea()),
      access_(area_, [this](const CGRect& points) { return areaRectangle(points); }),
      pointer_(area_, [this](double x, double y) { return screenPoint(x, y); }),
      keyboard_(area_, [this](const CGRect& points) { return areaRectangle(points); }),
      composer_(window_, area_, [this] { mainContext_.dispatch(); }),
      mainContext_(displayDescriptor(), [this] { end(runner::WindowState::DisplayLost); }),
      displayLink_([this] { present(); }) {
  observeDisplayErrors([this] { mainContext_.loseDisplay(); });
  gtk_window_set_title(GTK_WINDOW(window_), windowTitle(device_).c_str());
  setIcons(GTK_WINDOW(window_));
  // Makes the title bar dark, like the background.
  g_object_set(gtk_settings_get_default(), "gtk-application-prefer-dark-theme", TRUE, nullptr);
  gtk_widget_set_app_paintable(window_, TRUE);
  gtk_widget_set_app_paintable(area_, TRUE);
  connectSignals();
  setInitialSize();
  gtk_widget_grab_focus(area_);
  composer_.showIfWide();
  gtk_widget_show_all(window_);
  mainContext_.dispatch();
}

PhoneWindow::~PhoneWindow() {
  observeDisplayErrors([] {});
  if (state_ == runner::WindowState::DisplayLost) return;
  g_signal_handlers_disconnect_by_data(area_, this);
  g_signal_handlers_disconnect_by_data(window_, this);
  gtk_widget_destroy(window_);
}

void PhoneWindow::end(runner::WindowState state) {
  state_ = state;
  pointer_.cancel();
  process::requestTermination();
}

void PhoneWindow::connectSignals() {
  const auto drawArea = +[](GtkWidget*, cairo_t* context, PhoneWindow* self) -> gboolean {
    self->draw(context);
    return TRUE;
  };
  const auto layOutArea = +[](GtkWidget*, GdkRectangle*, PhoneWindow* self) { self->updateLayout(); };
  const auto changeScale = +[](GtkWidget*, GParamSpec*, PhoneWindow* self) { self->updateLayout(); };
  const auto close = +[](GtkWidget*, GdkEvent*, PhoneWindow* self) -> gboolean {
    self->end(runner::WindowState::Closed);
    return TRUE;
  };
  g_signal_connect(area_, "draw", G_CALLBACK(drawArea), this);
  g_signal_connect(area_, "size-allocate", G_CALLBACK(layOutArea), this);
  g_signal_connect(area_, "notify::scale-factor", G_CALLBACK(changeScale), this);
  g_signal_connect(window_, "delete-event", G_CALLBACK(close), this);
  // Another program can destroy the window.
  g_signal_connect(window_, "destroy-event", G_CALLBACK(close), this);
}

// Makes one point of the phone equal to one logical pixel of the desktop if the desktop is large enough.
void PhoneWindow::setInitialSize() {
  constexpr int minWidth = 160;
  const drawing::Size size = phone_display::windowSize(device_);
  const int height = desktopHeight();
  const double scale = height > 0 ? std::min(1.0, height * maxPartOfDesktop / size.height) : 1.0;
  gtk_window_set_default_size(GTK_WINDOW(window_), static_cast<int>(std::ceil(size.width * scale)),
                              static_cast<int>(std::ceil(size.height * scale)));
  gtk_widget_set_size_request(area_, minWidth, static_cast<int>(minWidth * size.height / size.width));
}

void PhoneWindow::updateLayout() {
  const int factor = pixelsPerUnit();
  const int width = gtk_widget_get_allocated_width(area_) * factor;
  const int height = gtk_widget_get_allocated_height(area_) * factor;
  if (layout_.width == width && layout_.height == height) return;
  layout_ = phone_display::layOut(device_, width, height);
  picture_.update(layout_.scale);
  gtk_widget_queue_draw(area_);
}

void PhoneWindow::draw(cairo_t* context) {
  if (picture_.canvas() == nullptr) return;
  const double unit = 1.0 / pixelsPerUnit();
  cairo_save(context);
  cairo_scale(context, unit, unit);
  GdkRectangle clip = {};
  const drawing::PixelRectangle& screen = layout_.screen;
  const GdkRectangle screenRectangle = {screen.x, screen.y, screen.width, screen.height};
  if (gdk_cairo_get_clip_rectangle(context, &clip) == FALSE) return cairo_restore(context);
  GdkRectangle visible = {};
  const bool isInsideScreen = gdk_rectangle_intersect(&clip, &screenRectangle, &visible) != FALSE &&
                              gdk_rectangle_equal(&visible, &clip) != FALSE;
  if (!isInsideScreen) {
    phone_display::drawBackground(context, layout_);
    phone_display::drawBody(context, device_, layout_);
  }
  phone_display::drawScreen(context, device_, layout_, picture_.canvas()->surface());
  cairo_restore(context);
  access_.drawRing(context);
}

void PhoneWindow::present() {
  if (picture_.canvas() == nullptr || state_ != runner::WindowState::Open) return;
  const drawing::RegionHandle damage = picture_.update(layout_.scale);
  if (cairo_region_is_empty(damage.get()) != 0) return;
  queueDraw(damage.get());
  access_.update();
  keyboard_.update();
  mainContext_.dispatch();
}

// GTK redraws a widget in whole logical pixels.
void PhoneWindow::queueDraw(const cairo_region_t* pixels) {
  const int factor = pixelsPerUnit();
  const drawing::RegionHandle units(cairo_region_create());
  for (int index = 0; index < cairo_region_num_rectangles(pixels); ++index) {
    cairo_rectangle_int_t part = {};
    cairo_region_get_rectangle(pixels, index, &part);
    const int left = (layout_.screen.x + part.x) / factor;
    const int top = (layout_.screen.y + part.y) / factor;
    const int right = (layout_.screen.x + part.x + part.width + factor - 1) / factor;
    const int bottom = (layout_.screen.y + part.y + part.height + factor - 1) / factor;
    drawing::addTo(units.get(), {left, top, right - left, bottom - top});
  }
  gtk_widget_queue_draw_region(area_, units.get());
}

CGPoint PhoneWindow::screenPoint(double x, double y) const {
  const int factor = pixelsPerUnit();
  return phone_display::screenPoint(layout_, x * factor, y * factor);
}

GdkRectangle PhoneWindow::areaRectangle(const CGRect& points) const {
  const double scale = layout_.scale / pixelsPerUnit();
  const double left = std::floor(layout_.screen.x / static_cast<double>(pixelsPerUnit()) + points.origin.x * scale);
  const double top = std::floor(layout_.screen.y / static_cast<double>(pixelsPerUnit()) + points.origin.y * scale);
  return {static_cast<int>(left), static_cast<int>(top), static_cast<int>(std::ceil(points.size.width * scale)),
          static_cast<int>(std::ceil(points.size.height * scale))};
}

}  // namespace window

runner::PhoneWindow* brim_open_window() {
  if (window::connectToDisplay()) return new window::PhoneWindow;
  std::fputs(
      "springboard: no display is available for the window; run this command in a graphical session, which sets "
      "DISPLAY or WAYLAND_DISPLAY, replace --window by --browser, or omit it and take pictures with the command "
      "screenshot\n",
      stderr);
  return nullptr;
}
