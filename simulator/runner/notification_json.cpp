#include "simulator/runner/notification_json.hpp"

#include <algorithm>
#include <string>

#include "objc/autorelease_pool.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/base/iso_time.hpp"
#include "simulator/springboard/services/notification_dispatcher.hpp"

namespace runner {

namespace {

using Json = nlohmann::ordered_json;
using springboard::ActionDescription;
using springboard::AutomaticDismissal;
using springboard::NotificationDescription;

constexpr const char* defaultActionKey = "NCNotificationActionEnvironmentDefault";

std::optional<std::string> text(const Json& object, const char* key) {
  return object.contains(key) ? std::optional(object[key].get<std::string>()) : std::nullopt;
}

std::vector<ActionDescription> actionsOf(const Json& command) {
  std::vector<ActionDescription> descriptions;
  for (const Json& action : command.value("actions", Json::array()))
    descriptions.push_back({action.value("key", defaultActionKey), text(action, "identifier"), text(action, "title"),
                            action.value("textInput", false)});
  return descriptions;
}

std::optional<double> dateOf(const Json& value) {
  return value.is_number() ? value.get<double>() : base::parseIsoTime(value.get_ref<const std::string&>());
}

AutomaticDismissal dismissalOf(const Json& command) {
  const Json value = command.value("dismissAutomatically", Json(true));
  if (value.is_null()) return AutomaticDismissal::Unspecified;
  return value.get<bool>() ? AutomaticDismissal::Allowed : AutomaticDismissal::Forbidden;
}

}  // namespace

NotificationDescription describe(const Json& command) {
  NotificationDescription description;
  description.section = command["section"];
  description.identifier = text(command, "identifier");
  description.thread = text(command, "thread");
  description.title = text(command, "title");
  description.subtitle = text(command, "subtitle");
  description.message = text(command, "message");
  description.summary = text(command, "summary");
  description.userInfo = command.value("userInfo", Json::object());
  description.actions = actionsOf(command);
  description.hasClearAction = command.value("clear", true);
  description.hasCloseAction = command.value("close", false);
  description.hasSilenceAction = command.value("silence", false);
  description.automaticDismissal = dismissalOf(command);
  if (command.contains("at")) description.date = dateOf(command["at"]);
  return description;
}

namespace {

// Adds the field if the text is not nil.
void addText(Json& fields, const char* key, NSString* text) {
  if (text != nullptr) fields[key] = base::textOf(text);
}

Json fieldsOfActions(const NSDictionary* actions) {
  Json fields = Json::array();
  const NSArray* keys = actions->allKeys();
  for (NSUInteger key = 0; key < keys->count(); ++key) {
    const auto* actionsOfKey = objc::as<NSArray>(actions->objectForKey(keys->objectAtIndex(key)));
    for (NSUInteger index = 0; index < actionsOfKey->count(); ++index) {
      const auto& action = objc::state(static_cast<NCNotificationAction*>(actionsOfKey->objectAtIndex(index)));
      Json& added = fields.emplace_back(Json{{"textInput", action.acceptsText}});
      addText(added, "key", static_cast<NSString*>(keys->objectAtIndex(key)));
      addText(added, "identifier", action.identifier);
      addText(added, "title", action.title);
    }
  }
  return fields;
}

Json userInfoOf(const NotificationRequestState& request) {
  const auto& notification = objc::state(request.userNotification.get());
  const Json userInfo = base::jsonOf(objc::state(objc::state(notification.request.get()).content.get()).userInfo);
  return userInfo.is_object() ? userInfo : Json::object();
}

}  // namespace

Json fieldsOf(const NCNotificationRequest* request) {
  const NotificationRequestState& state = objc::state(request);
  const NotificationContentState& content = objc::state(state.content.get());
  Json fields;
  addText(fields, "section", state.sectionIdentifier);
  addText(fields, "identifier", state.notificationIdentifier);
  addText(fields, "thread", state.threadIdentifier);
  addText(fields, "title", content.title);
  addText(fields, "subtitle", content.subtitle);
  addText(fields, "message", content.message);
  addText(fields, "summary", content.summary);
  fields["userInfo"] = userInfoOf(state);
  fields["actions"] = fieldsOfActions(state.supplementaryActions);
  fields["clear"] = state.clearAction != nullptr;
  fields["close"] = state.closeAction != nullptr;
  fields["silence"] = state.silenceAction != nullptr;
  fields["dismissAutomatically"] =
      state.options == nullptr ? Json() : Json(objc::state(state.options.get()).dismissAutomatically);
  fields["at"] = objc::send<double, "timeIntervalSince1970">(state.timestamp.get());
  return fields;
}

Json storedNotifications() {
  const objc::AutoreleasePool pool;
  Json stored = Json::array();
  for (const auto& request : NCNotificationDispatcher::shared()->list().all()) stored.push_back(fieldsOf(request));
  std::reverse(stored.begin(), stored.end());
  return stored;
}

void restoreNotifications(const Json& notifications) {
  const objc::AutoreleasePool pool;
  for (const Json& fields : notifications)
    NCNotificationDispatcher::shared()->restore(springboard::makeRequest(describe(fields), nullptr));
}

}  // namespace runner
