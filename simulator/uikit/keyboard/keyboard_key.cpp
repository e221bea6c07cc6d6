#include "simulator/uikit/keyboard/keyboard_key.hpp"

#include <nlohmann/json.hpp>

#include "simulator/uikit/controls/control.hpp"
#include "simulator/uikit/description/view_tree.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/keyboard/keyboard_icons.hpp"
#include "simulator/uikit/text/styled_text.hpp"
#include "simulator/uikit/text/utf8.hpp"
#include "simulator/uikit/views/view.hpp"

namespace uikit {

namespace {

constexpr double characterSize = 22.5;
constexpr double wordSize = 16;
constexpr double labelMargin = 2;
constexpr double shadowHeight = 1;
constexpr drawing::CornerShape corners = {5, drawing::CornerCurve::Continuous};

// The colors of one appearance.
struct KeyPalette {
  drawing::Color character, function, prominent, shadow, text, prominentText, pressedShift;
};

constexpr KeyPalette lightPalette = {
    {1, 1, 1, 1}, {0.675, 0.69, 0.725, 1}, {0, 0.478, 1, 1}, {0.53, 0.54, 0.56, 1}, {0, 0, 0, 1}, {1, 1, 1, 1},
    {0, 0, 0, 1}};
constexpr KeyPalette darkPalette = {{0.42, 0.42, 0.425, 1},
                                    {0.275, 0.275, 0.28, 1},
                                    {0.04, 0.52, 1, 1},
                                    {0.1, 0.1, 0.1, 1},
                                    {1, 1, 1, 1},
                                    {1, 1, 1, 1},
                                    {0, 0, 0, 1}};

bool hasFace(const Key& key) {
  return key.frame.size.height < 44 || (key.role != KeyRole::Globe && key.role != KeyRole::Microphone);
}

bool looksLikeACharacter(const KeyViewState& look) {
  return look.key.role == KeyRole::Character || look.key.role == KeyRole::Space ||
         (look.key.role == KeyRole::Shift && look.shift == Shift::On);
}

// A key under a finger changes to the other kind's color.
const drawing::Color& faceOf(const KeyViewState& look, const KeyPalette& palette, bool isPressed) {
  if (look.isProminent && !isPressed) return palette.prominent;
  if (look.key.role == KeyRole::Shift && look.shift == Shift::On) return lightPalette.character;
  return looksLikeACharacter(look) != isPressed ? palette.character : palette.function;
}

const drawing::Color& inkOf(const KeyViewState& look, const KeyPalette& palette) {
  if (look.isProminent) return palette.prominentText;
  return look.key.role == KeyRole::Shift && look.shift == Shift::On ? palette.pressedShift : palette.text;
}

drawing::TextLayout labelOf(const Key& key, double fontSize) {
  drawing::Run run;
  run.text = key.label;
  run.font.size = fontSize;
  drawing::Paragraph paragraph;
  paragraph.runs = {std::move(run)};
  paragraph.alignment = drawing::Alignment::Center;
  return {std::move(paragraph), environment().device.scale};
}

// A letter too wide for its key is smaller than the others.
void drawLabel(drawing::Canvas& canvas, const KeyViewState& look, const drawing::Rectangle& area,
               const drawing::Color& ink) {
  const double usualSize = look.key.role == KeyRole::Character ? characterSize : wordSize;
  const drawing::TextLayout label = labelOf(look.key, usualSize);
  const double width = label.measure(0).width;
  const double room = area.width - 2 * labelMargin;
  if (width <= room) return label.draw(canvas, area, ink);
  labelOf(look.key, usualSize * room / width).draw(canvas, area, ink);
}

void drawContent(UIKBKeyView* self, void* target) {
  drawing::Canvas& canvas = *static_cast<drawing::Canvas*>(target);
  const KeyViewState& look = objc::state(self);
  const KeyPalette& palette = look.style == UIUserInterfaceStyle::Dark ? darkPalette : lightPalette;
  const drawing::Rectangle area = rectangle(shownBounds(self));
  if (hasFace(look.key)) {
    canvas.fillRoundedRectangle({area.x, area.y + shadowHeight, area.width, area.height}, corners, palette.shadow);
    canvas.fillRoundedRectangle(area, corners, faceOf(look, palette, objc::state<UIControl>(self).highlighted));
  }
  const drawing::Color& ink = inkOf(look, palette);
  drawLabel(canvas, look, area, ink);
  drawKeyIcon(canvas, look.key.role, look.shift, {area.x + area.width / 2, area.y + area.height / 2}, ink);
}

// With the shadow beneath.
CGRect contentArea(UIKBKeyView* self) {
  const CGRect bounds = shownBounds(self);
  return {bounds.origin, {bounds.size.width, bounds.size.height + shadowHeight}};
}

NSString* text(UIKBKeyView* self) { return NSString::stringWithUTF8String(objc::state(self).key.label.c_str()); }

void describe(UIKBKeyView* self, void* description) {
  objc::sendSuper<"UIKBKeyView", void, "_describe:">(self, description);
  const std::string& label = objc::state(self).key.label;
  if (!label.empty()) descriptionAt(description)["text"] = label;
}

}  // namespace

objc::Ref<UIKBKeyView> makeKeyView(KeyViewState look) {
  auto view = UIView::withFrame<UIKBKeyView>(look.key.frame);
  objc::state(view.get()) = std::move(look);
  return view;
}

void defineKeyboardKey() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"text", &text>(),
      objc::method<"_drawContentInCanvas:", &drawContent>(),
      objc::method<"_contentArea", &contentArea>(),
      objc::method<"_describe:", &describe>(),
  };
  objc::defineClassWithState<UIKBKeyView>(methods);
}

}  // namespace uikit
