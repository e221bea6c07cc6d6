// Commands that make the platform present, update, withdraw and dismiss notifications.
#include <filesystem>

#include "simulator/base/foundation_json.hpp"
#include "simulator/base/iso_time.hpp"
#include "simulator/drawing/image.hpp"
#include "simulator/runner/command_handlers.hpp"
#include "simulator/runner/consumed_events.hpp"
#include "simulator/runner/controller_lookup.hpp"
#include "simulator/runner/notification_json.hpp"
#include "simulator/runner/push_payload.hpp"
#include "simulator/springboard/banner/banner_presenter.hpp"
#include "simulator/springboard/services/applications.hpp"
#include "simulator/springboard/services/notification_description.hpp"
#include "simulator/springboard/services/notification_dispatcher.hpp"

namespace runner {

namespace {

using springboard::NotificationDescription;

std::optional<std::string> text(const Json& object, const char* key) {
  return object.contains(key) ? std::optional(object[key].get<std::string>()) : std::nullopt;
}

bool isAction(const Json& value) {
  if (!value.is_object()) return false;
  for (const auto& [key, member] : value.items()) {
    const bool isText = key == "key" || key == "identifier" || key == "title";
    if (!(isText && member.is_string()) && !(key == "textInput" && member.is_boolean())) return false;
  }
  return true;
}

const FieldType actions = {R"(an array of {"key","identifier","title": strings, "textInput": true or false})",
                           [](const Json& value) { return value.is_array() && std::ranges::all_of(value, &isAction); }};
const FieldType date = {"a date such as \"2020-03-14T09:41:00Z\"", [](const Json& value) {
                          return value.is_string() &&
                                 base::parseIsoTime(value.get_ref<const std::string&>()).has_value();
                        }};
constexpr const char* longLookKinds[] = {"scroll", "click", "trigger"};
const FieldType longLookKind = {"scroll, click or trigger",
                                [](const Json& value) { return isOneOf(value, longLookKinds); }};

void setIcon(const Json& command) {
  if (!command.contains("icon")) return;
  const std::string path = command["icon"];
  if (!springboard::setIcon(command["section"], path))
    throw CommandError("\"icon\" must be the path of a PNG or JPEG file; " + path + " is not a readable picture");
}

Json post(const NotificationDescription& description) {
  consumeAllEvents("photo");
  consumeAllEvents("http");
  NCNotificationDispatcher::shared()->post(springboard::makeRequest(description, nullptr));
  return {{"controller", springboard::bannerCount()}};
}

Json present(const Json& command) {
  setIcon(command);
  return post(describe(command));
}

Json push(const Json& command) { return post(describePayload(command["application"], command["payload"])); }

Json update(const Json& command) {
  const auto shown = controllerOnScreen(command["controller"]);
  const auto request = springboard::makeFollowUp(
      shown->notificationRequest(),
      {text(command, "title"), text(command, "subtitle"), text(command, "message"), text(command, "summary")});
  NCNotificationDispatcher::shared()->modify(request);
  const std::size_t before = springboard::bannerCount();
  objc::send<void, "presentViewController:animated:completion:">(shown.get(),
                                                                 springboard::makeShortLookController(request).get(),
                                                                 true, static_cast<objc::Block<void()>*>(nullptr));
  return springboard::bannerCount() == before ? Json() : Json{{"controller", springboard::bannerCount()}};
}

Json withdraw(const Json& command) {
  const auto isSelected = [&command](const springboard::NotificationKey& key) {
    return command.value("section", key.section) == key.section &&
           command.value("identifier", key.identifier) == key.identifier;
  };
  std::size_t count = 0;
  for (const auto& request : NCNotificationDispatcher::shared()->list().all()) {
    if (!isSelected(springboard::keyOf(request))) continue;
    NCNotificationDispatcher::shared()->withdraw(request);
    ++count;
  }
  return {{"withdrawn", count}};
}

Json dismiss(const Json& command) {
  liveController(command["controller"])->dismissViewController(command.value("transition", NSInteger{1}), nullptr);
  return nullptr;
}

Json longLook(const Json& command) {
  const auto controller = liveController(command["controller"]);
  const std::string kind = command.value("kind", "scroll");
  objc::Block<void(bool)>* const noCompletion = nullptr;
  if (kind == "scroll") {
    objc::send<void, "_presentLongLookForScrollAnimated:completion:">(controller.get(), true, noCompletion);
  } else if (kind == "click") {
    objc::send<void, "_presentLongLookViaClickPresentationInteraction:">(controller.get(),
                                                                         static_cast<NSObject*>(nullptr));
  } else {
    objc::send<void, "presentLongLookAnimated:trigger:completion:">(controller.get(), true, NSInteger{0}, noCompletion);
  }
  return nullptr;
}

}  // namespace

std::span<const Command> presentingCommands() {
  static constexpr Field presentFields[] = {
      {"section", field::nonEmptyText, Presence::Required},
      {"identifier", field::nonEmptyText},
      {"title", field::text},
      {"subtitle", field::text},
      {"message", field::text},
      {"summary", field::text},
      {"thread", field::text},
      {"userInfo", field::object},
      {"icon", field::text},
      {"actions", actions},
      {"clear", field::boolean},
      {"close", field::boolean},
      {"silence", field::boolean},
      {"dismissAutomatically", field::booleanOrNull},
      {"at", date},
  };
  static constexpr Field pushFields[] = {{"application", field::nonEmptyText, Presence::Required},
                                         {"payload", field::object, Presence::Required}};
  static constexpr Field updateFields[] = {
      {"controller", field::integer, Presence::Required},
      {"title", field::text},
      {"subtitle", field::text},
      {"message", field::text},
      {"summary", field::text},
  };
  static constexpr Field dismissFields[] = {{"controller", field::integer, Presence::Required},
                                            {"transition", field::integer}};
  static constexpr Field longLookFields[] = {{"controller", field::integer, Presence::Required},
                                             {"kind", longLookKind}};
  static constexpr Field withdrawFields[] = {{"section", field::nonEmptyText}, {"identifier", field::nonEmptyText}};
  static constexpr Command commands[] = {
      {"present", presentFields, &present, "present a notification as a banner; returns the number of its controller"},
      {"push", pushFields, &push,
       "deliver the JSON payload of a remote notification to the application; returns the number of its controller"},
      {"update", updateFields, &update, "present an updated version of the controller's notification over its banner"},
      {"withdraw", withdrawFields, &withdraw,
       "withdraw the notifications with this section and identifier; a missing field matches all notifications"},
      {"dismiss", dismissFields, &dismiss, "dismiss the controller as the platform does"},
      {"longlook", longLookFields, &longLook, "request the platform's long look by scroll, click or trigger"},
  };
  return commands;
}

}  // namespace runner
