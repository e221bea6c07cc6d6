// A module of GTK with an input method for tests. A program that listens on the socket BRIM_TEST_INPUT_METHOD controls
// it with lines: `preedit CARET TEXT`, `commit TEXT`, `delete OFFSET COUNT`, `forget`, `surrounding` and `caret`. The
// last two are answered. Offsets are in characters. Without this program, the keys produce their characters.
#include <gtk/gtk.h>
#include <gtk/gtkimmodule.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>

namespace {

struct InputMethod {
  GtkIMContextSimple parent;
  int socket;
  std::string* text;
  int caret;
  GdkRectangle* location;
};

GType type = 0;
GtkIMContextClass* parentClass = nullptr;

InputMethod* of(GtkIMContext* context) { return reinterpret_cast<InputMethod*>(context); }

void setText(InputMethod* self, const std::string& text, int caret) {
  *self->text = text;
  self->caret = caret;
  g_signal_emit_by_name(self, "preedit-changed");
}

// The text after one space.
std::string rest(std::istringstream& line) {
  std::string text;
  line.get();
  std::getline(line, text);
  return text;
}

std::string surroundingText(InputMethod* self) {
  char* text = nullptr;
  int caret = 0;
  if (gtk_im_context_get_surrounding(reinterpret_cast<GtkIMContext*>(self), &text, &caret) == FALSE) return "nothing";
  std::string answer = text;
  g_free(text);
  return answer.insert(static_cast<std::size_t>(caret), "|");
}

void answer(const InputMethod* self, const std::string& text) {
  const std::string line = text + "\n";
  [[maybe_unused]] const ssize_t size = write(self->socket, line.data(), line.size());
}

void execute(InputMethod* self, const std::string& command) {
  std::istringstream line(command);
  std::string name;
  line >> name;
  if (name == "preedit") {
    int caret = 0;
    line >> caret;
    setText(self, rest(line), caret);
  } else if (name == "commit") {
    // The order in which most input methods emit these signals.
    setText(self, "", 0);
    g_signal_emit_by_name(self, "commit", rest(line).c_str());
  } else if (name == "delete") {
    int offset = 0;
    int count = 0;
    line >> offset >> count;
    gtk_im_context_delete_surrounding(reinterpret_cast<GtkIMContext*>(self), offset, count);
  } else if (name == "forget") {
    self->text->clear();
  } else if (name == "surrounding") {
    answer(self, surroundingText(self));
  } else if (name == "caret") {
    answer(self, std::to_string(self->location->x) + " " + std::to_string(self->location->y));
  }
}

gboolean receive(GIOChannel*, GIOCondition, gpointer data) {
  auto* const self = static_cast<InputMethod*>(data);
  char buffer[4096];
  const ssize_t size = read(self->socket, buffer, sizeof buffer);
  if (size <= 0) {
    // The process of the input method has ended.
    close(self->socket);
    self->socket = -1;
    setText(self, "", 0);
    return FALSE;
  }
  std::istringstream lines(std::string(buffer, static_cast<std::size_t>(size)));
  for (std::string line; std::getline(lines, line);) execute(self, line);
  return TRUE;
}

void focusIn(GtkIMContext* context) {
  InputMethod* const self = of(context);
  const char* path = std::getenv("BRIM_TEST_INPUT_METHOD");
  if (self->socket >= 0 || path == nullptr) return;
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, path, sizeof address.sun_path - 1);
  self->socket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (connect(self->socket, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) return;
  GIOChannel* const channel = g_io_channel_unix_new(self->socket);
  g_io_add_watch(channel, static_cast<GIOCondition>(G_IO_IN | G_IO_HUP), &receive, self);
  g_io_channel_unref(channel);
}

void preeditString(GtkIMContext* context, char** text, PangoAttrList** attributes, int* caret) {
  const InputMethod* const self = of(context);
  if (text != nullptr) *text = g_strdup(self->text->c_str());
  if (attributes != nullptr) *attributes = pango_attr_list_new();
  if (caret != nullptr) *caret = self->caret;
}

void setCursorLocation(GtkIMContext* context, GdkRectangle* area) { *of(context)->location = *area; }

void initialize(GTypeInstance* instance, gpointer) {
  auto* const self = reinterpret_cast<InputMethod*>(instance);
  self->socket = -1;
  self->text = new std::string;
  self->location = new GdkRectangle{};
}

void finalize(GObject* object) {
  auto* const self = reinterpret_cast<InputMethod*>(object);
  delete self->text;
  delete self->location;
  reinterpret_cast<GObjectClass*>(parentClass)->finalize(object);
}

void initializeClass(gpointer given, gpointer) {
  parentClass = static_cast<GtkIMContextClass*>(g_type_class_peek_parent(given));
  auto* const methods = static_cast<GtkIMContextClass*>(given);
  methods->focus_in = &focusIn;
  methods->get_preedit_string = &preeditString;
  methods->set_cursor_location = &setCursorLocation;
  static_cast<GObjectClass*>(given)->finalize = &finalize;
}

const GtkIMContextInfo information = {"brim-test", "Test", "brim", "", ""};

}  // namespace

// The functions that GTK calls.
extern "C" {

G_MODULE_EXPORT void im_module_init(GTypeModule* module) {
  const GTypeInfo description = {sizeof(GtkIMContextSimpleClass),
                                 nullptr,
                                 nullptr,
                                 &initializeClass,
                                 nullptr,
                                 nullptr,
                                 sizeof(InputMethod),
                                 0,
                                 &initialize,
                                 nullptr};
  type = g_type_module_register_type(module, GTK_TYPE_IM_CONTEXT_SIMPLE, "BrimTestInputMethod", &description,
                                     static_cast<GTypeFlags>(0));
}

G_MODULE_EXPORT void im_module_exit() {}

G_MODULE_EXPORT void im_module_list(const GtkIMContextInfo*** contexts, int* count) {
  static const GtkIMContextInfo* all[] = {&information};
  *contexts = all;
  *count = 1;
}

G_MODULE_EXPORT GtkIMContext* im_module_create(const char*) {
  return static_cast<GtkIMContext*>(g_object_new(type, nullptr));
}

}  // extern "C"
