#include "simulator/plugins/window/composer.hpp"

#include <utility>

#include "objc/autorelease_pool.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/springboard/services/applications.hpp"

namespace window {

namespace {

constexpr int margin = 14;
constexpr int spacing = 6;
constexpr int textHeight = 84;
constexpr int panelWidth = 280;

std::string entryText(GtkWidget* entry) { return gtk_entry_get_text(GTK_ENTRY(entry)); }
void setEntryText(GtkWidget* entry, const std::string& text) { gtk_entry_set_text(GTK_ENTRY(entry), text.c_str()); }

std::string stringOf(char* owned) {
  const std::unique_ptr<char, decltype(&g_free)> text(owned, &g_free);
  return text == nullptr ? "" : text.get();
}

std::string viewText(GtkWidget* view) {
  GtkTextBuffer* const buffer = gtk_text_view_get_buffer(GTK_TEXT_VIEW(view));
  GtkTextIter start;
  GtkTextIter end;
  gtk_text_buffer_get_bounds(buffer, &start, &end);
  return stringOf(gtk_text_buffer_get_text(buffer, &start, &end, FALSE));
}

// The panel scrolls if the window is not high enough.
GtkWidget* makePanel() {
  GtkWidget* const panel = gtk_scrolled_window_new(nullptr, nullptr);
  gtk_scrolled_window_set_policy(GTK_SCROLLED_WINDOW(panel), GTK_POLICY_NEVER, GTK_POLICY_AUTOMATIC);
  gtk_style_context_add_class(gtk_widget_get_style_context(panel), GTK_STYLE_CLASS_BACKGROUND);
  gtk_widget_set_size_request(panel, panelWidth, -1);
  return panel;
}

GtkWidget* makeContents() {
  GtkWidget* const contents = gtk_box_new(GTK_ORIENTATION_VERTICAL, spacing);
  gtk_container_set_border_width(GTK_CONTAINER(contents), margin);
  return contents;
}

GtkWidget* makeApplicationMenu() {
  GtkWidget* const menu = gtk_combo_box_text_new();
  for (const std::string& identifier : springboard::installedApplications())
    gtk_combo_box_text_append(GTK_COMBO_BOX_TEXT(menu), identifier.c_str(), springboard::nameOf(identifier).c_str());
  gtk_combo_box_set_active(GTK_COMBO_BOX(menu), 0);
  return menu;
}

GtkWidget* makeTextView() {
  GtkWidget* const view = gtk_text_view_new();
  gtk_text_view_set_wrap_mode(GTK_TEXT_VIEW(view), GTK_WRAP_WORD_CHAR);
  // The Tab key moves the focus instead of inserting a tab.
  gtk_text_view_set_accepts_tab(GTK_TEXT_VIEW(view), FALSE);
  return view;
}

GtkWidget* makePictureButton() {
  GtkWidget* const button = gtk_file_chooser_button_new("Picture", GTK_FILE_CHOOSER_ACTION_OPEN);
  GtkFileFilter* const filter = gtk_file_filter_new();
  gtk_file_filter_add_mime_type(filter, "image/png");
  gtk_file_filter_add_mime_type(filter, "image/jpeg");
  gtk_file_chooser_set_filter(GTK_FILE_CHOOSER(button), filter);
  return button;
}

GtkWidget* makeErrorLabel() {
  GtkWidget* const label = gtk_label_new(nullptr);
  gtk_label_set_line_wrap(GTK_LABEL(label), TRUE);
  gtk_label_set_xalign(GTK_LABEL(label), 0);
  gtk_label_set_max_width_chars(GTK_LABEL(label), 30);
  atk_object_set_role(gtk_widget_get_accessible(label), ATK_ROLE_NOTIFICATION);
  return label;
}

GtkWidget* makeEntry(const char* placeholder) {
  GtkWidget* const entry = gtk_entry_new();
  gtk_entry_set_placeholder_text(GTK_ENTRY(entry), placeholder);
  return entry;
}

}  // namespace

Composer::Composer(std::function<void()> whenChanged)
    : whenChanged_(std::move(whenChanged)),
      presets_(phone_display::presets()),
      panel_(makePanel()),
      contents_(makeContents()),
      preset_(gtk_combo_box_text_new()),
      application_(makeApplicationMenu()),
      title_(makeEntry("")),
      subtitle_(makeEntry("")),
      text_(makeTextView()),
      actions_(makeEntry("Archive, Reply…")),
      picture_(makePictureButton()),
      persistence_(gtk_check_button_new_with_label("Stays until it is dismissed")),
      error_(makeErrorLabel()) {
  gtk_container_add(GTK_CONTAINER(panel_), contents_);
  addPresets();
  addFields();
  const auto sendButton = +[](GtkWidget*, Composer* self) { self->send(); };
  addButton("Send", G_CALLBACK(sendButton));
  gtk_container_add(GTK_CONTAINER(contents_), error_);
  gtk_combo_box_set_active(GTK_COMBO_BOX(preset_), 0);
}

Composer::~Composer() { *exists_ = false; }

void Composer::addPresets() {
  for (const Preset& preset : presets_)
    gtk_combo_box_text_append_text(GTK_COMBO_BOX_TEXT(preset_), preset.name.c_str());
  const auto choose = +[](GtkComboBox* menu, Composer* self) {
    const int index = gtk_combo_box_get_active(menu);
    if (index >= 0) self->fill(self->presets_[static_cast<std::size_t>(index)].steps.front().command);
  };
  const auto play = +[](GtkWidget*, Composer* self) { self->playPreset(); };
  addRow("_Preset", preset_);
  addButton("Play", G_CALLBACK(play));
  g_signal_connect(preset_, "changed", G_CALLBACK(choose), this);
}

void Composer::addFields() {
  addRow("_Application", application_);
  addRow("_Title", title_);
  addRow("S_ubtitle", subtitle_);
  GtkWidget* const scrolled = gtk_scrolled_window_new(nullptr, nullptr);
  gtk_scrolled_window_set_min_content_height(GTK_SCROLLED_WINDOW(scrolled), textHeight);
  gtk_scrolled_window_set_shadow_type(GTK_SCROLLED_WINDOW(scrolled), GTK_SHADOW_IN);
  gtk_container_add(GTK_CONTAINER(scrolled), text_);
  addRow("Te_xt", scrolled);
  addRow("Ac_tions", actions_);
  addRow("P_icture", picture_);
  gtk_container_add(GTK_CONTAINER(contents_), persistence_);
}

void Composer::addRow(const char* label, GtkWidget* control) {
  GtkWidget* const name = gtk_label_new_with_mnemonic(label);
  gtk_label_set_xalign(GTK_LABEL(name), 0);
  gtk_label_set_mnemonic_widget(GTK_LABEL(name), GTK_IS_SCROLLED_WINDOW(control) ? text_ : control);
  gtk_container_add(GTK_CONTAINER(contents_), name);
  gtk_container_add(GTK_CONTAINER(contents_), control);
}

void Composer::addButton(const char* label, GCallback action) {
  GtkWidget* const button = gtk_button_new_with_label(label);
  g_signal_connect(button, "clicked", action, this);
  gtk_container_add(GTK_CONTAINER(contents_), button);
}

void Composer::fill(const Json& command) {
  const ComposerFields filled = phone_display::fieldsOf(command);
  base_ = filled.base;
  gtk_combo_box_set_active_id(GTK_COMBO_BOX(application_), filled.application.c_str());
  setEntryText(title_, filled.title);
  setEntryText(subtitle_, filled.subtitle);
  gtk_text_buffer_set_text(gtk_text_view_get_buffer(GTK_TEXT_VIEW(text_)), filled.text.c_str(), -1);
  setEntryText(actions_, filled.actions);
  gtk_file_chooser_unselect_all(GTK_FILE_CHOOSER(picture_));
  gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(persistence_),
                               filled.persistence == phone_display::Persistence::Persistent ? TRUE : FALSE);
}

