// UIButton: a control with a title.
#include "platform/ui_button.hpp"

#include <algorithm>
#include <cmath>
#include <map>

#include "simulator/uikit/controls/control.hpp"
#include "simulator/uikit/environment/trait_collection.hpp"
#include "simulator/uikit/views/color.hpp"
#include "simulator/uikit/views/view.hpp"

// The label that shows the title. It invalidates the layout of its button when its own size changes.
class UIButtonLabel : public objc::Interface<"UIButtonLabel", UILabel> {};

// The values are those of the platform.
enum class UIButtonType : NSInteger { Custom, System };

struct ButtonState {
  UIButtonType type = UIButtonType::Custom;
  std::map<UIControlState, objc::Ref<NSString>> titles;
  std::map<UIControlState, objc::Ref<UIColor>> titleColors;
  objc::Ref<UILabel> titleLabel;
};
template <>
struct objc::StateOf<UIButton> {
  using Type = ButtonState;
};

namespace uikit {

namespace {

constexpr CGFloat customFontSize = 18;
constexpr CGFloat systemFontSize = 15;
constexpr CGFloat verticalPadding = 12;
constexpr CGFloat minWidth = 30;
constexpr CGFloat disabledOpacity = 0.3;
constexpr CGFloat pressedOpacity = 0.2;

UIControlState stateOf(const UIButton* button) { return objc::send<UIControlState, "state">(button); }

// Returns the value that was set for the state, or otherwise the value for the normal state. Returns null if neither
// was set.
template <class Object>
Object* valueFor(const std::map<UIControlState, objc::Ref<Object>>& values, UIControlState state) {
  auto found = values.find(state);
  if (found == values.end()) found = values.find(UIControlState::Normal);
  return found == values.end() ? nullptr : found->second.get();
}

UIColor* defaultTitleColor(UIButton* self) {
  return objc::state(self).type == UIButtonType::System ? tintColor(styleOf(self))
                                                        : labelColor(UIUserInterfaceStyle::Dark);
}

UIColor* titleColor(UIButton* self, UIControlState state) {
  UIColor* chosen = valueFor(objc::state(self).titleColors, state);
  return chosen != nullptr ? chosen : defaultTitleColor(self);
}

// Returns the opacity of the title. System buttons indicate their state with this opacity. Custom buttons indicate it
// only with the values that were set for the state.
CGFloat titleOpacity(const UIButton* button) {
  if (objc::state(button).type == UIButtonType::Custom) return 1;
  if (contains(stateOf(button), disabledState)) return disabledOpacity;
  return contains(stateOf(button), highlightedState) ? pressedOpacity : 1;
}

void updateTitle(UIButton* self) {
  const ButtonState& state = objc::state(self);
  state.titleLabel->setText(valueFor(state.titles, stateOf(self)));
  state.titleLabel->setTextColor(titleColor(self, stateOf(self)));
  state.titleLabel->setAlpha(titleOpacity(self));
}

UIButton* initWithFrame(UIButton* self, CGRect frame) {
  auto* button = objc::sendSuper<"UIButton", UIButton*, "initWithFrame:">(self, frame);
  if (button == nullptr) return nullptr;
  objc::Ref<UILabel>& label = objc::state(button).titleLabel;
  label = UIView::withFrame<UIButtonLabel>({});
  label->setFont(UIFont::systemFontOfSize(customFontSize));
  label->setTextAlignment(NSTextAlignment::Center);
  button->addSubview(label);
  updateTitle(button);
  return button;
}

UIButton* buttonWithType(Class self, UIButtonType type) {
  auto button = objc::adopt(objc::send<UIButton*, "new">(self));
  objc::state(button.get()).type = type;
  if (type == UIButtonType::System) button->titleLabel()->setFont(UIFont::systemFontOfSize(systemFontSize));
  updateTitle(button);
  return objc::autorelease(button);
}

UIButtonType buttonType(UIButton* self) { return objc::state(self).type; }
UILabel* titleLabel(UIButton* self) { return objc::state(self).titleLabel; }

// Sets the title for a state. nil removes it.
void setTitle(UIButton* self, NSString* title, UIControlState state) {
  auto& titles = objc::state(self).titles;
  if (title == nullptr) {
    titles.erase(state);
  } else {
    titles[state] = objc::adopt(objc::send<NSString*, "copy">(title));
  }
  updateTitle(self);
}
NSString* titleFor(UIButton* self, UIControlState state) { return valueFor(objc::state(self).titles, state); }
NSString* currentTitle(UIButton* self) { return titleFor(self, stateOf(self)); }

// Sets the color of the title for a state. nil restores the default color.
void setTitleColor(UIButton* self, UIColor* color, UIControlState state) {
  auto& colors = objc::state(self).titleColors;
  if (color == nullptr) {
    colors.erase(state);
  } else {
    colors[state] = objc::retain(color);
  }
  updateTitle(self);
}

void controlStateChanged(UIButton* self) {
  objc::sendSuper<"UIButton", void, "_controlStateChanged">(self);
  updateTitle(self);
}

void traitCollectionDidChange(UIButton* self, UITraitCollection* previous) {
  objc::sendSuper<"UIButton", void, "traitCollectionDidChange:">(self, previous);
  updateTitle(self);
}

CGSize titleSize(const UIButton* self) { return objc::send<CGSize, "intrinsicContentSize">(self->titleLabel()); }

CGSize intrinsicContentSize(UIButton* self) {
  const CGSize title = titleSize(self);
  return {std::max(title.width, minWidth), title.height + verticalPadding};
}
CGSize sizeThatFits(UIButton* self, CGSize) { return intrinsicContentSize(self); }

// Centers the title and aligns it with whole pixels.
void layoutSubviews(UIButton* self) {
  objc::sendSuper<"UIButton", void, "layoutSubviews">(self);
  const CGRect bounds = self->bounds();
  const CGSize title = titleSize(self);
  const CGSize size = {std::min(title.width, bounds.size.width), std::min(title.height, bounds.size.height)};
  const double scale = environment().device.scale;
  const auto middle = [scale](double origin, double room) { return origin + std::round(room / 2 * scale) / scale; };
  self->titleLabel()->setFrame({{middle(bounds.origin.x, bounds.size.width - size.width),
                                 middle(bounds.origin.y, bounds.size.height - size.height)},
                                size});
}

void invalidateLabelSize(UIButtonLabel* self) {
  objc::sendSuper<"UIButtonLabel", void, "invalidateIntrinsicContentSize">(self);
  UIView* button = self->superview();
  if (button == nullptr) return;
  invalidateIntrinsicContentSize(button);
  setNeedsLayout(button);
}

}  // namespace

void defineButton() {
  static constexpr objc::MethodEntry labelMethods[] = {
      objc::method<"invalidateIntrinsicContentSize", &invalidateLabelSize>(),
  };
  static constexpr objc::MethodEntry methods[] = {
      objc::classMethod<"buttonWithType:", &buttonWithType>(),
      objc::method<"initWithFrame:", &initWithFrame>(),
      objc::method<"buttonType", &buttonType>(),
      objc::method<"titleLabel", &titleLabel>(),
      objc::method<"setTitle:forState:", &setTitle>(),
      objc::method<"titleForState:", &titleFor>(),
      objc::method<"currentTitle", &currentTitle>(),
      objc::method<"setTitleColor:forState:", &setTitleColor>(),
      objc::method<"titleColorForState:", &titleColor>(),
      objc::method<"_controlStateChanged", &controlStateChanged>(),
      objc::method<"traitCollectionDidChange:", &traitCollectionDidChange>(),
      objc::method<"intrinsicContentSize", &intrinsicContentSize>(),
      objc::method<"sizeThatFits:", &sizeThatFits>(),
      objc::method<"layoutSubviews", &layoutSubviews>(),
  };
  objc::defineClass<UIButtonLabel>(labelMethods);
  objc::defineClassWithState<UIButton>(methods);
}

}  // namespace uikit
