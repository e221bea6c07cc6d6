#include "simulator/settings/page_view.hpp"

#include <utility>

#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/preference_domain.hpp"
#include "simulator/settings/back_button.hpp"
#include "simulator/settings/list_controller.hpp"
#include "simulator/settings/page_style.hpp"
#include "simulator/uikit/views/color.hpp"
#include "simulator/uikit/views/view.hpp"

PageViewState::~PageViewState() {
  for (const std::string& domain : domains) foundation::PreferenceDomain::named(domain).stopObserving(this);
}

namespace settings_application {

namespace {

constexpr double transitionSeconds = 0.35;
constexpr CGFloat barEdgeHeight = 0.5;
constexpr CGFloat titleGap = 8;
// The distance by which the lower level moves, relative to the distance of the upper level.
constexpr CGFloat parallax = 0.3;

PageViewState& stateOf(const PSPageView* page) { return objc::state(page); }

void recolor(PSPageView* page) {
  const auto background = uikit::makeColor(pageColor(PageColor::Background, page));
  page->setBackgroundColor(background);
  stateOf(page).bar->setBackgroundColor(background);
  stateOf(page).barEdge->setBackgroundColor(uikit::makeColor(pageColor(PageColor::Separator, page)));
}

// Places a level, which is shifted toward the trailing edge by this fraction of the width of the page.
void placeLevel(PSPageView* page, const PageLevel& level, CGFloat shift) {
  const CGSize size = page->bounds().size;
  level.table->setFrame(
      uikit::mirroredIfNeeded(page, {{shift * size.width, barHeight}, {size.width, size.height - barHeight}}));
  // The title is centered, so the space for the back button is left free on both sides.
  const CGFloat side = widthOfBackButton(stateOf(page).back) + titleGap;
  level.title->setFrame(
      uikit::mirroredIfNeeded(page, {{shift * size.width + side, 0}, {size.width - 2 * side, barHeight}}));
  level.title->setAlpha(shift == 0 ? 1 : 0);
}

bool isSecondLevelOpen(const PSPageView* page) { return stateOf(page).levels.size() > 1; }

// Places the bar and the levels as they are at the end of a transition.
void placeParts(PSPageView* page) {
  PageViewState& state = stateOf(page);
  const CGFloat width = page->bounds().size.width;
  state.bar->setFrame({{}, {width, barHeight}});
  state.barEdge->setFrame({{0, barHeight - barEdgeHeight}, {width, barEdgeHeight}});
  state.back->setFrame(uikit::mirroredIfNeeded(page, {{}, {widthOfBackButton(state.back), barHeight}}));
  state.back->setAlpha(isSecondLevelOpen(page) ? 1 : 0);
  for (const PageLevel& level : state.levels) placeLevel(page, level, &level == &state.levels.back() ? 0 : -parallax);
}

void layoutSubviews(PSPageView* self) {
  objc::sendSuper<"PSPageView", void, "layoutSubviews">(self);
  if (stateOf(self).bar != nullptr) placeParts(self);
}

PageLevel addLevel(PSPageView* page, NSString* title, const std::vector<Section>& sections,
                   const std::function<void(const Row&)>& tapped) {
  PageLevel level = {makeLabel(textFontSize), makeTable(sections, tapped)};
  level.title->setFont(UIFont::boldSystemFontOfSize(textFontSize));
  level.title->setTextAlignment(NSTextAlignment::Center);
  level.title->setNumberOfLines(1);
  level.title->setText(title);
  page->addSubview(level.table);
  page->bringSubviewToFront(stateOf(page).bar);
  stateOf(page).bar->addSubview(level.title);
  stateOf(page).bar->bringSubviewToFront(stateOf(page).back);
  stateOf(page).levels.push_back(level);
  return level;
}

void showAll(PSPageView* page) {
  for (const PageLevel& level : stateOf(page).levels) showStoredValues(level.table);
}

void choose(PSPageView* page, const Row& choice) {
  change(choice.specifier, choice.choices.front().value);
  showAll(page);
}

void openList(PSPageView* page, const Row& list) {
  if (isSecondLevelOpen(page)) return;
  const PageLevel level = addLevel(page, base::stringOf(list.label), {choicesOf(list)},
                                   [page](const Row& choice) { choose(page, choice); });
  placeLevel(page, level, 1);
  const auto retained = objc::retain(page);
  UIView::animate(transitionSeconds, objc::block([retained] { placeParts(retained); }));
}

void goBack(PSPageView* self) {
  if (!isSecondLevelOpen(self)) return;
  const PageLevel closed = std::move(stateOf(self).levels.back());
  stateOf(self).levels.pop_back();
  const auto retained = objc::retain(self);
  UIView::animate(transitionSeconds, objc::block([retained, closed] {
                    placeParts(retained);
                    placeLevel(retained, closed, 1);
                  }),
                  objc::block([closed](bool) {
                    closed.table->removeFromSuperview();
                    closed.title->removeFromSuperview();
                  }));
}

// Handles a tap on a row of the first level.
void rowTapped(PSPageView* page, const Row& row) {
  if (row.kind == RowKind::List) openList(page, row);
  if (row.kind == RowKind::Button) tap(row.specifier);
}

void addBar(PSPageView* page, NSString* title) {
  PageViewState& state = stateOf(page);
  state.bar = UIView::withFrame<UIView>({});
  state.back = makeBackButton(title);
  state.back->addTarget(page, objc::selector<"_goBack">(), UIControlEvents::TouchUpInside);
  state.bar->addSubview(state.back);
  state.barEdge = UIView::withFrame<UIView>({});
  state.bar->addSubview(state.barEdge);
  page->addSubview(state.bar);
}

void observePreferences(PSPageView* page, std::vector<std::string> domains) {
  PageViewState& state = stateOf(page);
  state.domains = std::move(domains);
  for (const std::string& domain : state.domains)
    foundation::PreferenceDomain::named(domain).observe(&state, [page] { showAll(page); });
}

void traitCollectionDidChange(PSPageView* self, UITraitCollection* previous) {
  objc::sendSuper<"PSPageView", void, "traitCollectionDidChange:">(self, previous);
  recolor(self);
}

}  // namespace

objc::Ref<PSPageView> makePageView(PSListController* controller, NSString* title) {
  auto page = UIView::withFrame<PSPageView>({});
  PSPageView* const borrowed = page;
  addBar(page, title);
  recolor(page);
  NSArray* const specifiers = controller->specifiers();
  addLevel(page, title, sectionsOf(specifiers), [borrowed](const Row& row) { rowTapped(borrowed, row); });
  observePreferences(page, domainsOf(specifiers));
  return page;
}

void definePageView() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"layoutSubviews", &layoutSubviews>(),
      objc::method<"_goBack", &goBack>(),
      objc::method<"traitCollectionDidChange:", &traitCollectionDidChange>(),
  };
  objc::defineClassWithState<PSPageView>(methods);
}

}  // namespace settings_application
