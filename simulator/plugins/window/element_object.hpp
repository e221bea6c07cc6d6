// The AtkObjects that represent the elements of the phone's screen on the accessibility bus. Main thread.
#pragma once

#include <gtk/gtk.h>

#include <vector>

#include "simulator/uikit/accessibility/accessible_element.hpp"

namespace window {

// The receiver of the requests that assistive technologies send to elements. The functions are called in callbacks of
// GLib.
class ElementDelegate {
 public:
  ElementDelegate() = default;
  ElementDelegate(const ElementDelegate&) = delete;
  ElementDelegate& operator=(const ElementDelegate&) = delete;
  virtual ~ElementDelegate() = default;

  virtual void performAction(std::uint64_t element, std::size_t action) = 0;
  virtual void setText(std::uint64_t element, const std::string& text) = 0;
  virtual void focus(std::uint64_t element) = 0;
  // Converts a rectangle from points of the screen to coordinates of the elements' common accessible parent.
  virtual GdkRectangle areaRectangle(const CGRect& points) = 0;
  virtual AtkObject* area() = 0;
};

// An element with the keyboard focus has the state "focused".
enum class ElementFocus { None, Focused };

// Creates the object of an element. The caller owns a reference. The delegate must exist until makeDefunct is called.
AtkObject* makeElementObject(ElementDelegate& delegate, const uikit::AccessibleElement& element, ElementFocus focus);
// Sets the current values of the element, and notifies assistive technologies of the differences.
void updateElementObject(AtkObject* object, const uikit::AccessibleElement& element, ElementFocus focus);
// Replaces the children of the object, which are borrowed.
void setChildren(AtkObject* object, std::vector<AtkObject*> children);
const std::vector<AtkObject*>& childrenOf(AtkObject* object);
// Marks an object whose element is no longer on the screen. The object no longer uses its delegate.
void makeDefunct(AtkObject* object);

}  // namespace window
