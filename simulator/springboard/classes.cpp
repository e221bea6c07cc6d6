#include "simulator/springboard/classes.hpp"

#include "objc/autorelease_pool.hpp"
#include "simulator/springboard/action_group_view.hpp"
#include "simulator/springboard/action_row.hpp"
#include "simulator/springboard/applications.hpp"
#include "simulator/springboard/banner_window.hpp"
#include "simulator/springboard/bulletin_server.hpp"
#include "simulator/springboard/bulletin_socket.hpp"
#include "simulator/springboard/feedback.hpp"
#include "simulator/springboard/grabber.hpp"
#include "simulator/springboard/home_screen.hpp"
#include "simulator/springboard/icon_label.hpp"
#include "simulator/springboard/lock_screen.hpp"
#include "simulator/springboard/long_look_close_button.hpp"
#include "simulator/springboard/long_look_controller.hpp"
#include "simulator/springboard/long_look_view.hpp"
#include "simulator/springboard/notification_dispatcher.hpp"
#include "simulator/springboard/notification_list_cell.hpp"
#include "simulator/springboard/notification_list_view.hpp"
#include "simulator/springboard/notification_request.hpp"
#include "simulator/springboard/notification_view.hpp"
#include "simulator/springboard/notification_view_controller.hpp"
#include "simulator/springboard/placeholder_digest.hpp"
#include "simulator/springboard/platter_header.hpp"
#include "simulator/springboard/reply_bar.hpp"
#include "simulator/springboard/springboard_application.hpp"
#include "simulator/springboard/status_bar.hpp"
#include "simulator/springboard/touch_through.hpp"
#include "simulator/springboard/wallpaper_view.hpp"
#include "simulator/uikit/environment.hpp"
#include "simulator/uikit/window.hpp"

namespace springboard {

namespace {

objc::Ref<UIWindow> makeHomeWindow() {
  auto window = UIView::withFrame<UIWindow>({{}, uikit::environment().device.screen});
  const auto homeScreen = objc::make<SBHomeScreenViewController>();
  objc::send<void, "setRootViewController:">(window.get(), homeScreen.get());
  window->makeKeyAndVisible();
  return window;
}

}  // namespace

void registerClasses() {
  const objc::AutoreleasePool pool;
  defineNotificationRequest();
  defineTouchThroughView();
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
  defineHomeScreen();
  defineNotificationDispatcher();
  defineListCell();
  defineListView();
  defineLockScreen();
  defineGrabber();
  defineApplication();
  defineBulletinServer();
  defineFeedback();
}

void start(const std::filesystem::path& applicationArtwork) {
  const objc::AutoreleasePool pool;
  registerApplications(applicationArtwork);
  installPlaceholderDigest();
  uikit::setSharedApplication(objc::make<SpringBoard>());
  const auto homeWindow = makeHomeWindow();
  makeStatusBar();
  makeBannerWindow(homeWindow);
  startBulletinServer();
  listenForBulletins();
}

}  // namespace springboard
