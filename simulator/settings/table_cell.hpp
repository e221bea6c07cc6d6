// A row of a page of the Settings application: a label with a switch, a slider, the selected value of a list, a check
// mark, or only the label of a button. Main thread.
#pragma once

#include <functional>

#include "objc/class_definition.hpp"
#include "platform/ui_label.hpp"
#include "simulator/settings/page_contents.hpp"
#include "simulator/uikit/controls/switch.hpp"

namespace settings_application {

enum class Separator { Hidden, Shown };

}  // namespace settings_application

struct TableCellState {
  settings_application::Row row;
  settings_application::Separator separator = settings_application::Separator::Hidden;
  std::function<void(const settings_application::Row&)> tapped;
  objc::Ref<UILabel> title;
  objc::Ref<UILabel> detail;  // the selected value of a list, or the value of a slider
  objc::Ref<UISwitch> toggle;
  objc::Ref<UISlider> slider;
  bool isChosen = false;  // whether the value of a choice is the stored one
};
class PSTableCell : public objc::Interface<"PSTableCell", UIControl> {};
template <>
struct objc::StateOf<PSTableCell> {
  using Type = TableCellState;
};

namespace settings_application {

// Creates a cell that shows the stored value. The cell itself stores the value of a switch or a slider that the user
// changes. It calls `tapped` if the user taps a list, a button or a choice.
objc::Ref<PSTableCell> makeCell(const Row& row, Separator separator, std::function<void(const Row&)> tapped);
// Returns the height that the cell needs at this width.
CGFloat heightOfCell(const PSTableCell* cell, CGFloat width);
// Shows the stored value again. Does not move a slider that the user drags.
void showStoredValue(PSTableCell* cell);

void defineTableCell();

}  // namespace settings_application
