#include "simulator/springboard/shell/application_page.hpp"

#include <map>

#include "platform/ui_image_view.hpp"
#include "platform/ui_label.hpp"
#include "platform/ui_visual_effect_view.hpp"
#include "platform/ui_window.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/springboard/banner/banner_window.hpp"
#include "simulator/springboard/services/applications.hpp"
#include "simulator/springboard/shell/home_indicator.hpp"
#include "simulator/springboard/shell/wallpaper_view.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace springboard {

namespace {

// The window level of the page. It is between the levels of the home screen and the lock screen.
constexpr double pageLevel = 1;
constexpr double openingSeconds = 0.3;
// The corner radius of a page that opens or closes.
constexpr CGFloat movingCornerRadius = 30;
constexpr CGFloat iconSide = 96;
constexpr CGFloat iconCornerRadius = 21.5;
constexpr CGFloat nameGap = 16;
constexpr CGFloat nameHeight = 30;
constexpr CGFloat nameFontSize = 24;

struct Page {
  StatusBarVisibility statusBar = StatusBarVisibility::Shown;
  objc::Ref<UIWindow> window;
  objc::Ref<UIView> contents;
  CGRect icon = {};  // the frame of the icon on the home screen
};

Page& openPage() {
  static Page& page = *new Page;
  return page;
}

std::map<std::string, PageContents>& contentsOfApplications() {
  static auto& all = *new std::map<std::string, PageContents>;
  return all;
}

CGRect screen() { return {{}, uikit::environment().device.screen}; }

void addBackground(UIView* contents) {
  contents->addSubview(makeWallpaperView());
  auto blur = UIVisualEffectView::withEffect(UIBlurEffect::withStyle(UIBlurEffectStyle::Dark));
  blur->setFrame(screen());
  contents->addSubview(blur);
}

void addIconAndName(UIView* contents, const std::string& bundleIdentifier) {
  const CGSize size = screen().size;
  const CGFloat top = (size.height - iconSide - nameGap - nameHeight) / 2;
  auto icon = UIView::withFrame<UIImageView>({{(size.width - iconSide) / 2, top}, {iconSide, iconSide}});
  icon->setImage(iconOf(base::stringOf(bundleIdentifier)));
  icon->layer()->setCornerRadius(iconCornerRadius);
  icon->layer()->setContinuousCorners(true);
  icon->setClipsToBounds(true);
  contents->addSubview(icon);
  auto name = UIView::withFrame<UILabel>({{0, top + iconSide + nameGap}, {size.width, nameHeight}});
  name->setFont(UIFont::systemFontOfSize(nameFontSize));
  name->setTextColor(UIColor::withRed(1, 1, 1, 1));
  name->setTextAlignment(NSTextAlignment::Center);
  name->setText(base::stringOf(nameOf(bundleIdentifier)));
  contents->addSubview(name);
}

objc::Ref<UIView> makePlainContents(const std::string& bundleIdentifier) {
  auto contents = UIView::withFrame<UIView>(screen());
  addBackground(contents);
  addIconAndName(contents, bundleIdentifier);
  addHomeIndicator(contents, IndicatorColor::White, &closeApplicationPage);
  return contents;
}

void addContents(Page& page, const std::string& bundleIdentifier) {
  const auto found = contentsOfApplications().find(bundleIdentifier);
  if (found == contentsOfApplications().end()) {
    page.contents = makePlainContents(bundleIdentifier);
  } else {
    page.contents = found->second.make();
    page.statusBar = found->second.statusBar;
    addHomeIndicator(page.contents, IndicatorColor::OfTexts, &closeApplicationPage);
  }
  page.window->addSubview(page.contents);
}

// Collapses the page to the icon. The contents keep their size and remain centered in the window.
void collapse(const Page& page) {
  const CGSize size = screen().size;
  page.window->setFrame(page.icon);
  page.window->setAlpha(0);
  setStatusBarVisibility(StatusBarVisibility::Shown);
  page.contents->setFrame({{(page.icon.size.width - size.width) / 2, (page.icon.size.height - size.height) / 2}, size});
}

void expand(const Page& page) {
  page.window->setFrame(screen());
  page.window->setAlpha(1);
  setStatusBarVisibility(page.statusBar);
  page.contents->setFrame(screen());
}

void setCornerRadius(const Page& page, CGFloat radius) { page.window->layer()->setCornerRadius(radius); }

}  // namespace

void setPageContents(const std::string& bundleIdentifier, const PageContents& contents) {
  contentsOfApplications()[bundleIdentifier] = contents;
}

void openApplicationPage(const std::string& bundleIdentifier, CGRect icon) {
  if (openPage().window != nullptr) return;
  Page page;
  page.window = UIView::withFrame<UIWindow>(screen());
  page.icon = icon;
  objc::send<void, "setWindowLevel:">(page.window.get(), CGFloat{pageLevel});
  page.window->setClipsToBounds(true);
  page.window->layer()->setContinuousCorners(true);
  addContents(page, bundleIdentifier);
  openPage() = page;
  collapse(page);
  setCornerRadius(page, movingCornerRadius);
  page.window->setHidden(false);
  UIView::animate(openingSeconds, objc::block([page] { expand(page); }), objc::block([page](bool) {
                    if (openPage().window == page.window) setCornerRadius(page, 0);
                  }));
}

void closeApplicationPage() {
  const Page page = openPage();
  if (page.window == nullptr) return;
  openPage() = {};
  page.window->setUserInteractionEnabled(false);
  setCornerRadius(page, movingCornerRadius);
  UIView::animate(openingSeconds, objc::block([page] { collapse(page); }),
                  objc::block([page](bool) { hideWindowAboveHomeScreen(page.window); }));
}

StatusBarVisibility statusBarOfOpenPage() { return openPage().statusBar; }

}  // namespace springboard
