// Makes the phone's screen usable without a pointer: with the keyboard, and by assistive technologies. Main thread.
#pragma once

#include <gtk/gtk.h>

#include <functional>
#include <map>
#include <optional>

#include "simulator/plugins/phone_display/focus_ring.hpp"
#include "simulator/plugins/window/accessibility_bus.hpp"
#include "simulator/plugins/window/element_object.hpp"

namespace window {

using phone_display::Elements;
using phone_display::FocusRing;

// Creates the widget that shows the phone. Its accessible children are the elements of the screen.
GtkWidget* makePhoneArea();

class ScreenAccess final : public ElementDelegate {
 public:
  // Handles the events of the area, which must be the result of makePhoneArea. Create this object before PointerInput
  // and KeyboardInput, so that it handles keys first: a key that activates the focused element must not type text.
  // `areaRectangle` converts a rectangle of the screen, in points, to coordinates of the area.
  ScreenAccess(GtkWidget* area, std::function<GdkRectangle(const CGRect&)> areaRectangle);
  ScreenAccess(const ScreenAccess&) = delete;
  ScreenAccess& operator=(const ScreenAccess&) = delete;
  ~ScreenAccess() override;

  // Call this after the screen has changed. Does nothing if there is neither a focus nor an assistive technology.
  void update();
  // Draws the focus ring. The units of the context are those of the area.
  void drawRing(cairo_t* context);

 private:
  // Moves the focus on Tab and the arrow keys, and goes back on Escape. Returns whether the key was handled.
  bool navigate(const GdkEventKey& event);
  // Activates the focused element on Return and the space bar. Returns whether the key was handled.
  bool activate(const GdkEventKey& event);
  // A click hides the ring and returns the focus of the window to the phone.
  void handleClick();
  void updateRing(const Elements& elements);
  void updateObjects(const Elements& elements);
  void removeObjects(const Elements& elements);
  void addObjects(const Elements& elements);
  AtkObject* objectOf(std::uint64_t element) const;
  ElementFocus focusOf(const uikit::AccessibleElement& element) const;

  void performAction(std::uint64_t element, std::size_t action) override;
  void setText(std::uint64_t element, const std::string& text) override;
  void focus(std::uint64_t element) override;
  GdkRectangle areaRectangle(const CGRect& points) override { return areaRectangle_(points); }
  AtkObject* area() override { return areaObject_; }

  // Both are retained, because the window can be destroyed before this object.
  GtkWidget* area_;
  AtkObject* areaObject_;
  std::function<GdkRectangle(const CGRect&)> areaRectangle_;
  FocusRing ring_;
  std::optional<CGRect> ringFrame_;  // in points of the screen
  std::map<std::uint64_t, AtkObject*> objects_;
  bool isAnnouncing_ = false;
  AccessibilityBus bus_;
};

}  // namespace window