ComposerFields Composer::fields() const {
  const char* const application = gtk_combo_box_get_active_id(GTK_COMBO_BOX(application_));
  const bool isPersistent = gtk_toggle_button_get_active(GTK_TOGGLE_BUTTON(persistence_)) != FALSE;
  return {.application = application == nullptr ? "" : application,
          .title = entryText(title_),
          .subtitle = entryText(subtitle_),
          .text = viewText(text_),
          .actions = entryText(actions_),
          .picture = stringOf(gtk_file_chooser_get_filename(GTK_FILE_CHOOSER(picture_))),
          .persistence = isPersistent ? phone_display::Persistence::Persistent : phone_display::Persistence::Temporary,
          .base = base_};
}

void Composer::playPreset() {
  const int index = gtk_combo_box_get_active(GTK_COMBO_BOX(preset_));
  if (index < 0) return;
  for (const phone_display::PresetStep& step : presets_[static_cast<std::size_t>(index)].steps)
    schedule(step.seconds, step.command);
}

void Composer::send() { schedule(0, phone_display::commandOf(fields())); }

// Executes the command on the main queue, because a command can run the run loop, which a GTK callback must not do.
void Composer::schedule(double seconds, const Json& command) {
  foundation::onMainThreadAfter(seconds, [this, exists = exists_, command] {
    const objc::AutoreleasePool pool;
    const Json answer = runner::executeCommand(command);
    if (*exists) showError(answer.value("error", ""));
  });
}

void Composer::showError(const std::string& error) {
  if (error == gtk_label_get_text(GTK_LABEL(error_))) return;
  gtk_label_set_text(GTK_LABEL(error_), error.c_str());
  whenChanged_();
}

}  // namespace window
