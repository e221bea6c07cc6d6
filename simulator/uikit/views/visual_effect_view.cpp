// UIBlurEffect and UIVisualEffectView: a view that blurs the content behind it.
#include "platform/ui_visual_effect_view.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "platform/ui_device.hpp"
#include "simulator/drawing/material.hpp"
#include "simulator/uikit/description/view_tree.hpp"
#include "simulator/uikit/environment/trait_collection.hpp"
#include "simulator/uikit/views/class_definitions.hpp"
#include "simulator/uikit/views/view.hpp"
#include "simulator/uikit/views/view_record.hpp"

struct BlurEffectState {
  UIBlurEffectStyle style = UIBlurEffectStyle::Regular;
};
template <>
struct objc::StateOf<UIBlurEffect> {
  using Type = BlurEffectState;
};

struct VisualEffectViewState {
  objc::Ref<UIBlurEffect> effect;
  objc::Ref<UIView> contentView;
};
template <>
struct objc::StateOf<UIVisualEffectView> {
  using Type = VisualEffectViewState;
};

namespace uikit {

namespace {

UIBlurEffect* effectWithStyle(Class, UIBlurEffectStyle style) {
  auto effect = objc::make<UIBlurEffect>();
  objc::state(effect.get()).style = style;
  return objc::autorelease(effect);
}

UIBlurEffect* copyWithZone(UIBlurEffect* self, void*) { return objc::retain(self).leak(); }

UIVisualEffectView* initWithEffect(UIVisualEffectView* self, UIBlurEffect* effect) {
  auto* view = objc::send<UIVisualEffectView*, "initWithFrame:">(self, CGRect{});
  if (view != nullptr) objc::state(view).effect = objc::retain(effect);
  return view;
}

UIBlurEffect* effect(UIVisualEffectView* self) { return objc::state(self).effect; }

void setEffect(UIVisualEffectView* self, UIBlurEffect* effect) {
  objc::state(self).effect = objc::retain(effect);
  setNeedsDisplay(self);
}

// Returns the content view. It is created at first use, because most effect views have no content.
UIView* contentView(UIVisualEffectView* self) {
  objc::Ref<UIView>& content = objc::state(self).contentView;
  if (content == nullptr) {
    content = UIView::withFrame<UIView>(self->bounds());
    content->setAutoresizingMask(UIViewAutoresizingFlexibleSize);
    self->addSubview(content);
  }
  return content;
}

// Returns whether the superview has a dark background, which is behind the blur.
bool isOnDarkBackground(const UIView* view) {
  const UIView* superview = record(view).superview;
  if (superview == nullptr) return false;
  const drawing::Color& color = record(superview).layer.background.model();
  constexpr double maxBrightness = 0.5;
  constexpr double minOpacity = 0.5;
  return color.alpha > minOpacity && std::max({color.red, color.green, color.blue}) < maxBrightness;
}

// Returns the material. Before 13.0, the appearance is always light, so the regular style would make white text on a
// dark background hard to read. The dark style replaces it there.
drawing::BlurStyle blurOf(const UIVisualEffectView* view) {
  const drawing::BlurStyle style =
      drawing::blurStyle(static_cast<int>(objc::state(objc::state(view).effect.get()).style));
  const bool adapts =
      style == drawing::BlurStyle::Regular && isOnDarkBackground(view) && systemVersionIsBelow("13.0"_ns);
  return adapts ? drawing::BlurStyle::Dark : style;
}

drawing::Appearance appearanceOf(const UIVisualEffectView* view) {
  return styleOf(view) == UIUserInterfaceStyle::Dark ? drawing::Appearance::Dark : drawing::Appearance::Light;
}

// Draws the material with an opacity of 1, because the renderer applies the opacity of the view.
void drawContent(UIVisualEffectView* self, void* canvas) {
  drawing::drawMaterial(*static_cast<drawing::Canvas*>(canvas), rectangle(shownBounds(self)), shownCorners(self),
                        blurOf(self), appearanceOf(self), 1);
}

CGRect contentArea(UIVisualEffectView* self) {
  return objc::state(self).effect == nullptr ? CGRect{} : shownBounds(self);
}

CGFloat contentReach(UIVisualEffectView* self, CGFloat scale) {
  const UIBlurEffect* shown = objc::state(self).effect;
  return shown == nullptr ? 0 : drawing::materialBlurMargin(blurOf(self), appearanceOf(self), scale);
}

void describe(UIVisualEffectView* self, void* description) {
  objc::sendSuper<"UIVisualEffectView", void, "_describe:">(self, description);
  const UIBlurEffect* shown = objc::state(self).effect;
  if (shown != nullptr) descriptionAt(description)["blur"] = static_cast<NSInteger>(objc::state(shown).style);
}

}  // namespace

void defineBlurEffect() {
  static constexpr objc::MethodEntry methods[] = {
      objc::classMethod<"effectWithStyle:", &effectWithStyle>(),
      objc::method<"copyWithZone:", &copyWithZone>(),
  };
  objc::defineClassWithState<UIBlurEffect>(methods);
}

void defineVisualEffectView() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"initWithEffect:", &initWithEffect>(),
      objc::method<"effect", &effect>(),
      objc::method<"setEffect:", &setEffect>(),
      objc::method<"contentView", &contentView>(),
      objc::method<"_drawContentInCanvas:", &drawContent>(),
      objc::method<"_contentArea", &contentArea>(),
      objc::method<"_contentReach:", &contentReach>(),
      objc::method<"_describe:", &describe>(),
  };
  objc::defineClassWithState<UIVisualEffectView>(methods);
}

}  // namespace uikit
