#include "simulator/springboard/springboard_startup.hpp"

#include <nlohmann/json.hpp>

#include "objc/autorelease_pool.hpp"
#include "simulator/base/event_log.hpp"
#include "simulator/springboard/banner/banner_presenter.hpp"
#include "simulator/springboard/banner/banner_window.hpp"
#include "simulator/springboard/banner/notification_view.hpp"
#include "simulator/springboard/banner/notification_view_controller.hpp"
#include "simulator/springboard/list/notification_list_cell.hpp"
#include "simulator/springboard/list/notification_list_view.hpp"
#include "simulator/springboard/long_look/action_group_view.hpp"
#include "simulator/springboard/long_look/action_row.hpp"
#include "simulator/springboard/long_look/long_look_close_button.hpp"
#include "simulator/springboard/long_look/long_look_controller.hpp"
#include "simulator/springboard/long_look/long_look_presenter.hpp"
#include "simulator/springboard/long_look/long_look_view.hpp"
#include "simulator/springboard/long_look/reply_bar.hpp"
#include "simulator/springboard/platter/platter_header.hpp"
#include "simulator/springboard/platter/touch_pass_through.hpp"
#include "simulator/springboard/services/applications.hpp"
#include "simulator/springboard/services/bulletin_server.hpp"
#include "simulator/springboard/services/bulletin_socket.hpp"
#include "simulator/springboard/services/feedback.hpp"
#include "simulator/springboard/services/notification_description.hpp"
#include "simulator/springboard/services/notification_dispatcher.hpp"
#include "simulator/springboard/services/notification_request.hpp"
#include "simulator/springboard/services/placeholder_digest.hpp"
#include "simulator/springboard/settings_application/settings_view.hpp"
#include "simulator/springboard/shell/application_page.hpp"
#include "simulator/springboard/shell/cover_sheet.hpp"
#include "simulator/springboard/shell/grabber.hpp"
#include "simulator/springboard/shell/home_indicator.hpp"
#include "simulator/springboard/shell/home_screen.hpp"
#include "simulator/springboard/shell/icon_label.hpp"
#include "simulator/springboard/shell/lock_screen.hpp"
#include "simulator/springboard/shell/notification_center.hpp"
#include "simulator/springboard/shell/springboard_application.hpp"
#include "simulator/springboard/shell/status_bar.hpp"
#include "simulator/springboard/shell/wallpaper_view.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/views/window.hpp"

namespace springboard {

namespace {

objc::Ref<UIWindow> makeHomeWindow() {
  auto window = UIView::withFrame<UIWindow>({{}, uikit::environment().device.screen});
  const auto homeScreen = objc::make<SBHomeScreenViewController>();
  objc::send<void, "setRootViewController:">(window.get(), homeScreen.get());
  window->makeKeyAndVisible();
  return window;
}

void presentBulletin(const process::Bulletin& bulletin) {
  NotificationDescription description;
  description.section = bulletin.section;
  description.thread = bulletin.thread;
  description.title = bulletin.title;
  description.message = bulletin.message;
  NCNotificationDispatcher::shared()->post(makeRequest(description, nullptr));
  base::recordEvent("banner", {{"controller", bannerCount()}, {"section", description.section}});
}

void addDestinations() {
  addNotificationDestination({
      .post = [](NCNotificationRequest* request) { presentBanner(makeShortLookController(request)); },
      .withdraw = &dismissBannersOf,
  });
  addNotificationDestination({
      .post = [](NCNotificationRequest*) {},
      .withdraw = &dismissLongLookOf,
  });
}

}  // namespace

void registerClasses() {
  const objc::AutoreleasePool pool;
  defineNotificationRequest();
  defineTouchPassThroughView();
  definePlatterHeader();
  defineShortLookView();
  defineNotificationView();
  defineNotificationViewControllers();
  defineCloseButton();
  defineLongLookView();
  defineActionRow();
  defineActionGroupView();
  defineReplyBar();
  defineLongLookController();
  defineBannerWindow();
  defineStatusBar();
  defineIconLabel();
  defineWallpaperView();
  defineHomeIndicator();
  defineHomeScreen();
  defineNotificationDispatcher();
  defineListCell();
  defineListView();
  defineCoverSheet();
  defineLockScreen();
  defineNotificationCenter();
  defineGrabber();
  defineSettingsView();
  defineApplication();
  defineBulletinServer();
  defineFeedback();
  setLongLookPresentation(
      {.present = &presentLongLook, .dismiss = &dismissLongLook, .openedShortLook = &openedShortLook});
  addDestinations();
  // Hides the status bar, because the sample banner covers its position, as a presented banner does.
  setPageContents("com.apple.Preferences", {&makeSettingsView, StatusBarVisibility::Hidden});
}

void startServices(const std::filesystem::path& applicationArtwork) {
  const objc::AutoreleasePool pool;
  registerApplications(applicationArtwork);
  installPlaceholderDigest();
  uikit::setSharedApplication(objc::make<SpringBoard>());
  makeBannerWindow();
  startBulletinServer();
  listenForBulletins(&presentBulletin);
}

void startShell() {
  const objc::AutoreleasePool pool;
  setHomeWindow(makeHomeWindow());
  enableNotificationCenter(makeStatusBar());
}

}  // namespace springboard
