#include "simulator/springboard/services/notification_request.hpp"

#include <map>

#include "objc/property_entry.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/springboard/services/applications.hpp"
#include "simulator/springboard/services/notification_description.hpp"

namespace springboard {

namespace {

objc::Ref<NSString> text(const std::optional<std::string>& value) {
  return value ? objc::retain(base::stringOf(*value)) : nullptr;
}

objc::Ref<NSDate> dateAt(double unixTime) {
  return objc::retain(objc::send<NSDate*, "dateWithTimeIntervalSince1970:">(NSDate::classObject(), unixTime));
}

objc::Ref<NSString> uniqueIdentifier() {
  const id process = objc::send<id, "processInfo">(objc::lookUpClass<"NSProcessInfo">());
  return objc::retain(objc::send<NSString*, "globallyUniqueString">(process));
}

objc::Ref<NCNotificationAction> makeAction(NSString* identifier, NSString* title) {
  auto action = objc::make<NCNotificationAction>();
  objc::state(action.get()).identifier = objc::retain(identifier);
  objc::state(action.get()).title = objc::retain(title);
  return action;
}

objc::Ref<NCNotificationAction> makeActionIf(bool isPresent, NSString* identifier, NSString* title) {
  return isPresent ? makeAction(identifier, title) : nullptr;
}

// Returns a dictionary that maps each key to an array of actions. Returns nil if there are no actions.
objc::Ref<NSDictionary> makeSupplementaryActions(const std::vector<ActionDescription>& descriptions) {
  if (descriptions.empty()) return nullptr;
  NSMutableDictionary* actions = NSMutableDictionary::dictionaryWithCapacity(descriptions.size());
  for (const ActionDescription& description : descriptions) {
    NSString* key = base::stringOf(description.key);
    auto* group = objc::as<NSMutableArray>(actions->objectForKey(key));
    if (group == nullptr) {
      group = NSMutableArray::array();
      actions->setObject(group, key);
    }
    const auto action = makeAction(text(description.identifier), text(description.title));
    objc::state(action.get()).acceptsText = description.acceptsText;
    group->addObject(action);
  }
  return objc::retain<NSDictionary>(actions);
}

objc::Ref<NCNotificationOptions> makeOptions(AutomaticDismissal dismissal) {
  if (dismissal == AutomaticDismissal::Unspecified) return nullptr;
  auto options = objc::make<NCNotificationOptions>();
  objc::state(options.get()).dismissAutomatically = dismissal == AutomaticDismissal::Allowed;
  return options;
}

objc::Ref<NCNotificationContent> makeContent(const NotificationDescription& description, UIImage* icon,
                                             const objc::Ref<NSDate>& date) {
  auto content = objc::make<NCNotificationContent>();
  NSMutableArray* icons = NSMutableArray::array();
  UIImage* const shown = icon != nullptr ? icon : iconOf(base::stringOf(description.section));
  if (shown != nullptr) icons->addObject(shown);
  objc::state(content.get()) = {text(description.title),   text(description.subtitle),   text(description.message),
                                text(description.summary), objc::retain<NSArray>(icons), date};
  return content;
}

objc::Ref<UNNotification> makeUserNotification(const NotificationDescription& description,
                                               const objc::Ref<NSString>& identifier, const objc::Ref<NSDate>& date) {
  auto content = objc::make<UNNotificationContent>();
  objc::state(content.get()) = {text(description.title), text(description.subtitle), text(description.message),
                                text(description.thread),
                                objc::retain(objc::as<NSDictionary>(base::objectOf(description.userInfo)))};
  auto request = objc::make<UNNotificationRequest>();
  objc::state(request.get()) = {identifier, content};
  auto notification = objc::make<UNNotification>();
  objc::state(notification.get()) = {date, request};
  return notification;
}

template <class Type>
void define(std::span<const objc::PropertyEntry> properties) {
  objc::defineClassWithState<Type>({});
  objc::addProperties(Type::classObject(), properties);
}

}  // namespace

objc::Ref<NCNotificationRequest> makeRequest(const NotificationDescription& description, UIImage* icon) {
  const objc::Ref<NSDate> date = dateAt(description.date.value_or(foundation::unixTimeNow()));
  const objc::Ref<NSString> identifier = description.identifier ? text(description.identifier) : uniqueIdentifier();
  auto request = objc::make<NCNotificationRequest>();
  objc::state(request.get()) = {
      text(description.section),
      text(description.thread),
      identifier,
      date,
      makeContent(description, icon, date),
      makeAction("com.apple.UNNotificationDefaultActionIdentifier"_ns, nullptr),
      makeActionIf(description.hasClearAction, "com.apple.UNNotificationDismissActionIdentifier"_ns, "Clear"_ns),
      makeActionIf(description.hasSilenceAction, "com.apple.UNNotificationSilenceActionIdentifier"_ns, "Silence"_ns),
      makeActionIf(description.hasCloseAction, "com.apple.UNNotificationCloseActionIdentifier"_ns, "Close"_ns),
      makeSupplementaryActions(description.actions),
      makeOptions(description.automaticDismissal),
      makeUserNotification(description, identifier, date),
  };
  // The action that silences a notification does not remove it from the list.
  if (request->silenceAction() != nullptr) objc::state(request->silenceAction()).shouldDismissNotification = false;
  return request;
}

objc::Ref<NCNotificationRequest> makeFollowUp(NCNotificationRequest* request, const FollowUp& texts) {
  auto content = objc::make<NCNotificationContent>();
  const NotificationRequestState& earlier = objc::state(request);
  NotificationContentState& updatedContent = objc::state(content.get());
  updatedContent = objc::state(earlier.content.get());
  if (texts.title) updatedContent.title = text(texts.title);
  if (texts.subtitle) updatedContent.subtitle = text(texts.subtitle);
  if (texts.message) updatedContent.message = text(texts.message);
  if (texts.summary) updatedContent.summary = text(texts.summary);
  updatedContent.date = dateAt(foundation::unixTimeNow());

  auto updated = objc::make<NCNotificationRequest>();
  objc::state(updated.get()) = earlier;
  objc::state(updated.get()).content = content;
  objc::state(updated.get()).timestamp = updatedContent.date;
  return updated;
}

void defineNotificationRequest() {
  using objc::stored;
  static constexpr objc::PropertyEntry action[] = {
      stored<"identifier", NCNotificationAction, &NotificationActionState::identifier>(),
      stored<"title", NCNotificationAction, &NotificationActionState::title>(),
      stored<"acceptsText", NCNotificationAction, &NotificationActionState::acceptsText>(),
      stored<"shouldDismissNotification", NCNotificationAction, &NotificationActionState::shouldDismissNotification>(),
  };
  static constexpr objc::PropertyEntry options[] = {
      stored<"dismissAutomatically", NCNotificationOptions, &NotificationOptionsState::dismissAutomatically>(),
  };
  static constexpr objc::PropertyEntry content[] = {
      stored<"title", NCNotificationContent, &NotificationContentState::title>(),
      stored<"subtitle", NCNotificationContent, &NotificationContentState::subtitle>(),
      stored<"message", NCNotificationContent, &NotificationContentState::message>(),
      stored<"summary", NCNotificationContent, &NotificationContentState::summary>(),
      stored<"icons", NCNotificationContent, &NotificationContentState::icons>(),
      stored<"date", NCNotificationContent, &NotificationContentState::date>(),
  };
  static constexpr objc::PropertyEntry userContent[] = {
      stored<"title", UNNotificationContent, &UserNotificationContentState::title>(),
      stored<"subtitle", UNNotificationContent, &UserNotificationContentState::subtitle>(),
      stored<"body", UNNotificationContent, &UserNotificationContentState::body>(),
      stored<"threadIdentifier", UNNotificationContent, &UserNotificationContentState::threadIdentifier>(),
      stored<"userInfo", UNNotificationContent, &UserNotificationContentState::userInfo>(),
  };
  static constexpr objc::PropertyEntry userRequest[] = {
      stored<"identifier", UNNotificationRequest, &UserNotificationRequestState::identifier>(),
      stored<"content", UNNotificationRequest, &UserNotificationRequestState::content>(),
  };
  static constexpr objc::PropertyEntry userNotification[] = {
      stored<"date", UNNotification, &UserNotificationState::date>(),
      stored<"request", UNNotification, &UserNotificationState::request>(),
  };
  using Request = NCNotificationRequest;
  using State = NotificationRequestState;
  static constexpr objc::PropertyEntry request[] = {
      stored<"sectionIdentifier", Request, &State::sectionIdentifier>(),
      stored<"threadIdentifier", Request, &State::threadIdentifier>(),
      stored<"notificationIdentifier", Request, &State::notificationIdentifier>(),
      stored<"timestamp", Request, &State::timestamp>(),
      stored<"content", Request, &State::content>(),
      stored<"defaultAction", Request, &State::defaultAction>(),
      stored<"clearAction", Request, &State::clearAction>(),
      stored<"silenceAction", Request, &State::silenceAction>(),
      stored<"closeAction", Request, &State::closeAction>(),
      stored<"supplementaryActions", Request, &State::supplementaryActions>(),
      stored<"options", Request, &State::options>(),
      stored<"userNotification", Request, &State::userNotification>(),
  };
  define<NCNotificationAction>(action);
  define<NCNotificationOptions>(options);
  define<NCNotificationContent>(content);
  define<UNNotificationContent>(userContent);
  define<UNNotificationRequest>(userRequest);
  define<UNNotification>(userNotification);
  define<NCNotificationRequest>(request);
}

}  // namespace springboard
