#include "simulator/plugins/window/keyboard_input.hpp"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "simulator/foundation/main_queue.hpp"
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

// The phone handles the input in its main queue, because it can run the run loop, which a callback of GTK must not do.
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

KeyboardInput::KeyboardInput(GtkWidget* window) : inputMethod_(gtk_im_multicontext_new()) {
  gtk_im_context_set_use_preedit(inputMethod_, FALSE);
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
  const auto commit = +[](GtkIMContext*, const char* text, void*) { type(text); };
  g_signal_connect(window, "key-press-event", G_CALLBACK(key), this);
  g_signal_connect(window, "key-release-event", G_CALLBACK(key), this);
  g_signal_connect(window, "focus-in-event", G_CALLBACK(focusIn), this);
  g_signal_connect(window, "focus-out-event", G_CALLBACK(focusOut), this);
  g_signal_connect(window, "realize", G_CALLBACK(realize), this);
  g_signal_connect(inputMethod_, "commit", G_CALLBACK(commit), nullptr);
}

KeyboardInput::~KeyboardInput() {
  gtk_im_context_set_client_window(inputMethod_, nullptr);
  g_object_unref(inputMethod_);
}

bool KeyboardInput::handleKey(GdkEventKey& event) {
  if (event.type == GDK_KEY_PRESS && isPaste(event)) {
    paste(gtk_get_event_widget(reinterpret_cast<GdkEvent*>(&event)));
    return true;
  }
  if (gtk_im_context_filter_keypress(inputMethod_, &event) != FALSE) return true;
  if (event.type != GDK_KEY_PRESS) return false;
  const auto* found = std::ranges::find(keys, event.keyval, &KeyRow::value);
  if (found == keys.end()) return false;
  press(found->key);
  return true;
}

}  // namespace window
