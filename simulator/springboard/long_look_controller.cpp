#include "simulator/springboard/long_look_controller.hpp"

#include <algorithm>

#include "platform/ui_visual_effect_view.hpp"
#include "simulator/springboard/action_row.hpp"
#include "simulator/springboard/long_look_presenter.hpp"
#include "simulator/uikit/environment.hpp"

namespace springboard {

namespace {

using Controller = NCNotificationLongLookViewController;

constexpr CGFloat gap = 8;
constexpr CGFloat screenMargin = 8;

LongLookControllerState& partsOf(const Controller* controller) { return objc::state(controller); }

objc::Ref<UIView> makeBackdrop(Controller* controller, const CGRect& screen) {
  auto backdrop = UIVisualEffectView::withEffect(UIBlurEffect::withStyle(UIBlurEffectStyle::Regular));
  backdrop->setFrame(screen);
  backdrop->addGestureRecognizer(UITapGestureRecognizer::withTarget(controller, objc::selector<"_backdropTapped:">()));
  return backdrop;
}

void loadView(Controller* self) {
  const CGRect screen = {{}, uikit::environment().device.screen};
  auto view = UIView::withFrame<UIView>(screen);
  LongLookControllerState& parts = partsOf(self);
  parts.backdrop = makeBackdrop(self, screen);
  parts.card = makeLongLookView(self->notificationRequest());
  parts.card->addGestureRecognizer(UITapGestureRecognizer::withTarget(self, objc::selector<"_cardTapped:">()));
  objc::state(parts.card.get())
      .closeButton->addTarget(self, objc::selector<"_closeButtonTapped:">(), UIControlEvents::TouchUpInside);
  parts.actions = makeActionGroup(self->notificationRequest(), self);
  for (UIView* part : {parts.backdrop.get(), static_cast<UIView*>(parts.card), static_cast<UIView*>(parts.actions)})
    view->addSubview(part);
  objc::send<void, "setView:">(self, view.get());
}

// Taking its notification away ends the long look; some actions leave it.
void execute(Controller* self, NCNotificationAction* action) {
  const auto kept = objc::retain(self);
  if (action != nullptr) self->askDelegateToExecuteAction(action, NSDictionary::dictionary(), true);
  endLongLook(self);
}

void backdropTapped(Controller* self, NSObject*) { endLongLook(self); }
void cardTapped(Controller* self, NSObject*) { execute(self, objc::state(self->notificationRequest()).defaultAction); }
void closeButtonTapped(Controller* self, NSObject*) { execute(self, self->notificationRequest()->closeAction()); }
void actionRowTapped(Controller* self, UIInterfaceActionRow* row) { execute(self, objc::state(row).action); }

struct Room {
  CGFloat top;
  CGFloat bottom;
};

Room roomOnScreen() {
  const host::DeviceProfile& device = uikit::environment().device;
  return {std::max<CGFloat>(device.safeArea.top, screenMargin),
          device.screen.height - std::max<CGFloat>(device.safeArea.bottom, screenMargin)};
}

}  // namespace

objc::Ref<Controller> makeLongLookController(NCNotificationRequest* request) {
  return objc::adopt(objc::send<Controller*, "initWithNotificationRequest:">(objc::allocate<Controller>(), request));
}

void collapseLongLook(const Controller* controller, const CGRect& shortLook) {
  const LongLookControllerState& parts = partsOf(controller);
  parts.backdrop->setAlpha(0);
  parts.card->setFrame(shortLook);
  parts.actions->setAlpha(0);
  parts.actions->setFrame({{shortLook.origin.x, shortLook.origin.y + shortLook.size.height + gap},
                           {shortLook.size.width, heightOfActionGroup(parts.actions)}});
}

void expandLongLook(const Controller* controller, const CGRect& shortLook) {
  const LongLookControllerState& parts = partsOf(controller);
  const CGFloat width = shortLook.size.width;
  const CGFloat actions = heightOfActionGroup(parts.actions);
  const Room room = roomOnScreen();
  const CGFloat mostOfCard = room.bottom - room.top - (actions > 0 ? actions + gap : 0);
  const CGFloat height = fitLongLookView(parts.card, width, mostOfCard);
  const CGFloat lowestTop = std::max(room.top, room.top + mostOfCard - height);
  const CGPoint origin = {shortLook.origin.x, std::clamp(shortLook.origin.y, room.top, lowestTop)};
  parts.backdrop->setAlpha(1);
  parts.card->setFrame({origin, {width, height}});
  parts.actions->setAlpha(1);
  parts.actions->setFrame({{origin.x, origin.y + height + gap}, {width, actions}});
}

void defineLongLookController() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"loadView", &loadView>(),
      objc::method<"_backdropTapped:", &backdropTapped>(),
      objc::method<"_cardTapped:", &cardTapped>(),
      objc::method<"_closeButtonTapped:", &closeButtonTapped>(),
      objc::method<"_actionRowTapped:", &actionRowTapped>(),
  };
  objc::defineClassWithState<Controller>(methods);
}

}  // namespace springboard
