#include "simulator/settings/table_cell.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <utility>

#include "platform/ns_number.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/settings/list_controller.hpp"
#include "simulator/settings/page_style.hpp"
#include "simulator/uikit/description/view_tree.hpp"
#include "simulator/uikit/views/color.hpp"
#include "simulator/uikit/views/view.hpp"

namespace settings_application {

namespace {

constexpr CGFloat minHeight = 44;
constexpr CGFloat verticalPadding = 11;
constexpr CGFloat gap = 10;
constexpr CGFloat chevronWidth = 7;
constexpr CGFloat chevronHeight = 12;
constexpr CGFloat checkWidth = 13;
constexpr CGFloat lineWidth = 2;
constexpr CGFloat separatorHeight = 0.5;
constexpr CGFloat valueWidth = 36;
// The distance by which a slider extends beyond the text margin, because its track is inset.
constexpr CGFloat sliderOutset = 11;
constexpr CGFloat maxDetailShare = 0.55;

TableCellState& stateOf(const PSTableCell* cell) { return objc::state(cell); }

enum class Tapping { Ignored, Reported };

// The differences between the kinds of rows.
struct CellKind {
  Tapping tapping;
  void (*addParts)(PSTableCell*);
  void (*showValue)(PSTableCell*);
  // Returns the width at the trailing edge that the title cannot use.
  CGFloat (*trailingWidth)(const PSTableCell*, CGFloat width);
  void (*placeParts)(PSTableCell*, CGSize);
  void (*drawAccessory)(PSTableCell*, drawing::Canvas&, CGSize);
};

void noParts(PSTableCell*) {}
void noPlaces(PSTableCell*, CGSize) {}
void noAccessory(PSTableCell*, drawing::Canvas&, CGSize) {}
CGFloat noWidth(const PSTableCell*, CGFloat) { return 0; }

void place(const PSTableCell* cell, UIView* part, const CGRect& frame) {
  part->setFrame(uikit::mirroredIfNeeded(cell, frame));
}

bool isRightToLeft(const PSTableCell* cell) {
  return uikit::effectiveDirection(cell) == uikit::LayoutDirection::RightToLeft;
}

// Draws connected lines. Mirrors them in right-to-left languages.
void drawLines(const PSTableCell* cell, drawing::Canvas& canvas, std::initializer_list<drawing::Point> points,
               const drawing::Color& color) {
  const CGFloat width = cell->bounds().size.width;
  const auto placed = [&](drawing::Point point) {
    return isRightToLeft(cell) ? drawing::Point{width - point.x, point.y} : point;
  };
  for (const drawing::Point* point = points.begin(); point + 1 != points.end(); ++point)
    canvas.strokeLine(placed(point[0]), placed(point[1]), lineWidth, color);
}

void setDetail(PSTableCell* cell, const std::string& text) {
  stateOf(cell).detail->setText(base::stringOf(text));
  uikit::setNeedsLayout(cell);
}

void addDetail(PSTableCell* cell) {
  stateOf(cell).detail = makeLabel(textFontSize);
  stateOf(cell).detail->setNumberOfLines(1);
  cell->addSubview(stateOf(cell).detail);
}

// Switches.

void addSwitch(PSTableCell* cell) {
  stateOf(cell).toggle = UIView::withFrame<UISwitch>({});
  stateOf(cell).toggle->addTarget(cell, objc::selector<"_switched">(), uikit::valueChanged);
  cell->addSubview(stateOf(cell).toggle);
}
void showSwitch(PSTableCell* cell) { stateOf(cell).toggle->setOn(switchValue(stateOf(cell).row.specifier)); }
CGFloat switchWidth(const PSTableCell*, CGFloat) { return uikit::switchSize.width + gap; }
void placeSwitch(PSTableCell* cell, CGSize size) {
  place(cell, stateOf(cell).toggle,
        {{size.width - textMargin - uikit::switchSize.width, (size.height - uikit::switchSize.height) / 2},
         uikit::switchSize});
}

// Sliders.

std::string textOf(double value) {
  char text[32];
  std::snprintf(text, sizeof text, std::abs(value - std::round(value)) < 0.05 ? "%.0f" : "%.1f", value);
  return text;
}

void addSlider(PSTableCell* cell) {
  TableCellState& state = stateOf(cell);
  state.slider = UIView::withFrame<UISlider>({});
  state.slider->setRange(state.row.range);
  state.slider->addTarget(cell, objc::selector<"_slid">(), uikit::valueChanged);
  state.slider->addTarget(cell, objc::selector<"_showStoredValue">(), UIControlEvents::TouchUpInside);
  state.slider->addTarget(cell, objc::selector<"_showStoredValue">(), uikit::touchUpOutside);
  state.slider->addTarget(cell, objc::selector<"_showStoredValue">(), uikit::touchCancel);
  cell->addSubview(state.slider);
  if (state.row.valueLabel == ValueLabel::Hidden) return;
  addDetail(cell);
  state.detail->setTextAlignment(isRightToLeft(cell) ? NSTextAlignment::Left : NSTextAlignment::Right);
}
void showSlider(PSTableCell* cell) {
  const double value = sliderValue(stateOf(cell).row);
  stateOf(cell).slider->setValue(value);
  if (stateOf(cell).detail != nullptr) setDetail(cell, textOf(value));
}
void placeSlider(PSTableCell* cell, CGSize size) {
  const TableCellState& state = stateOf(cell);
  const CGFloat label = state.detail == nullptr ? 0 : valueWidth;
  place(cell, state.slider,
        {{textMargin - sliderOutset, 0}, {size.width - 2 * (textMargin - sliderOutset) - label, size.height}});
  if (state.detail != nullptr)
    place(cell, state.detail, {{size.width - textMargin - valueWidth, 0}, {valueWidth, size.height}});
}

// Lists.

void showList(PSTableCell* cell) {
  const Row& row = stateOf(cell).row;
  const std::size_t selected = selectedChoice(row.specifier, row.choices);
  setDetail(cell, selected < row.choices.size() ? row.choices[selected].title : std::string());
}
CGFloat detailWidth(const PSTableCell* cell, CGFloat width) {
  return std::min(widthOfLabel(stateOf(cell).detail), (width - 2 * textMargin) * maxDetailShare);
}
CGFloat listWidth(const PSTableCell* cell, CGFloat width) { return detailWidth(cell, width) + chevronWidth + 2 * gap; }
void placeList(PSTableCell* cell, CGSize size) {
  const CGFloat width = detailWidth(cell, size.width);
  place(cell, stateOf(cell).detail, {{size.width - textMargin - chevronWidth - gap - width, 0}, {width, size.height}});
}
void drawChevron(PSTableCell* cell, drawing::Canvas& canvas, CGSize size) {
  const CGFloat right = size.width - textMargin;
  const CGFloat middle = size.height / 2;
  drawLines(cell, canvas,
            {{right - chevronHeight / 2, middle - chevronHeight / 2},
             {right, middle},
             {right - chevronHeight / 2, middle + chevronHeight / 2}},
            pageColor(PageColor::Accessory, cell));
}

// Choices and buttons.

void showChoice(PSTableCell* cell) {
  TableCellState& state = stateOf(cell);
  state.isChosen = selectedChoice(state.row.specifier, state.row.choices) == 0;
  uikit::setNeedsDisplay(cell);
}
CGFloat choiceWidth(const PSTableCell*, CGFloat) { return checkWidth + gap; }
void drawCheck(PSTableCell* cell, drawing::Canvas& canvas, CGSize size) {
  if (!stateOf(cell).isChosen) return;
  const CGFloat right = size.width - textMargin;
  const CGFloat middle = size.height / 2;
  // drawLines mirrors the points in right-to-left languages. Mirroring them here too preserves the shape of the check
  // mark.
  const CGFloat left = right - checkWidth;
  const auto at = [&](CGFloat x, CGFloat y) {
    return drawing::Point{isRightToLeft(cell) ? right - x : left + x, middle + y};
  };
  drawLines(cell, canvas, {at(0, 0.5), at(4.5, 5), at(checkWidth, -5.5)},
            uikit::colorOf(uikit::tintColor(uikit::styleOf(cell))));
}

// The order of the rows is that of RowKind.
constexpr CellKind kinds[] = {
    {Tapping::Ignored, &addSwitch, &showSwitch, &switchWidth, &placeSwitch, &noAccessory},
    {Tapping::Ignored, &addSlider, &showSlider, &noWidth, &placeSlider, &noAccessory},
    {Tapping::Reported, &addDetail, &showList, &listWidth, &placeList, &drawChevron},
    {Tapping::Reported, &noParts, &noParts, &noWidth, &noPlaces, &noAccessory},
    {Tapping::Reported, &noParts, &showChoice, &choiceWidth, &noPlaces, &drawCheck},
};

const CellKind& kindOf(const PSTableCell* cell) { return kinds[static_cast<std::size_t>(stateOf(cell).row.kind)]; }

void recolor(PSTableCell* cell) {
  const TableCellState& state = stateOf(cell);
  if (state.row.kind == RowKind::Button) state.title->setTextColor(uikit::tintColor(uikit::styleOf(cell)));
  if (state.detail != nullptr) state.detail->setTextColor(uikit::makeColor(pageColor(PageColor::SecondaryText, cell)));
}

CGFloat titleWidth(const PSTableCell* cell, CGFloat width) {
  return width - 2 * textMargin - kindOf(cell).trailingWidth(cell, width);
}

void layoutSubviews(PSTableCell* self) {
  objc::sendSuper<"PSTableCell", void, "layoutSubviews">(self);
  const CGSize size = self->bounds().size;
  if (stateOf(self).title == nullptr) return;
  place(self, stateOf(self).title, {{textMargin, 0}, {titleWidth(self, size.width), size.height}});
  kindOf(self).placeParts(self, size);
}

void draw(PSTableCell* self, void* target) {
  auto& canvas = *static_cast<drawing::Canvas*>(target);
  const CGSize size = self->bounds().size;
  const bool isPressed = objc::state<UIControl>(self).highlighted && kindOf(self).tapping == Tapping::Reported;
  canvas.fillRectangle({0, 0, size.width, size.height},
                       pageColor(isPressed ? PageColor::Highlight : PageColor::Card, self));
  if (stateOf(self).separator == Separator::Shown) {
    const CGFloat left = isRightToLeft(self) ? 0 : textMargin;
    canvas.fillRectangle({left, size.height - separatorHeight, size.width - textMargin, separatorHeight},
                         pageColor(PageColor::Separator, self));
  }
  kindOf(self).drawAccessory(self, canvas, size);
}

void tapped(PSTableCell* self) {
  if (kindOf(self).tapping == Tapping::Ignored) return;
  const objc::Ref<PSTableCell> retained = objc::retain(self);
  // A copy, because the function can remove the cell.
  const auto report = stateOf(self).tapped;
  report(stateOf(self).row);
}

// Shows the stored value afterwards, because it is still the old value if the disk is full.
void store(PSTableCell* self, NSObject* value) {
  change(stateOf(self).row.specifier, value);
  showStoredValue(self);
}
void switched(PSTableCell* self) { store(self, NSNumber::numberWithBool(stateOf(self).toggle->isOn())); }
void slid(PSTableCell* self) { store(self, NSNumber::numberWithDouble(stateOf(self).slider->value())); }

void describe(PSTableCell* self, void* description) {
  objc::sendSuper<"PSTableCell", void, "_describe:">(self, description);
  NSObject* const key = stateOf(self).row.specifier->propertyForKey("key"_ns);
  if (key != nullptr) uikit::descriptionAt(description)["key"] = base::jsonOf(key);
}

void traitCollectionDidChange(PSTableCell* self, UITraitCollection* previous) {
  objc::sendSuper<"PSTableCell", void, "traitCollectionDidChange:">(self, previous);
  recolor(self);
}

}  // namespace

objc::Ref<PSTableCell> makeCell(const Row& row, Separator separator, std::function<void(const Row&)> tapped) {
  auto cell = UIView::withFrame<PSTableCell>({});
  TableCellState& state = stateOf(cell);
  state.row = row;
  state.separator = separator;
  state.tapped = std::move(tapped);
  state.title = makeLabel(textFontSize);
  if (row.kind != RowKind::Slider) state.title->setText(base::stringOf(row.label));
  cell->addSubview(state.title);
  kindOf(cell).addParts(cell);
  cell->addTarget(cell, objc::selector<"_tapped">(), UIControlEvents::TouchUpInside);
  recolor(cell);
  kindOf(cell).showValue(cell);
  return cell;
}

CGFloat heightOfCell(const PSTableCell* cell, CGFloat width) {
  return std::max(minHeight, heightOfLabel(stateOf(cell).title, titleWidth(cell, width)) + 2 * verticalPadding);
}

void showStoredValue(PSTableCell* cell) { kindOf(cell).showValue(cell); }

void defineTableCell() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"layoutSubviews", &layoutSubviews>(),
      objc::method<"_drawContentInCanvas:", &draw>(),
      objc::method<"_tapped", &tapped>(),
      objc::method<"_switched", &switched>(),
      objc::method<"_slid", &slid>(),
      objc::method<"_showStoredValue", &showStoredValue>(),
      objc::method<"_describe:", &describe>(),
      objc::method<"traitCollectionDidChange:", &traitCollectionDidChange>(),
  };
  objc::defineClassWithState<PSTableCell>(methods);
}

}  // namespace settings_application
