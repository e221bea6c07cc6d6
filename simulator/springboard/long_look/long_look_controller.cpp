#include "simulator/springboard/long_look/long_look_controller.hpp"

#include <algorithm>

#include "platform/ui_visual_effect_view.hpp"
#include "platform/ui_window.hpp"
#include "simulator/springboard/long_look/action_row.hpp"
#include "simulator/springboard/long_look/long_look_presenter.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/keyboard/keyboard_layout.hpp"

namespace springboard {

namespace {

using Controller = NCNotificationLongLookViewController;

constexpr CGFloat gap = 8;
constexpr CGFloat screenMargin = 8;
constexpr double replyBarAnimationSeconds = 0.25;

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

// Executes the action and closes the long look. Most actions withdraw the notification, which already closes the long
// look. After any other action, dismissLongLook closes it.
void executeAndClose(Controller* self, NCNotificationAction* action) {
  const auto retained = objc::retain(self);
  if (action != nullptr) self->askDelegateToExecuteAction(action, NSDictionary::dictionary(), true);
  dismissLongLook(self);
}

void backdropTapped(Controller* self, NSObject*) { dismissLongLook(self); }
void cardTapped(Controller* self, NSObject*) {
  executeAndClose(self, objc::state(self->notificationRequest()).defaultAction);
}
void closeButtonTapped(Controller* self, NSObject*) {
  executeAndClose(self, self->notificationRequest()->closeAction());
}

NSString* typedTextKey() { return "UIUserNotificationActionResponseTypedTextKey"_ns; }

void beginTyping(Controller* self, NCNotificationAction* action) {
  LongLookControllerState& parts = partsOf(self);
  parts.replyBar = makeReplyBar(action, self);
  parts.replyBar->setAlpha(0);
  parts.replyBar->setFrame(parts.actions->frame());
  self->view()->addSubview(parts.replyBar);
  self->view()->window()->makeKeyAndVisible();
  objc::send<bool, "becomeFirstResponder">(objc::state(parts.replyBar.get()).field.get());
  const auto retained = objc::retain(self);
  UIView::animate(replyBarAnimationSeconds, objc::block([retained] { expandLongLook(retained); }));
}

void actionRowTapped(Controller* self, UIInterfaceActionRow* row) {
  NCNotificationAction* action = objc::state(row).action;
  if (objc::state(action).acceptsText) return beginTyping(self, action);
  executeAndClose(self, action);
}

void replyFieldReturned(Controller* self, UITextField* field) {
  const auto retained = objc::retain(self);
  NSMutableDictionary* parameters = NSMutableDictionary::dictionaryWithCapacity(1);
  parameters->setObject(field->text(), typedTextKey());
  self->askDelegateToExecuteAction(objc::state(partsOf(self).replyBar.get()).action, parameters, true);
  dismissLongLook(self);
}

struct VerticalSpan {
  CGFloat top;
  CGFloat bottom;
};

// Returns the vertical part of the screen that neither the safe area nor the keyboard covers.
VerticalSpan availableSpan(const LongLookControllerState& parts) {
  const base::DeviceProfile& device = uikit::environment().device;
  const CGFloat top = std::max<CGFloat>(device.safeArea.top, screenMargin);
  if (parts.replyBar == nullptr)
    return {top, device.screen.height - std::max<CGFloat>(device.safeArea.bottom, screenMargin)};
  const uikit::KeyboardSize keyboard = {device.screen.width, device.safeArea.bottom};
  return {top, device.screen.height - keyboard.height() - screenMargin};
}

// Returns the height that is available below the card if the card shows one line of body text.
CGFloat heightForActions(const LongLookControllerState& parts) {
  const VerticalSpan available = availableSpan(parts);
  return available.bottom - available.top - fitLongLookView(parts.card, parts.shortLook.size.width, 0) - gap;
}

}  // namespace

objc::Ref<Controller> makeLongLookController(NCNotificationRequest* request) {
  return objc::adopt(objc::send<Controller*, "initWithNotificationRequest:">(objc::allocate<Controller>(), request));
}

void collapseLongLook(const Controller* controller, const CGRect& shortLook) {
  LongLookControllerState& parts = partsOf(controller);
  parts.shortLook = shortLook;
  removeRowsBeyond(parts.actions, heightForActions(parts));
  parts.backdrop->setAlpha(0);
  parts.card->setFrame(shortLook);
  parts.actions->setAlpha(0);
  parts.actions->setFrame({{shortLook.origin.x, shortLook.origin.y + shortLook.size.height + gap},
                           {shortLook.size.width, heightOfActionGroup(parts.actions)}});
}

void expandLongLook(const Controller* controller) {
  const LongLookControllerState& parts = partsOf(controller);
  const bool isTyping = parts.replyBar != nullptr;
  const CGFloat width = parts.shortLook.size.width;
  const CGFloat heightBelowCard = isTyping ? replyBarHeight : heightOfActionGroup(parts.actions);
  const VerticalSpan available = availableSpan(parts);
  const CGFloat maxCardHeight = available.bottom - available.top - (heightBelowCard > 0 ? heightBelowCard + gap : 0);
  const CGFloat height = fitLongLookView(parts.card, width, maxCardHeight);
  const CGFloat maxTop = std::max(available.top, available.top + maxCardHeight - height);
  const CGPoint origin = {parts.shortLook.origin.x, std::clamp(parts.shortLook.origin.y, available.top, maxTop)};
  const CGRect lowerFrame = {{origin.x, origin.y + height + gap}, {width, heightBelowCard}};
  parts.backdrop->setAlpha(1);
  parts.card->setFrame({origin, {width, height}});
  parts.actions->setAlpha(isTyping ? 0 : 1);
  if (!isTyping) return parts.actions->setFrame(lowerFrame);
  parts.replyBar->setAlpha(1);
  parts.replyBar->setFrame(lowerFrame);
}

void endTyping(const Controller* controller) {
  const LongLookControllerState& parts = partsOf(controller);
  if (parts.replyBar != nullptr)
    objc::send<bool, "resignFirstResponder">(objc::state(parts.replyBar.get()).field.get());
}

void defineLongLookController() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"loadView", &loadView>(),
      objc::method<"_backdropTapped:", &backdropTapped>(),
      objc::method<"_cardTapped:", &cardTapped>(),
      objc::method<"_closeButtonTapped:", &closeButtonTapped>(),
      objc::method<"_actionRowTapped:", &actionRowTapped>(),
      objc::method<"_replyFieldReturned:", &replyFieldReturned>(),
  };
  objc::defineClassWithState<Controller>(methods);
}

}  // namespace springboard
