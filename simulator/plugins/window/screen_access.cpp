#include "simulator/plugins/window/screen_access.hpp"

#include <gtk/gtk-a11y.h>

#include <algorithm>
#include <array>

#include "simulator/drawing/corner_path.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/runner/accessible_actions.hpp"
#include "simulator/uikit/accessibility/screen_elements.hpp"

namespace window {

namespace {

using phone_display::FocusMove;

// The distance of the ring from the element, in coordinates of the area.
constexpr double ringDistance = 2;
constexpr double ringWidth = 3;
constexpr int ringExtent = 6;
constexpr double ringRadius = 10;

struct PhoneAreaAccessible {
  GtkWidgetAccessible base;
  // The objects of the top-level elements.
  std::vector<AtkObject*>* children;
};
struct PhoneAreaAccessibleClass {
  GtkWidgetAccessibleClass base;
};
G_DEFINE_TYPE(PhoneAreaAccessible, phone_area_accessible, GTK_TYPE_WIDGET_ACCESSIBLE)

std::vector<AtkObject*>& childrenOfArea(AtkObject* area) {
  return *reinterpret_cast<PhoneAreaAccessible*>(area)->children;
}

int childCount(AtkObject* self) { return static_cast<int>(childrenOfArea(self).size()); }

AtkObject* refChild(AtkObject* self, int index) {
  const std::vector<AtkObject*>& children = childrenOfArea(self);
  if (index < 0 || static_cast<std::size_t>(index) >= children.size()) return nullptr;
  return ATK_OBJECT(g_object_ref(children[static_cast<std::size_t>(index)]));
}

void finalize(GObject* self) {
  delete reinterpret_cast<PhoneAreaAccessible*>(self)->children;
  G_OBJECT_CLASS(phone_area_accessible_parent_class)->finalize(self);
}

void phone_area_accessible_init(PhoneAreaAccessible* self) { self->children = new std::vector<AtkObject*>; }

void phone_area_accessible_class_init(PhoneAreaAccessibleClass* type) {
  G_OBJECT_CLASS(type)->finalize = &finalize;
  ATK_OBJECT_CLASS(type)->get_n_children = &childCount;
  ATK_OBJECT_CLASS(type)->ref_child = &refChild;
}

struct PhoneArea {
  GtkDrawingArea base;
};
struct PhoneAreaClass {
  GtkDrawingAreaClass base;
};
G_DEFINE_TYPE(PhoneArea, phone_area, GTK_TYPE_DRAWING_AREA)

void phone_area_init(PhoneArea*) {}

void phone_area_class_init(PhoneAreaClass* type) {
  gtk_widget_class_set_accessible_type(GTK_WIDGET_CLASS(type), phone_area_accessible_get_type());
  gtk_widget_class_set_accessible_role(GTK_WIDGET_CLASS(type), ATK_ROLE_PANEL);
}

struct MoveRow {
  guint key;
  FocusMove move;
};

constexpr std::array<MoveRow, 7> moves = {{
    {GDK_KEY_Tab, FocusMove::Next},
    {GDK_KEY_KP_Tab, FocusMove::Next},
    {GDK_KEY_ISO_Left_Tab, FocusMove::Previous},
    {GDK_KEY_Up, FocusMove::Up},
    {GDK_KEY_Down, FocusMove::Down},
    {GDK_KEY_Left, FocusMove::Left},
    {GDK_KEY_Right, FocusMove::Right},
}};

constexpr guint activationKeys[] = {GDK_KEY_Return, GDK_KEY_KP_Enter, GDK_KEY_ISO_Enter, GDK_KEY_space};

bool hasModifiers(const GdkEventKey& event) {
  const guint modifiers = event.state & static_cast<guint>(gtk_accelerator_get_default_mod_mask());
  return (modifiers & ~static_cast<guint>(GDK_SHIFT_MASK)) != 0;
}

// Emits the signal of the parent that reports an added or a removed child.
void reportChange(const char* signal, AtkObject* parent, std::size_t index, AtkObject* child) {
  g_signal_emit_by_name(parent, signal, static_cast<guint>(index), child, nullptr);
}

}  // namespace

GtkWidget* makePhoneArea() {
  auto* const area = GTK_WIDGET(g_object_new(phone_area_get_type(), nullptr));
  gtk_widget_set_can_focus(area, TRUE);
  return area;
}

ScreenAccess::ScreenAccess(GtkWidget* area, std::function<GdkRectangle(const CGRect&)> areaRectangle)
    : area_(GTK_WIDGET(g_object_ref_sink(area))),
      areaObject_(ATK_OBJECT(g_object_ref(gtk_widget_get_accessible(area)))),
      areaRectangle_(std::move(areaRectangle)),
      bus_([this] { foundation::onMainThread([this] { update(); }); }) {
  const auto activateKey = +[](GtkWidget*, GdkEventKey* event, ScreenAccess* self) -> gboolean {
    return self->activate(*event) ? TRUE : FALSE;
  };
  const auto navigateKey = +[](GtkWidget*, GdkEventKey* event, ScreenAccess* self) -> gboolean {
    return self->navigate(*event) ? TRUE : FALSE;
  };
  const auto click = +[](GtkWidget*, GdkEvent*, ScreenAccess* self) -> gboolean {
    self->handleClick();
    return FALSE;
  };
  g_signal_connect(area, "key-press-event", G_CALLBACK(activateKey), this);
  g_signal_connect_after(area, "key-press-event", G_CALLBACK(navigateKey), this);
  g_signal_connect(area, "button-press-event", G_CALLBACK(click), this);
}

ScreenAccess::~ScreenAccess() {
  removeObjects({});
  g_signal_handlers_disconnect_by_data(area_, this);
  g_object_unref(areaObject_);
  g_object_unref(area_);
}

void ScreenAccess::update() {
  if (ring_.element() == 0 && !bus_.isConnected()) return;
  const Elements elements = uikit::accessibleElements();
  ring_.follow(elements);
  updateRing(elements);
  if (bus_.isConnected()) updateObjects(elements);
}

// Performs the action on the main queue, because an action can run the run loop, which a GTK callback must not do.
void ScreenAccess::performAction(std::uint64_t element, std::size_t action) {
  foundation::onMainThread([element, action] { static_cast<void>(runner::performAction(element, action)); });
}

void ScreenAccess::setText(std::uint64_t element, const std::string& text) {
  foundation::onMainThread([element, text] { static_cast<void>(runner::setText(element, text)); });
}

void ScreenAccess::focus(std::uint64_t element) {
  ring_.focus(element);
  update();
}

bool ScreenAccess::activate(const GdkEventKey& event) {
  if (ring_.element() == 0 || hasModifiers(event)) return false;
  if (std::ranges::find(activationKeys, event.keyval) == std::end(activationKeys)) return false;
  const Elements elements = uikit::accessibleElements();
  const uikit::AccessibleElement* const element = ring_.find(elements);
  // The text field that is being edited receives these keys.
  if (element == nullptr || element->isFirstResponder) return false;
  performAction(element->identifier, 0);
  return true;
}

bool ScreenAccess::navigate(const GdkEventKey& event) {
  if (hasModifiers(event)) return false;
  if (event.keyval == GDK_KEY_Escape) {
    foundation::onMainThread(&runner::goBack);
    return true;
  }
  const auto* found = std::ranges::find(moves, event.keyval, &MoveRow::key);
  if (found == moves.end()) return false;
  const bool isShifted = (event.state & GDK_SHIFT_MASK) != 0;
  const Elements elements = uikit::accessibleElements();
  ring_.move(elements, found->move == FocusMove::Next && isShifted ? FocusMove::Previous : found->move);
  updateRing(elements);
  if (bus_.isConnected()) updateObjects(elements);
  return true;
}

void ScreenAccess::handleClick() {
  gtk_widget_grab_focus(area_);
  ring_.clear();
  updateRing({});
}

void ScreenAccess::updateRing(const Elements& elements) {
  const uikit::AccessibleElement* const element = ring_.find(elements);
  const std::optional<CGRect> frame = element == nullptr ? std::nullopt : std::optional(element->frame);
  if (frame == ringFrame_) return;
  for (const std::optional<CGRect>& changed : {ringFrame_, frame}) {
    if (!changed) continue;
    const GdkRectangle area = areaRectangle_(*changed);
    gtk_widget_queue_draw_area(area_, area.x - ringExtent, area.y - ringExtent, area.width + 2 * ringExtent,
                               area.height + 2 * ringExtent);
  }
  ringFrame_ = frame;
}

// Draws a light line around a colored line, because the phone's picture can have any color.
void ScreenAccess::drawRing(cairo_t* context) {
  if (!ringFrame_) return;
  struct Line {
    double width;
    drawing::Color color;
  };
  constexpr Line lines[] = {{ringWidth + 2, {1, 1, 1, 0.9}}, {ringWidth, {0.04, 0.42, 0.95, 1}}};
  const GdkRectangle area = areaRectangle_(*ringFrame_);
  const drawing::Rectangle ring = {area.x - ringDistance, area.y - ringDistance, area.width + 2 * ringDistance,
                                   area.height + 2 * ringDistance};
  cairo_save(context);
  for (const Line& line : lines) {
    drawing::addRoundedRectangle(context, ring, {ringRadius, drawing::CornerCurve::Continuous});
    cairo_set_line_width(context, line.width);
    cairo_set_source_rgba(context, line.color.red, line.color.green, line.color.blue, line.color.alpha);
    cairo_stroke(context);
  }
  cairo_restore(context);
}

AtkObject* ScreenAccess::objectOf(std::uint64_t element) const {
  const auto found = objects_.find(element);
  return found == objects_.end() ? nullptr : found->second;
}

ElementFocus ScreenAccess::focusOf(const uikit::AccessibleElement& element) const {
  const bool isFocused = ring_.element() == 0 ? element.isFirstResponder : ring_.element() == element.identifier;
  return isFocused ? ElementFocus::Focused : ElementFocus::None;
}

void ScreenAccess::updateObjects(const Elements& elements) {
  removeObjects(elements);
  addObjects(elements);
  isAnnouncing_ = true;
}

void ScreenAccess::removeObjects(const Elements& elements) {
  for (auto entry = objects_.begin(); entry != objects_.end();) {
    const bool isShown =
        std::ranges::find(elements, entry->first, &uikit::AccessibleElement::identifier) != elements.end();
    if (isShown) {
      ++entry;
      continue;
    }
    AtkObject* const object = entry->second;
    entry = objects_.erase(entry);
    AtkObject* const parent = atk_object_peek_parent(object);
    std::vector<AtkObject*> siblings = parent == area() ? childrenOfArea(parent) : childrenOf(parent);
    const auto index = static_cast<std::size_t>(std::ranges::find(siblings, object) - siblings.begin());
    std::erase(siblings, object);
    if (parent == area()) {
      childrenOfArea(parent) = siblings;
    } else {
      setChildren(parent, siblings);
    }
    reportChange("children-changed::remove", parent, index, object);
    makeDefunct(object);
    g_object_unref(object);
  }
}

void ScreenAccess::addObjects(const Elements& elements) {
  std::map<AtkObject*, std::vector<AtkObject*>> children;
  std::vector<AtkObject*> added;
  for (const uikit::AccessibleElement& element : elements) {
    const bool hasParent = element.parent != uikit::AccessibleElement::noParent;
    AtkObject* const parent = hasParent ? objectOf(elements[element.parent].identifier) : area();
    AtkObject* object = objectOf(element.identifier);
    if (object == nullptr) {
      object = makeElementObject(*this, element, focusOf(element));
      atk_object_set_parent(object, parent);
      objects_[element.identifier] = object;
      added.push_back(object);
    } else {
      updateElementObject(object, element, focusOf(element));
    }
    children[parent].push_back(object);
  }
  for (const auto& [identifier, object] : objects_) setChildren(object, children[object]);
  childrenOfArea(area()) = children[area()];
  for (AtkObject* const object : added) {
    AtkObject* const parent = atk_object_peek_parent(object);
    const std::vector<AtkObject*>& siblings = children[parent];
    reportChange("children-changed::add", parent,
                 static_cast<std::size_t>(std::ranges::find(siblings, object) - siblings.begin()), object);
    if (isAnnouncing_ && atk_object_get_role(object) == ATK_ROLE_NOTIFICATION)
      g_signal_emit_by_name(object, "announcement", atk_object_get_name(object));
  }
}

}  // namespace window
