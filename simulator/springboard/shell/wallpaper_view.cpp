#include "simulator/springboard/shell/wallpaper_view.hpp"

#include <optional>

#include "objc/class_definition.hpp"
#include "platform/ui_trait_collection.hpp"
#include "simulator/springboard/services/applications.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/images/image_class.hpp"

namespace springboard {

namespace {

void traitCollectionDidChange(SBFStaticWallpaperView* self, UITraitCollection* previous) {
  objc::sendSuper<"SBFStaticWallpaperView", void, "traitCollectionDidChange:">(self, previous);
  self->setImage(wallpaper());
}

}  // namespace

UIImage* wallpaper() {
  // Caches the image, because it is large, and because both the home screen and the lock screen use it.
  static std::optional<UIUserInterfaceStyle> style;
  static objc::Ref<UIImage>& cached = *new objc::Ref<UIImage>;
  if (style == uikit::environment().style) return cached;
  style = uikit::environment().style;
  const bool dark = style == UIUserInterfaceStyle::Dark;
  cached = uikit::makeImage(loadArtwork(dark ? "wallpaper-dark" : "wallpaper-light"));
  return cached;
}

objc::Ref<SBFStaticWallpaperView> makeWallpaperView() {
  auto view = UIView::withFrame<SBFStaticWallpaperView>({{}, uikit::environment().device.screen});
  view->setContentMode(UIViewContentMode::ScaleAspectFill);
  view->setBackgroundColor(UIColor::withRed(0.13, 0.25, 0.42, 1));
  view->setImage(wallpaper());
  return view;
}

void defineWallpaperView() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"traitCollectionDidChange:", &traitCollectionDidChange>(),
  };
  objc::defineClass<SBFStaticWallpaperView>(methods);
}

}  // namespace springboard
