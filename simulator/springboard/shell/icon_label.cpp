#include "simulator/springboard/shell/icon_label.hpp"

#include <nlohmann/json.hpp>

#include "simulator/base/foundation_json.hpp"
#include "simulator/drawing/canvas.hpp"
#include "simulator/drawing/text_layout.hpp"
#include "simulator/uikit/description/view_tree.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/views/view.hpp"

namespace springboard {

namespace {

constexpr double fontSize = 12;
// The offsets, in points, of the translucent copies of the text that form its shadow. The copies overlap next to the
// text, so the shadow is darkest there.
constexpr double shadowOffsets[] = {0.5, 1, 1.5};
constexpr drawing::Color shadowColor = {0, 0, 0, 0.07};

std::shared_ptr<const drawing::Image> renderText(const std::string& name, const drawing::Size& size) {
  const uikit::Environment& environment = uikit::environment();
  const drawing::TextLayout text({.runs = {{name, {.size = fontSize}, std::nullopt}},
                                  .alignment = drawing::Alignment::Center,
                                  .language = environment.locale},
                                 environment.device.scale);
  drawing::Canvas canvas(size, environment.device.scale);
  for (const double offset : shadowOffsets) {
    for (const double x : {-offset, offset}) {
      for (const double y : {-offset, offset})
        canvas.drawText(text, {x, y + 0.5, size.width, size.height}, shadowColor);
    }
  }
  canvas.drawText(text, {0, 0, size.width, size.height}, {1, 1, 1, 1});
  return canvas.snapshot();
}

void draw(SBIconLabelView* self, void* target) {
  const drawing::Rectangle bounds = uikit::rectangle(self->bounds());
  std::shared_ptr<const drawing::Image>& renderedText = objc::state(self).renderedText;
  if (renderedText == nullptr) renderedText = renderText(objc::state(self).name, {bounds.width, bounds.height});
  static_cast<drawing::Canvas*>(target)->drawImage(renderedText, bounds, drawing::ContentMode::ScaleToFill);
}

NSString* text(SBIconLabelView* self) { return base::stringOf(objc::state(self).name); }

void describe(SBIconLabelView* self, void* target) {
  objc::sendSuper<"SBIconLabelView", void, "_describe:">(self, target);
  uikit::descriptionAt(target)["text"] = objc::state(self).name;
}

}  // namespace

objc::Ref<SBIconLabelView> makeIconLabel(const std::string& name, const CGRect& frame) {
  auto label = UIView::withFrame<SBIconLabelView>(frame);
  label->setUserInteractionEnabled(false);
  objc::state(label.get()).name = name;
  return label;
}

void defineIconLabel() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"_drawContentInCanvas:", &draw>(),
      objc::method<"_describe:", &describe>(),
      objc::method<"text", &text>(),
  };
  objc::defineClassWithState<SBIconLabelView>(methods);
}

}  // namespace springboard
