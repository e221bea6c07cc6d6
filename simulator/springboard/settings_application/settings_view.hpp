// The Settings application: the page of the settings pane below a sample banner that follows each change. On a phone,
// the application is a separate process; here it runs in the process of the home screen. Main thread.
#pragma once

#include "objc/class_definition.hpp"
#include "platform/ps_list_controller.hpp"
#include "simulator/springboard/settings_application/sample_banner.hpp"

struct SettingsViewState {
  objc::Ref<PSListController> page;  // nil if the pane cannot be loaded
  objc::Ref<UIView> header;          // contains the wallpaper and the sample banner
  objc::Ref<SBSampleBannerView> sample;
};
class SBSettingsView : public objc::Interface<"SBSettingsView", UIView> {};
template <>
struct objc::StateOf<SBSettingsView> {
  using Type = SettingsViewState;
};

namespace springboard {

// Loads the settings pane from the build or the installation and creates the contents of the application's page, which
// covers the screen. If the pane is missing or damaged, prints an error and shows no controls.
objc::Ref<UIView> makeSettingsView();

void defineSettingsView();

}  // namespace springboard
