#include "simulator/runner/push_payload.hpp"

#include <algorithm>

#include "simulator/runner/command_handlers.hpp"
#include "simulator/springboard/services/applications.hpp"

namespace runner {

namespace {

bool isInstalled(const std::string& application) {
  return std::ranges::find(springboard::installedApplications(), application) !=
         springboard::installedApplications().end();
}

void checkApplication(const std::string& application) {
  if (isInstalled(application)) return;
  std::string names;
  for (const std::string& installed : springboard::installedApplications())
    names += (names.empty() ? "" : ", ") + installed;
  throw CommandError("\"application\": " + application + " is not installed; the applications are " + names);
}

// Returns the string member, or nothing if the object does not have it. `path` is the path of the object, for messages.
std::optional<std::string> text(const Json& object, const char* path, const char* key) {
  const auto member = object.find(key);
  if (member == object.end()) return std::nullopt;
  if (!member->is_string()) throw CommandError("\"payload\": " + std::string(path) + "." + key + " must be a string");
  return member->get<std::string>();
}

void checkSound(const Json& aps) {
  const auto sound = aps.find("sound");
  if (sound != aps.end() && !sound->is_string() && !sound->is_object())
    throw CommandError("\"payload\": aps.sound must be a string or an object");
}

}  // namespace

springboard::NotificationDescription describePayload(const std::string& application, const Json& payload) {
  checkApplication(application);
  const std::size_t size = payload.dump(-1, ' ', false, Json::error_handler_t::replace).size();
  if (size > maxPayloadBytes)
    throw CommandError("\"payload\" has " + std::to_string(size) + " bytes; the maximum is " +
                       std::to_string(maxPayloadBytes));
  const auto aps = payload.find("aps");
  if (aps == payload.end() || !aps->is_object())
    throw CommandError(R"("payload": aps must be an object, such as {"aps":{"alert":"Lunch?"}})");
  const auto alert = aps->find("alert");
  if (alert == aps->end() || !(alert->is_string() || alert->is_object()))
    throw CommandError(R"("payload": aps.alert must be a string or an object with "title", "subtitle" and "body")");

  springboard::NotificationDescription description;
  description.section = application;
  description.userInfo = payload;
  description.thread = text(*aps, "aps", "thread-id");
  text(*aps, "aps", "category");
  checkSound(*aps);
  if (alert->is_string()) {
    description.message = alert->get<std::string>();
  } else {
    description.title = text(*alert, "aps.alert", "title");
    description.subtitle = text(*alert, "aps.alert", "subtitle");
    description.message = text(*alert, "aps.alert", "body");
    if (!description.title && !description.subtitle && !description.message)
      throw CommandError(R"("payload": aps.alert must have a "title", a "subtitle" or a "body")");
  }
  return description;
}

}  // namespace runner
