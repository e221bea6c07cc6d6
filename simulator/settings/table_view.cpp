#include "simulator/settings/table_view.hpp"

#include "simulator/base/foundation_json.hpp"
#include "simulator/settings/page_style.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/views/color.hpp"
#include "simulator/uikit/views/view.hpp"

namespace settings_application {

namespace {

constexpr CGFloat noteMargin = cardMargin + textMargin;
constexpr CGFloat noteGap = 7;
constexpr CGFloat gapAboveSection = 18;
constexpr CGFloat gapBelowSections = 24;

TableViewState& stateOf(const PSTableView* table) { return objc::state(table); }

objc::Ref<UILabel> addNote(PSTableView* table, const std::string& text) {
  auto label = makeLabel(noteFontSize);
  label->setText(base::stringOf(text));
  label->setTextColor(uikit::makeColor(pageColor(PageColor::SecondaryText, table)));
  table->addSubview(label);
  return label;
}

objc::Ref<UIView> addCard(PSTableView* table) {
  auto card = UIView::withFrame<UIView>({});
  card->layer()->setCornerRadius(cardCornerRadius);
  card->layer()->setContinuousCorners(true);
  card->setClipsToBounds(true);
  table->addSubview(card);
  return card;
}

void addSection(PSTableView* table, const Section& section, const std::function<void(const Row&)>& tapped) {
  TableSection views;
  views.header = addNote(table, section.header);
  views.card = addCard(table);
  for (std::size_t index = 0; index < section.rows.size(); ++index) {
    const bool isLast = index + 1 == section.rows.size();
    views.cells.push_back(makeCell(section.rows[index], isLast ? Separator::Hidden : Separator::Shown, tapped));
    views.card->addSubview(views.cells.back());
  }
  views.footer = addNote(table, section.footer);
  stateOf(table).sections.push_back(std::move(views));
}

// Places a header or footer, and returns its lower edge.
CGFloat placeNote(UILabel* label, CGFloat top, CGFloat tableWidth) {
  const CGFloat width = tableWidth - 2 * noteMargin;
  const CGFloat height = heightOfLabel(label, width);
  label->setFrame({{noteMargin, top}, {width, height}});
  return top + height;
}

CGFloat placeRows(const TableSection& section, CGFloat top, CGFloat tableWidth) {
  const CGFloat width = tableWidth - 2 * cardMargin;
  CGFloat height = 0;
  for (const objc::Ref<PSTableCell>& cell : section.cells) {
    const CGFloat cellHeight = heightOfCell(cell, width);
    cell->setFrame({{0, height}, {width, cellHeight}});
    height += cellHeight;
  }
  section.card->setFrame({{cardMargin, top}, {width, height}});
  return top + height;
}

bool hasText(const UILabel* label) { return label->text()->length() != 0; }

CGFloat placeSection(TableSection& section, CGFloat top, CGFloat width) {
  section.top = top + gapAboveSection;
  const CGFloat header = placeNote(section.header, section.top, width);
  const CGFloat rows = placeRows(section, header + (hasText(section.header) ? noteGap : 0), width);
  section.bottom = placeNote(section.footer, rows + (hasText(section.footer) ? noteGap : 0), width);
  return section.bottom;
}

void placeSections(PSTableView* table, CGFloat width) {
  stateOf(table).laidOutWidth = width;
  CGFloat bottom = 0;
  for (TableSection& section : stateOf(table).sections) bottom = placeSection(section, bottom, width);
  table->setContentHeight(bottom + gapBelowSections + uikit::environment().device.safeArea.bottom);
}

void hideInvisibleSections(PSTableView* table) {
  const CGFloat top = table->contentOffset();
  const CGFloat bottom = top + table->bounds().size.height;
  for (const TableSection& section : stateOf(table).sections) {
    const bool isHidden = section.bottom < top || section.top > bottom;
    section.header->setHidden(isHidden);
    section.card->setHidden(isHidden);
    section.footer->setHidden(isHidden);
  }
}

void layoutSubviews(PSTableView* self) {
  objc::sendSuper<"PSTableView", void, "layoutSubviews">(self);
  const CGFloat width = self->bounds().size.width;
  if (width != stateOf(self).laidOutWidth) placeSections(self, width);
  hideInvisibleSections(self);
}

void traitCollectionDidChange(PSTableView* self, UITraitCollection* previous) {
  objc::sendSuper<"PSTableView", void, "traitCollectionDidChange:">(self, previous);
  const auto color = uikit::makeColor(pageColor(PageColor::SecondaryText, self));
  for (const TableSection& section : stateOf(self).sections)
    for (UILabel* label : {section.header.get(), section.footer.get()}) label->setTextColor(color);
  self->setBackgroundColor(uikit::makeColor(pageColor(PageColor::Background, self)));
}

}  // namespace

objc::Ref<PSTableView> makeTable(const std::vector<Section>& sections, const std::function<void(const Row&)>& tapped) {
  auto table = UIView::withFrame<PSTableView>({});
  table->setBackgroundColor(uikit::makeColor(pageColor(PageColor::Background, table)));
  for (const Section& section : sections) addSection(table, section, tapped);
  return table;
}

void showStoredValues(PSTableView* table) {
  for (const TableSection& section : stateOf(table).sections)
    for (const objc::Ref<PSTableCell>& cell : section.cells) showStoredValue(cell);
}

void defineTableView() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"layoutSubviews", &layoutSubviews>(),
      objc::method<"traitCollectionDidChange:", &traitCollectionDidChange>(),
  };
  objc::defineClassWithState<PSTableView>(methods);
}

}  // namespace settings_application
