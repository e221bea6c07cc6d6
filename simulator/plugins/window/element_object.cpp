#include "simulator/plugins/window/element_object.hpp"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

namespace window {

namespace {

using uikit::AccessibleElement;
using uikit::AccessibleRole;

struct Content {
  AccessibleElement element;
  std::vector<AtkObject*> children;
  ElementDelegate* delegate = nullptr;  // null if the element is no longer on the screen
  ElementFocus focus = ElementFocus::None;
};

struct ElementObject {
  AtkObject base;
  Content* content;
};
struct ElementObjectClass {
  AtkObjectClass base;
};

void addComponent(void* methods, void*);
void addAction(void* methods, void*);
void addText(void* methods, void*);
void addEditableText(void* methods, void*);

G_DEFINE_TYPE_WITH_CODE(ElementObject, element_object, ATK_TYPE_OBJECT,
                        G_IMPLEMENT_INTERFACE(ATK_TYPE_COMPONENT, &addComponent)
                            G_IMPLEMENT_INTERFACE(ATK_TYPE_ACTION, &addAction))

// The accessible object of a text field.
struct FieldObject {
  ElementObject base;
};
struct FieldObjectClass {
  ElementObjectClass base;
};
G_DEFINE_TYPE_WITH_CODE(FieldObject, field_object, element_object_get_type(),
                        G_IMPLEMENT_INTERFACE(ATK_TYPE_TEXT, &addText)
                            G_IMPLEMENT_INTERFACE(ATK_TYPE_EDITABLE_TEXT, &addEditableText))

Content& contentOf(const void* object) { return *static_cast<const ElementObject*>(object)->content; }

struct RoleRow {
  AccessibleRole role;
  AtkRole atkRole;
};

constexpr RoleRow roles[] = {
    {AccessibleRole::Button, ATK_ROLE_PUSH_BUTTON},
    {AccessibleRole::Icon, ATK_ROLE_ICON},
    {AccessibleRole::Text, ATK_ROLE_LABEL},
    {AccessibleRole::TextField, ATK_ROLE_ENTRY},
    {AccessibleRole::Key, ATK_ROLE_PUSH_BUTTON},
    {AccessibleRole::ListItem, ATK_ROLE_LIST_ITEM},
    {AccessibleRole::Group, ATK_ROLE_PANEL},
    {AccessibleRole::List, ATK_ROLE_LIST},
    {AccessibleRole::Notification, ATK_ROLE_NOTIFICATION},
    {AccessibleRole::Keyboard, ATK_ROLE_PANEL},
};

AtkRole atkRoleOf(AccessibleRole role) {
  const auto* found = std::ranges::find(roles, role, &RoleRow::role);
  return found == std::end(roles) ? ATK_ROLE_UNKNOWN : found->atkRole;
}

// AtkObject

int childCount(AtkObject* self) { return static_cast<int>(contentOf(self).children.size()); }

AtkObject* refChild(AtkObject* self, int index) {
  const std::vector<AtkObject*>& children = contentOf(self).children;
  if (index < 0 || static_cast<std::size_t>(index) >= children.size()) return nullptr;
  return ATK_OBJECT(g_object_ref(children[static_cast<std::size_t>(index)]));
}

int indexInParent(AtkObject* self) {
  AtkObject* const parent = atk_object_peek_parent(self);
  const int count = parent == nullptr ? 0 : atk_object_get_n_accessible_children(parent);
  for (int index = 0; index < count; ++index) {
    AtkObject* const child = atk_object_ref_accessible_child(parent, index);
    g_object_unref(child);
    if (child == self) return index;
  }
  return -1;
}

AtkStateSet* refStates(AtkObject* self) {
  const Content& content = contentOf(self);
  AtkStateSet* const states = atk_state_set_new();
  const auto add = [states](bool condition, AtkStateType state) {
    if (condition) atk_state_set_add_state(states, state);
  };
  add(content.delegate == nullptr, ATK_STATE_DEFUNCT);
  if (content.delegate == nullptr) return states;
  const AccessibleElement& element = content.element;
  const bool isField = element.role == AccessibleRole::TextField;
  add(true, ATK_STATE_VISIBLE);
  add(true, ATK_STATE_SHOWING);
  add(element.isEnabled, ATK_STATE_ENABLED);
  add(element.isEnabled, ATK_STATE_SENSITIVE);
  add(!element.actions.empty(), ATK_STATE_FOCUSABLE);
  add(content.focus == ElementFocus::Focused, ATK_STATE_FOCUSED);
  add(isField, ATK_STATE_EDITABLE);
  add(isField, ATK_STATE_SINGLE_LINE);
  return states;
}

void finalize(GObject* self) {
  delete reinterpret_cast<ElementObject*>(self)->content;
  G_OBJECT_CLASS(element_object_parent_class)->finalize(self);
}

void element_object_init(ElementObject* self) { self->content = new Content; }

void element_object_class_init(ElementObjectClass* type) {
  G_OBJECT_CLASS(type)->finalize = &finalize;
  AtkObjectClass* const object = ATK_OBJECT_CLASS(type);
  object->get_n_children = &childCount;
  object->ref_child = &refChild;
  object->get_index_in_parent = &indexInParent;
  object->ref_state_set = &refStates;
}

void field_object_init(FieldObject*) {}
void field_object_class_init(FieldObjectClass*) {}

// AtkComponent

void extents(AtkComponent* self, int* x, int* y, int* width, int* height, AtkCoordType coordinates) {
  *x = *y = *width = *height = -1;
  const Content& content = contentOf(self);
  if (content.delegate == nullptr) return;
  int areaWidth = 0;
  int areaHeight = 0;
  atk_component_get_extents(ATK_COMPONENT(content.delegate->area()), x, y, &areaWidth, &areaHeight, coordinates);
  const GdkRectangle rectangle = content.delegate->areaRectangle(content.element.frame);
  *x += rectangle.x;
  *y += rectangle.y;
  *width = rectangle.width;
  *height = rectangle.height;
}

gboolean grabFocus(AtkComponent* self) {
  const Content& content = contentOf(self);
  if (content.delegate == nullptr || content.element.actions.empty()) return FALSE;
  content.delegate->focus(content.element.identifier);
  return TRUE;
}

void addComponent(void* methods, void*) {
  auto* const interface = static_cast<AtkComponentIface*>(methods);
  interface->get_extents = &extents;
  interface->grab_focus = &grabFocus;
}

// AtkAction

bool hasAction(const Content& content, int index) {
  return content.delegate != nullptr && index >= 0 && static_cast<std::size_t>(index) < content.element.actions.size();
}

gboolean doAction(AtkAction* self, int index) {
  const Content& content = contentOf(self);
  if (!hasAction(content, index)) return FALSE;
  content.delegate->performAction(content.element.identifier, static_cast<std::size_t>(index));
  return TRUE;
}

int actionCount(AtkAction* self) { return static_cast<int>(contentOf(self).element.actions.size()); }

const char* actionName(AtkAction* self, int index) {
  const Content& content = contentOf(self);
  return hasAction(content, index) ? content.element.actions[static_cast<std::size_t>(index)].name.c_str() : nullptr;
}

void addAction(void* methods, void*) {
  auto* const interface = static_cast<AtkActionIface*>(methods);
  interface->do_action = &doAction;
  interface->get_n_actions = &actionCount;
  interface->get_name = &actionName;
}

// AtkText and AtkEditableText. Positions are in characters.

const std::string& valueOf(const void* field) { return contentOf(field).element.value; }

int length(const std::string& text) { return static_cast<int>(g_utf8_strlen(text.c_str(), -1)); }

std::string part(const std::string& text, int start, int end) {
  const int count = length(text);
  const int last = end < 0 ? count : std::min(end, count);
  const int first = std::clamp(start, 0, last);
  const char* const begin = g_utf8_offset_to_pointer(text.c_str(), first);
  return {begin, static_cast<const char*>(g_utf8_offset_to_pointer(begin, last - first))};
}

char* textBetween(AtkText* self, int start, int end) { return g_strdup(part(valueOf(self), start, end).c_str()); }
int characterCount(AtkText* self) { return length(valueOf(self)); }
int caretOffset(AtkText* self) { return static_cast<int>(contentOf(self).element.caret); }

gunichar characterAt(AtkText* self, int offset) {
  const std::string character = part(valueOf(self), offset, offset + 1);
  return character.empty() ? 0 : g_utf8_get_char(character.c_str());
}

// A text field has one line, which is also the only sentence and paragraph.
char* stringAt(AtkText* self, int offset, AtkTextGranularity granularity, int* start, int* end) {
  const bool isCharacter = granularity == ATK_TEXT_GRANULARITY_CHAR;
  *start = isCharacter ? offset : 0;
  *end = isCharacter ? offset + 1 : characterCount(self);
  return textBetween(self, *start, *end);
}

void addText(void* methods, void*) {
  auto* const interface = static_cast<AtkTextIface*>(methods);
  interface->get_text = &textBetween;
  interface->get_character_count = &characterCount;
  interface->get_caret_offset = &caretOffset;
  interface->get_character_at_offset = &characterAt;
  interface->get_string_at_offset = &stringAt;
}

void setContents(AtkEditableText* self, const char* text) {
  const Content& content = contentOf(self);
  if (content.delegate != nullptr) content.delegate->setText(content.element.identifier, text);
}

void insert(AtkEditableText* self, const char* text, int size, int* position) {
  const std::string inserted(text, static_cast<std::size_t>(size));
  const std::string& value = valueOf(self);
  setContents(self, (part(value, 0, *position) + inserted + part(value, *position, -1)).c_str());
  *position += length(inserted);
}

void deleteBetween(AtkEditableText* self, int start, int end) {
  const std::string& value = valueOf(self);
  setContents(self, (part(value, 0, start) + part(value, end, -1)).c_str());
}

void addEditableText(void* methods, void*) {
  auto* const interface = static_cast<AtkEditableTextIface*>(methods);
  interface->set_text_contents = &setContents;
  interface->insert_text = &insert;
  interface->delete_text = &deleteBetween;
}

// Reports which characters were replaced: those between the common prefix and the common suffix of both texts.
void notifyTextChange(AtkObject* field, const std::string& before, const std::string& after) {
  const int beforeLength = length(before);
  const int afterLength = length(after);
  const int shorter = std::min(beforeLength, afterLength);
  int start = 0;
  while (start < shorter && part(before, start, start + 1) == part(after, start, start + 1)) ++start;
  int common = 0;
  while (common < shorter - start && part(before, beforeLength - common - 1, beforeLength - common) ==
                                         part(after, afterLength - common - 1, afterLength - common))
    ++common;
  const auto emit = [&](const char* signal, const std::string& text, int textLength) {
    const int count = textLength - common - start;
    if (count > 0) g_signal_emit_by_name(field, signal, start, count, part(text, start, start + count).c_str());
  };
  emit("text-remove", before, beforeLength);
  emit("text-insert", after, afterLength);
}

}  // namespace

AtkObject* makeElementObject(ElementDelegate& delegate, const AccessibleElement& element, ElementFocus focus) {
  const bool isField = element.role == AccessibleRole::TextField;
  AtkObject* const object =
      ATK_OBJECT(g_object_new(isField ? field_object_get_type() : element_object_get_type(), nullptr));
  atk_object_set_role(object, atkRoleOf(element.role));
  atk_object_set_name(object, element.label.c_str());
  contentOf(object) = {element, {}, &delegate, focus};
  return object;
}

void updateElementObject(AtkObject* object, const AccessibleElement& element, ElementFocus focus) {
  Content& content = contentOf(object);
  const AccessibleElement before = std::exchange(content.element, element);
  const ElementFocus focusBefore = std::exchange(content.focus, focus);
  if (before.label != element.label) atk_object_set_name(object, element.label.c_str());
  if (before.isEnabled != element.isEnabled) {
    atk_object_notify_state_change(object, ATK_STATE_ENABLED, element.isEnabled ? TRUE : FALSE);
    atk_object_notify_state_change(object, ATK_STATE_SENSITIVE, element.isEnabled ? TRUE : FALSE);
  }
  if (before.value != element.value) notifyTextChange(object, before.value, element.value);
  if (before.caret != element.caret) g_signal_emit_by_name(object, "text-caret-moved", static_cast<int>(element.caret));
  if (focusBefore != focus)
    atk_object_notify_state_change(object, ATK_STATE_FOCUSED, focus == ElementFocus::Focused ? TRUE : FALSE);
}

void setChildren(AtkObject* object, std::vector<AtkObject*> children) {
  contentOf(object).children = std::move(children);
}

const std::vector<AtkObject*>& childrenOf(AtkObject* object) { return contentOf(object).children; }

void makeDefunct(AtkObject* object) {
  Content& content = contentOf(object);
  content.delegate = nullptr;
  content.children.clear();
  content.element.actions.clear();
  atk_object_notify_state_change(object, ATK_STATE_DEFUNCT, TRUE);
}

}  // namespace window
