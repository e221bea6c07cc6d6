#include "simulator/uikit/keyboard/keyboard_key.hpp"

#include <algorithm>
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

constexpr double maxCharacterSize = 22.5;
constexpr double wordSize = 16;
constexpr double labelMargin = 2;
constexpr double shadowHeight = 1;
constexpr drawing::CornerShape corners = {5, drawing::CornerCurve::Continuous};

// The colors of the keys in one appearance.
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

bool hasKeyCap(const Key& key) {
  return key.frame.size.height < 44 || (key.role != KeyRole::Globe && key.role != KeyRole::Microphone);
}

bool usesCharacterColor(const KeyViewState& state) {
  return state.key.role == KeyRole::Character || state.key.role == KeyRole::Space ||
         (state.key.role == KeyRole::Shift && state.shift == Shift::On);
}

// Returns the color of a key. A pressed character key has the color of a function key, and a pressed function key has
// the color of a character key.
const drawing::Color& capColor(const KeyViewState& state, const KeyPalette& palette, bool isPressed) {
  if (state.isProminent && !isPressed) return palette.prominent;
  if (state.key.role == KeyRole::Shift && state.shift == Shift::On) return lightPalette.character;
  return usesCharacterColor(state) != isPressed ? palette.character : palette.function;
}

const drawing::Color& symbolColor(const KeyViewState& state, const KeyPalette& palette) {
  if (state.isProminent) return palette.prominentText;
  return state.key.role == KeyRole::Shift && state.shift == Shift::On ? palette.pressedShift : palette.text;
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

// Returns the standard font size, or a smaller font size if the label would not fit into the key.
double fittingSize(const Key& key, double standardSize) {
  const double width = labelOf(key, standardSize).measure(0).width;
  const double availableWidth = key.frame.size.width - 2 * labelMargin;
  return width <= availableWidth ? standardSize : standardSize * availableWidth / width;
}

void drawLabel(drawing::Canvas& canvas, const KeyViewState& state, const drawing::Rectangle& area,
               const drawing::Color& color) {
  const bool isCharacter = state.key.role == KeyRole::Character;
  const double size = isCharacter ? state.characterSize : fittingSize(state.key, wordSize);
  labelOf(state.key, size).draw(canvas, area, color);
}

void drawContent(UIKBKeyView* self, void* target) {
  drawing::Canvas& canvas = *static_cast<drawing::Canvas*>(target);
  const KeyViewState& state = objc::state(self);
  const KeyPalette& palette = state.style == UIUserInterfaceStyle::Dark ? darkPalette : lightPalette;
  const drawing::Rectangle area = rectangle(shownBounds(self));
  if (hasKeyCap(state.key)) {
    canvas.fillRoundedRectangle({area.x, area.y + shadowHeight, area.width, area.height}, corners, palette.shadow);
    canvas.fillRoundedRectangle(area, corners, capColor(state, palette, objc::state<UIControl>(self).highlighted));
  }
  const drawing::Color& color = symbolColor(state, palette);
  drawLabel(canvas, state, area, color);
  drawKeyIcon(canvas, state.key.role, state.shift, area, color);
}

// The content area includes the shadow below the key.
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

double characterSizeFor(std::span<const Key> keys) {
  double size = maxCharacterSize;
  for (const Key& key : keys)
    if (key.role == KeyRole::Character) size = std::min(size, fittingSize(key, maxCharacterSize));
  return size;
}

objc::Ref<UIKBKeyView> makeKeyView(KeyViewState state) {
  auto view = UIView::withFrame<UIKBKeyView>(state.key.frame);
  objc::state(view.get()) = std::move(state);
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
