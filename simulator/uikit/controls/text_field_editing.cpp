// Editing the text of a text field, and the control events that report it.
#include <algorithm>

#include "simulator/uikit/controls/control.hpp"
#include "simulator/uikit/controls/text_field.hpp"
#include "simulator/uikit/text/text_boundaries.hpp"
#include "simulator/uikit/text/utf8.hpp"
#include "simulator/uikit/views/view.hpp"

namespace uikit {

namespace {

bool isEnabled(const UITextField* field) { return objc::state<UIControl>(field).enabled; }

bool canBecomeFirstResponder(UITextField* self) { return isEnabled(self); }

bool becomeFirstResponder(UITextField* self) {
  const bool wasEditing = self->isFirstResponder();
  if (!objc::sendSuper<"UITextField", bool, "becomeFirstResponder">(self)) return false;
  if (wasEditing) return true;
  TextFieldState& state = objc::state(self);
  state.selection = {state.text->length(), 0};
  setNeedsDisplay(self);
  sendActions(self, UIControlEvents::EditingDidBegin);
  return true;
}

bool resignFirstResponder(UITextField* self) {
  const objc::Ref<UITextField> retained = objc::retain(self);
  const bool wasEditing = self->isFirstResponder();
  if (!objc::sendSuper<"UITextField", bool, "resignFirstResponder">(self)) return false;
  if (!wasEditing) return true;
  objc::state(self).scrollOffset = 0;
  unmarkText(self);
  sendActions(self, UIControlEvents::EditingDidEnd);
  return true;
}

void controlStateChanged(UITextField* self) {
  objc::sendSuper<"UITextField", void, "_controlStateChanged">(self);
  if (!isEnabled(self)) self->resignFirstResponder();
}

void touchesEnded(UITextField* self, NSObject* touches, NSObject* event) {
  const bool wasTapped = objc::state<UIControl>(self).touchInside;
  const objc::Ref<UITextField> retained = objc::retain(self);
  objc::sendSuper<"UITextField", void, "touchesEnded:withEvent:">(self, touches, event);
  if (wasTapped) self->becomeFirstResponder();
}

void replaceCharacters(UITextField* self, NSRange range, NSString* replacement) {
  NSString* changed = objc::state(self).text->stringByReplacingCharactersInRange(range, replacement);
  replaceText(self, changed, range.location + replacement->length());
  sendActions(self, editingChanged);
}

bool hasText(UITextField* self) { return objc::state(self).text->length() > 0; }

bool acceptsReturnKey(UITextField* self) {
  return isEnabled(self) && (hasText(self) || !objc::state(self).enablesReturnKeyAutomatically);
}

// Handles the return key. If the return key has an action, the field resigns as first responder, which hides the
// keyboard.
void returnKeyPressed(UITextField* self) {
  if (!acceptsReturnKey(self)) return;
  const objc::Ref<UITextField> retained = objc::retain(self);
  const bool hasAction = hasActions(self, UIControlEvents::EditingDidEndOnExit);
  sendActions(self, UIControlEvents::EditingDidEndOnExit);
  if (hasAction) self->resignFirstResponder();
}

// Replaces the marked text, or the selection if there is no marked text. A single line feed represents the return key.
// If there is marked text, the return key only finishes it. In a longer text, spaces replace the line breaks.
void insertText(UITextField* self, NSString* text) {
  if (!isEnabled(self) || text->length() == 0) return;
  if (!text->isEqualToString("\n"_ns))
    return replaceCharacters(self, replacedByInput(self), withoutLineBreaks(wellFormed(text)));
  if (objc::state(self).marked.length > 0) return unmarkText(self);
  returnKeyPressed(self);
}

// Deletes a range of the marked text by setting the remaining marked text.
void deleteFromMarkedText(UITextField* self, NSRange deleted) {
  const NSRange marked = objc::state(self).marked;
  NSString* text = objc::state(self).text->substringWithRange(marked);
  const NSRange inside = {deleted.location - marked.location, deleted.length};
  objc::send<void, "setMarkedText:selectedRange:">(self, text->stringByReplacingCharactersInRange(inside, ""_ns),
                                                   NSRange{inside.location, 0});
}

void deleteBackward(UITextField* self) {
  const TextFieldState& state = objc::state(self);
  NSRange deleted = state.selection;
  if (deleted.length == 0) {
    deleted.location = startOfCharacterBefore(state.text, state.selection.location);
    deleted.length = state.selection.location - deleted.location;
  }
  if (!isEnabled(self) || deleted.length == 0) return;
  const NSRange marked = state.marked;
  const bool isMarked = marked.length > 0 && deleted.location >= marked.location &&
                        deleted.location + deleted.length <= marked.location + marked.length;
  if (isMarked) return deleteFromMarkedText(self, deleted);
  replaceCharacters(self, deleted, ""_ns);
}

NSRange selectedRange(UITextField* self) { return objc::state(self).selection; }

// Sets the selection to the part of the range that is inside the text. A selection outside of the marked text finishes
// the marked text.
void setSelectedRange(UITextField* self, NSRange range) {
  TextFieldState& state = objc::state(self);
  const NSUInteger length = state.text->length();
  const NSUInteger location = std::min(range.location, length);
  state.selection = {location, std::min(range.length, length - location)};
  const NSRange marked = state.marked;
  if (location < marked.location || location + state.selection.length > marked.location + marked.length)
    state.marked = {};
  setNeedsDisplay(self);
}

void selectAll(UITextField* self, NSObject*) { setSelectedRange(self, {0, NSNotFound}); }

}  // namespace

void unmarkText(UITextField* field) {
  objc::state(field).marked = {};
  setNeedsDisplay(field);
}

NSRange replacedByInput(const UITextField* field) {
  const TextFieldState& state = objc::state(field);
  return state.marked.length > 0 ? state.marked : state.selection;
}

NSString* withoutLineBreaks(NSString* text) {
  for (NSString* lineBreak : {"\r\n"_ns, "\n"_ns, "\r"_ns, "\u2028"_ns, "\u2029"_ns})
    text = objc::send<NSString*, "stringByReplacingOccurrencesOfString:withString:">(text, lineBreak, " "_ns);
  return text;
}

std::span<const objc::MethodEntry> textFieldEditingMethods() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"canBecomeFirstResponder", &canBecomeFirstResponder>(),
      objc::method<"becomeFirstResponder", &becomeFirstResponder>(),
      objc::method<"resignFirstResponder", &resignFirstResponder>(),
      objc::method<"_controlStateChanged", &controlStateChanged>(),
      objc::method<"touchesEnded:withEvent:", &touchesEnded>(),
      objc::method<"hasText", &hasText>(),
      objc::method<"insertText:", &insertText>(),
      objc::method<"deleteBackward", &deleteBackward>(),
      objc::method<"_returnKeyPressed", &returnKeyPressed>(),
      objc::method<"_selectedRange", &selectedRange>(),
      objc::method<"_setSelectedRange:", &setSelectedRange>(),
      objc::method<"selectAll:", &selectAll>(),
  };
  return methods;
}

}  // namespace uikit
