// The composer: a panel beside the phone, in which the user composes notifications. It builds script commands, executes
// them as the control socket does, and shows their errors. Main thread.
#pragma once

#include <gtk/gtk.h>

#include <functional>
#include <memory>

#include "simulator/plugins/phone_display/composer_commands.hpp"

namespace window {

using phone_display::ComposerFields;
using phone_display::Json;
using phone_display::Preset;

class Composer {
 public:
  // Calls `whenChanged` after a change of the panel outside of GTK's callbacks.
  explicit Composer(std::function<void()> whenChanged);
  Composer(const Composer&) = delete;
  Composer& operator=(const Composer&) = delete;
  ~Composer();

  // The panel, which its container owns.
  GtkWidget* panel() const { return panel_; }
  // The control of the panel that first receives the keyboard focus.
  GtkWidget* firstControl() const { return preset_; }

 private:
  void addPresets();
  void addFields();
  void addRow(const char* label, GtkWidget* control);
  void addButton(const char* label, GCallback action);
  void fill(const Json& command);
  ComposerFields fields() const;
  void playPreset();
  void send();
  // Executes the command on the main queue after this number of seconds.
  void schedule(double seconds, const Json& command);
  void showError(const std::string& error);

  std::function<void()> whenChanged_;
  std::vector<Preset> presets_;
  Json base_ = Json::object();
  // Scheduled commands can outlive the panel.
  std::shared_ptr<bool> exists_ = std::make_shared<bool>(true);
  GtkWidget* panel_;
  GtkWidget* contents_;
  GtkWidget* preset_;
  GtkWidget* application_;
  GtkWidget* title_;
  GtkWidget* subtitle_;
  GtkWidget* text_;
  GtkWidget* actions_;
  GtkWidget* picture_;
  GtkWidget* persistence_;
  GtkWidget* error_;
};

}  // namespace window
