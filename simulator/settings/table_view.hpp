// The scrolling list of a page of the Settings application: sections of rows on rounded cards, with headers and
// footers. Main thread.
#pragma once

#include "simulator/settings/table_cell.hpp"
#include "simulator/uikit/controls/scroll_view.hpp"

struct TableSection {
  objc::Ref<UILabel> header;
  objc::Ref<UIView> card;
  std::vector<objc::Ref<PSTableCell>> cells;
  objc::Ref<UILabel> footer;
  CGFloat top = 0;
  CGFloat bottom = 0;
};
struct TableViewState {
  std::vector<TableSection> sections;
  CGFloat laidOutWidth = 0;
};
class PSTableView : public objc::Interface<"PSTableView", UIScrollView> {};
template <>
struct objc::StateOf<PSTableView> {
  using Type = TableViewState;
};

namespace settings_application {

// Creates a list of the sections. Sections outside of the visible part are hidden, so they are not drawn. `tapped` is
// called as makeCell describes.
objc::Ref<PSTableView> makeTable(const std::vector<Section>& sections, const std::function<void(const Row&)>& tapped);
// Shows the stored values of all rows again.
void showStoredValues(PSTableView* table);

void defineTableView();

}  // namespace settings_application
