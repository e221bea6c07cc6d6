#include "simulator/springboard/settings_application/settings_view.hpp"

#include <cstdio>

#include "simulator/base/foundation_json.hpp"
#include "simulator/base/installation.hpp"
#include "simulator/settings/list_controller.hpp"
#include "simulator/springboard/shell/wallpaper_view.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace springboard {

namespace {

// The height that is reserved for the sample below the top of a banner. The height of the header is constant, because
// otherwise the controls below it would move while the user drags them.
constexpr CGFloat sampleHeight = 132;

CGFloat headerHeight() { return restingBannerFrame().origin.y + sampleHeight; }

// Returns the principal class of the bundle. Foundation loads a bundle only once.
Class loadPane(const std::string& path) {
  settings_application::registerClasses();
  NSBundle* const bundle = NSBundle::bundleWithPath(base::stringOf(path));
  if (bundle == nullptr || !objc::send<bool, "load">(bundle)) return nullptr;
  auto* const name = objc::as<NSString>(
      objc::send<NSObject*, "objectForInfoDictionaryKey:">(bundle, static_cast<NSObject*>("NSPrincipalClass"_ns)));
  return name == nullptr ? nullptr : reinterpret_cast<Class>(objc_getClass(name->UTF8String()));
}

objc::Ref<PSListController> openPane() {
  const std::string path = base::installation().settingsPane;
  const Class page = loadPane(path);
  if (page != nullptr) return objc::adopt(objc::send<PSListController*, "init">(objc::send<id, "alloc">(page)));
  std::fprintf(stderr, "springboard: the settings pane %s cannot be loaded\n", path.c_str());
  return nullptr;
}

void addHeader(SBSettingsView* view) {
  SettingsViewState& state = objc::state(view);
  const CGFloat width = view->bounds().size.width;
  state.header = UIView::withFrame<UIView>({{}, {width, headerHeight()}});
  state.header->setClipsToBounds(true);
  state.header->addSubview(makeWallpaperView());
  state.sample = makeSampleBanner();
  state.header->addSubview(state.sample);
  view->addSubview(state.header);
}

void addPage(SBSettingsView* view) {
  SettingsViewState& state = objc::state(view);
  state.page = openPane();
  if (state.page == nullptr) return;
  const CGSize size = view->bounds().size;
  state.page->view()->setFrame({{0, headerHeight()}, {size.width, size.height - headerHeight()}});
  view->addSubview(state.page->view());
}

}  // namespace

objc::Ref<UIView> makeSettingsView() {
  auto view = UIView::withFrame<SBSettingsView>({{}, uikit::environment().device.screen});
  addPage(view);
  addHeader(view);
  return objc::retain<UIView>(view);
}

void defineSettingsView() {
  defineSampleBanner();
  objc::defineClassWithState<SBSettingsView>({});
}

}  // namespace springboard
