#include "simulator/plugins/window/composer_panel.hpp"

#include <utility>

namespace window {

namespace {

// The minimum width of a desktop, in logical pixels, for the composer to be visible at the start.
constexpr int wideDesktop = 1800;
constexpr int buttonMargin = 2;

// Returns the width of the desktop without its panels, or 0 if it is unknown.
int desktopWidth() {
  GdkDisplay* const display = gdk_display_get_default();
  GdkMonitor* monitor = gdk_display_get_primary_monitor(display);
  if (monitor == nullptr) monitor = gdk_display_get_monitor(display, 0);
  GdkRectangle workArea = {};
  if (monitor != nullptr) gdk_monitor_get_workarea(monitor, &workArea);
  return workArea.width;
}

// The button cannot receive the keyboard focus, because keys operate the phone.
GtkWidget* makeButton() {
  GtkWidget* const button = gtk_button_new_with_label("+");
  gtk_button_set_relief(GTK_BUTTON(button), GTK_RELIEF_NONE);
  gtk_widget_set_can_focus(button, FALSE);
  gtk_widget_set_halign(button, GTK_ALIGN_END);
  gtk_widget_set_valign(button, GTK_ALIGN_START);
  gtk_widget_set_margin_end(button, buttonMargin);
  gtk_widget_set_margin_top(button, buttonMargin);
  gtk_widget_set_tooltip_text(button, "Compose a notification (F9)");
  atk_object_set_name(gtk_widget_get_accessible(button), "Compose a notification");
  return button;
}

}  // namespace

ComposerPanel::ComposerPanel(GtkWidget* window, GtkWidget* area, std::function<void()> whenChanged)
    : window_(window),
      area_(area),
      row_(gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 0)),
      whenChanged_(std::move(whenChanged)) {
  GtkWidget* const overlay = gtk_overlay_new();
  GtkWidget* const button = makeButton();
  gtk_container_add(GTK_CONTAINER(overlay), area);
  gtk_overlay_add_overlay(GTK_OVERLAY(overlay), button);
  gtk_box_pack_start(GTK_BOX(row_), overlay, TRUE, TRUE, 0);
  gtk_container_add(GTK_CONTAINER(window), row_);
  const auto clicked = +[](GtkWidget*, ComposerPanel* self) { self->toggle(); };
  const auto key = +[](GtkWidget*, GdkEventKey* event, ComposerPanel* self) -> gboolean {
    return self->handleKey(*event) ? TRUE : FALSE;
  };
  g_signal_connect(button, "clicked", G_CALLBACK(clicked), this);
  g_signal_connect(window, "key-press-event", G_CALLBACK(key), this);
}

void ComposerPanel::showIfWide() {
  if (desktopWidth() >= wideDesktop) toggle();
}

bool ComposerPanel::isVisible() const {
  return composer_ != nullptr && gtk_widget_get_visible(composer_->panel()) != FALSE;
}

void ComposerPanel::toggle() {
  if (composer_ == nullptr) {
    composer_ = std::make_unique<Composer>(whenChanged_);
    gtk_box_pack_end(GTK_BOX(row_), composer_->panel(), FALSE, FALSE, 0);
  }
  GtkWidget* const panel = composer_->panel();
  const bool wasVisible = isVisible();
  if (wasVisible) {
    gtk_widget_grab_focus(area_);
    gtk_widget_hide(panel);
  } else {
    gtk_widget_show_all(panel);
  }
  int panelWidth = 0;
  gtk_widget_get_preferred_width(panel, nullptr, &panelWidth);
  int width = 0;
  int height = 0;
  gtk_window_get_size(GTK_WINDOW(window_), &width, &height);
  gtk_window_resize(GTK_WINDOW(window_), wasVisible ? width - panelWidth : width + panelWidth, height);
}

bool ComposerPanel::handleKey(const GdkEventKey& event) {
  if (event.keyval == GDK_KEY_F9) {
    toggle();
    if (isVisible()) gtk_widget_grab_focus(composer_->firstControl());
    return true;
  }
  // Escape returns from the composer to the phone.
  if (event.keyval != GDK_KEY_Escape || gtk_window_get_focus(GTK_WINDOW(window_)) == area_) return false;
  gtk_widget_grab_focus(area_);
  return true;
}

}  // namespace window
