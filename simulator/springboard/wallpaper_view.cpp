#include "simulator/springboard/wallpaper_view.hpp"

#include "objc/class_definition.hpp"
#include "platform/ui_trait_collection.hpp"
#include "simulator/uikit/environment.hpp"

namespace springboard {

namespace {

void traitCollectionDidChange(SBFStaticWallpaperView* self, UITraitCollection* previous) {
  objc::sendSuper<"SBFStaticWallpaperView", void, "traitCollectionDidChange:">(self, previous);
  self->setImage(wallpaper());
}

}  // namespace

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
