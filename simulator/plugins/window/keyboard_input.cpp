#include "simulator/plugins/window/keyboard_input.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "simulator/foundation/main_queue.hpp"
#include "simulator/plugins/phone_display/finger_input.hpp"
#include "simulator/runner/typing.hpp"

namespace window {

namespace {

struct KeyRow {
  guint value;
  runner::Key key;
};

constexpr std::array<KeyRow, 4> keys = {{
    {GDK_KEY_Return, runner::Key::Return},
    {GDK_KEY_KP_Enter, runner::Key::Return},
    {GDK_KEY_ISO_Enter, runner::Key::Return},
    {GDK_KEY_BackSpace, runner::Key::Backspace},
}};

struct ButtonRow {
  guint value;
  phone_display::BodyButton button;
};

constexpr std::array<ButtonRow, 4> buttons = {{
    {GDK_KEY_AudioRaiseVolume, phone_display::BodyButton::VolumeUp},
    {GDK_KEY_AudioLowerVolume, phone_display::BodyButton::VolumeDown},
    {GDK_KEY_Page_Up, phone_display::BodyButton::VolumeUp},
    {GDK_KEY_Page_Down, phone_display::BodyButton::VolumeDown},
}};

// Handles the input on the main queue, because input can run the run loop, which a GTK callback must not do.
void type(std::string text) {
  foundation::onMainThread([text = std::move(text)] { static_cast<void>(runner::typeText(text)); });
}

void press(runner::Key key) {
  foundation::onMainThread([key] { static_cast<void>(runner::pressKey(key)); });
}

void paste(GtkWidget* window) {
  const auto typeReceived = +[](GtkClipboard*, const char* text, void*) {
    if (text != nullptr) type(text);
  };
  gtk_clipboard_request_text(gtk_widget_get_clipboard(window, GDK_SELECTION_CLIPBOARD), typeReceived, nullptr);
}

bool isPaste(const GdkEventKey& event) {
  const guint modifiers = event.state & static_cast<guint>(gtk_accelerator_get_default_mod_mask());
  return modifiers == GDK_CONTROL_MASK && gdk_keyval_to_lower(event.keyval) == GDK_KEY_v;
}

}  // namespace

KeyboardInput::KeyboardInput(GtkWidget* window, std::function<GdkRectangle(const CGRect& points)> windowRectangle)
    : inputMethod_(gtk_im_multicontext_new()), windowRectangle_(std::move(windowRectangle)) {
  const auto key = +[](GtkWidget*, GdkEventKey* event, KeyboardInput* self) -> gboolean {
    return self->handleKey(*event) ? TRUE : FALSE;
  };
  const auto focusIn = +[](GtkWidget*, GdkEvent*, KeyboardInput* self) -> gboolean {
    gtk_im_context_focus_in(self->inputMethod_);
    return FALSE;
  };
  const auto focusOut = +[](GtkWidget*, GdkEvent*, KeyboardInput* self) -> gboolean {
    gtk_im_context_focus_out(self->inputMethod_);
    return FALSE;
  };
  const auto realize = +[](GtkWidget* realized, KeyboardInput* self) {
    gtk_im_context_set_client_window(self->inputMethod_, gtk_widget_get_window(realized));
  };
  const auto commit = +[](GtkIMContext*, const char* text, KeyboardInput* self) { self->commit(text); };
  const auto changeMarkedText = +[](GtkIMContext*, KeyboardInput* self) { self->scheduleMarkedText(); };
  const auto retrieve =
      +[](GtkIMContext*, KeyboardInput* self) -> gboolean { return self->reportSurroundingText() ? TRUE : FALSE; };
  const auto remove = +[](GtkIMContext*, int offset, int count, KeyboardInput*) -> gboolean {
    foundation::onMainThread(
        [offset, count] { runner::deleteSurroundingText(offset, static_cast<std::size_t>(std::max(count, 0))); });
    return TRUE;
  };
  g_signal_connect(window, "key-press-event", G_CALLBACK(key), this);
  g_signal_connect(window, "key-release-event", G_CALLBACK(key), this);
  g_signal_connect(window, "focus-in-event", G_CALLBACK(focusIn), this);
  g_signal_connect(window, "focus-out-event", G_CALLBACK(focusOut), this);
  g_signal_connect(window, "realize", G_CALLBACK(realize), this);
  g_signal_connect(inputMethod_, "commit", G_CALLBACK(commit), this);
  g_signal_connect(inputMethod_, "preedit-changed", G_CALLBACK(changeMarkedText), this);
  g_signal_connect(inputMethod_, "preedit-end", G_CALLBACK(changeMarkedText), this);
  g_signal_connect(inputMethod_, "retrieve-surrounding", G_CALLBACK(retrieve), this);
  g_signal_connect(inputMethod_, "delete-surrounding", G_CALLBACK(remove), this);
}

KeyboardInput::~KeyboardInput() {
  g_signal_handlers_disconnect_by_data(inputMethod_, this);
  gtk_im_context_set_client_window(inputMethod_, nullptr);
  g_object_unref(inputMethod_);
}

// Resets the input method if the field itself has finished its marked text, for example because the banner was
// dismissed. Some input methods commit that text during the reset. It is then ignored, because the phone already has
// it.
void KeyboardInput::update() {
  if (!markedText_.empty() && !runner::hasMarkedText()) {
    markedText_.clear();
    isResetting_ = true;
    gtk_im_context_reset(inputMethod_);
    isResetting_ = false;
  }
  reportCaret();
}

void KeyboardInput::commit(const char* text) {
  if (isResetting_) return;
  type(text);
  scheduleMarkedText();
}

// Shows the latest unfinished text, but only after the phone has received a committed text. Therefore, the committed
// text replaces the marked text, even if the input method removes the unfinished text first.
void KeyboardInput::scheduleMarkedText() {
  foundation::onMainThread([this, change = ++*changes_, changes = std::weak_ptr<unsigned>(changes_)] {
    if (const auto last = changes.lock(); last != nullptr && *last == change) showMarkedText();
  });
}

void KeyboardInput::showMarkedText() {
  char* text = nullptr;
  int characters = 0;
  gtk_im_context_get_preedit_string(inputMethod_, &text, nullptr, &characters);
  const auto bytes = static_cast<int>(g_utf8_offset_to_pointer(text, characters) - text);
  // The committed text has already replaced the marked text of the field.
  const std::string current = runner::hasMarkedText() ? markedText_ : "";
  if (current != text || markedCaret_ != bytes) {
    const auto result = runner::setMarkedText(text, static_cast<std::size_t>(bytes));
    markedText_ = result == runner::TypingResult::Received ? text : "";
    markedCaret_ = bytes;
  }
  g_free(text);
}

// The input method places its list of candidates at the caret.
void KeyboardInput::reportCaret() {
  const std::optional<CGRect> caret = runner::caretRectangle();
  if (!caret) return;
  const GdkRectangle rectangle = windowRectangle_(*caret);
  if (gdk_rectangle_equal(&rectangle, &caret_) != FALSE) return;
  caret_ = rectangle;
  gtk_im_context_set_cursor_location(inputMethod_, &caret_);
}

bool KeyboardInput::reportSurroundingText() {
  const std::optional<runner::SurroundingText> surrounding = runner::surroundingText();
  if (!surrounding) return false;
  gtk_im_context_set_surrounding(inputMethod_, surrounding->text.c_str(), static_cast<int>(surrounding->text.size()),
                                 static_cast<int>(surrounding->caret));
  return true;
}

bool KeyboardInput::handleKey(GdkEventKey& event) {
  if (event.type == GDK_KEY_PRESS && isPaste(event)) {
    paste(gtk_get_event_widget(reinterpret_cast<GdkEvent*>(&event)));
    return true;
  }
  const bool isFiltered = gtk_im_context_filter_keypress(inputMethod_, &event) != FALSE;
  // An input method that has exited does not always report that its unfinished text has been removed.
  if (event.type == GDK_KEY_PRESS && !markedText_.empty()) {
    foundation::onMainThread([this, changes = std::weak_ptr<unsigned>(changes_)] {
      if (!changes.expired()) showMarkedText();
    });
  }
  if (isFiltered) return true;
  if (event.type != GDK_KEY_PRESS) return false;
  const auto* button = std::ranges::find(buttons, event.keyval, &ButtonRow::value);
  if (button != buttons.end()) {
    phone_display::pressBodyButton(button->button);
    return true;
  }
  const auto* found = std::ranges::find(keys, event.keyval, &KeyRow::value);
  if (found == keys.end()) return false;
  press(found->key);
  return true;
}

}  // namespace window
