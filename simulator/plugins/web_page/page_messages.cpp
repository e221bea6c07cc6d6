#include "simulator/plugins/web_page/page_messages.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace web_page {

namespace {

using phone_display::Json;
using phone_display::Persistence;
using Parsed = std::optional<PageMessage>;

// The maximum distance of a finger from the picture, in multiples of the picture's size.
constexpr double maxDistance = 100;
constexpr int maxPresets = 1000;
constexpr int maxActions = 100;

struct PhaseRow {
  const char* name;
  UITouchPhase phase;
};
constexpr PhaseRow phases[] = {
    {"began", UITouchPhase::Began},
    {"moved", UITouchPhase::Moved},
    {"ended", UITouchPhase::Ended},
    {"cancelled", UITouchPhase::Cancelled},
};

struct KeyRow {
  const char* name;
  PageKey key;
};
constexpr KeyRow keys[] = {
    {"return", PageKey::Return}, {"backspace", PageKey::Backspace}, {"space", PageKey::Space},
    {"escape", PageKey::Escape}, {"next", PageKey::Next},           {"previous", PageKey::Previous},
    {"up", PageKey::Up},         {"down", PageKey::Down},           {"left", PageKey::Left},
    {"right", PageKey::Right},   {"volumeup", PageKey::VolumeUp},   {"volumedown", PageKey::VolumeDown},
};

// Returns null if the field is missing or is not a string.
const std::string* textOf(const Json& message, const char* field) {
  const auto found = message.find(field);
  return found == message.end() ? nullptr : found->get_ptr<const std::string*>();
}

template <class Row, std::size_t count>
const Row* rowOf(const Row (&rows)[count], const Json& message, const char* field) {
  const std::string* const name = textOf(message, field);
  if (name == nullptr) return nullptr;
  const Row* const found = std::ranges::find_if(rows, [&](const Row& row) { return *name == row.name; });
  return found == std::end(rows) ? nullptr : found;
}

// Returns nothing if the field is missing, is not an integer or is outside of the range.
std::optional<int> integerOf(const Json& message, const char* field, int min, int max) {
  const auto found = message.find(field);
  if (found == message.end() || !found->is_number_integer()) return std::nullopt;
  // The conversion to a floating-point number does not overflow.
  const auto value = found->get<double>();
  if (value < min || value > max) return std::nullopt;
  return static_cast<int>(value);
}

std::optional<double> coordinateOf(const Json& message, const char* field) {
  const auto found = message.find(field);
  if (found == message.end() || !found->is_number()) return std::nullopt;
  const auto value = found->get<double>();
  if (!(std::abs(value) <= maxDistance)) return std::nullopt;
  return value;
}

Parsed parseShow(const Json& message) {
  const auto width = integerOf(message, "width", 1, maxPageSide);
  const auto height = integerOf(message, "height", 1, maxPageSide);
  if (!width || !height) return std::nullopt;
  return ShowMessage{*width, *height};
}

Parsed parseAcknowledge(const Json&) { return AcknowledgeMessage{}; }

Parsed parseTouch(const Json& message) {
  const PhaseRow* const row = rowOf(phases, message, "phase");
  const auto x = coordinateOf(message, "x");
  const auto y = coordinateOf(message, "y");
  if (row == nullptr || !x || !y) return std::nullopt;
  return TouchMessage{row->phase, *x, *y};
}

Parsed parseType(const Json& message) {
  const std::string* const text = textOf(message, "text");
  if (text == nullptr) return std::nullopt;
  return TypeMessage{*text};
}

Parsed parseKey(const Json& message) {
  const KeyRow* const row = rowOf(keys, message, "name");
  if (row == nullptr) return std::nullopt;
  return KeyMessage{row->key};
}

Parsed parseDescribe(const Json&) { return DescribeMessage{}; }

std::optional<std::uint64_t> elementOf(const Json& message) {
  const auto found = message.find("element");
  if (found == message.end() || !found->is_number_unsigned()) return std::nullopt;
  return found->get<std::uint64_t>();
}

Parsed parseAct(const Json& message) {
  const auto element = elementOf(message);
  const auto action = integerOf(message, "action", 0, maxActions);
  if (!element || !action) return std::nullopt;
  return ActMessage{*element, static_cast<std::size_t>(*action)};
}

Parsed parseFocus(const Json& message) {
  const auto element = elementOf(message);
  if (!element) return std::nullopt;
  return FocusMessage{*element};
}

Parsed parsePlay(const Json& message) {
  const auto preset = integerOf(message, "preset", 0, maxPresets);
  if (!preset) return std::nullopt;
  return PlayMessage{static_cast<std::size_t>(*preset)};
}

Parsed parseSend(const Json& message) {
  const auto preset = integerOf(message, "preset", 0, maxPresets);
  const auto persistent = message.find("persistent");
  if (!preset || persistent == message.end() || !persistent->is_boolean()) return std::nullopt;
  SendMessage parsed = {.preset = static_cast<std::size_t>(*preset), .fields = {}};
  parsed.fields.persistence = persistent->get<bool>() ? Persistence::Persistent : Persistence::Temporary;
  const std::pair<const char*, std::string*> texts[] = {
      {"application", &parsed.fields.application}, {"title", &parsed.fields.title},
      {"subtitle", &parsed.fields.subtitle},       {"text", &parsed.fields.text},
      {"actions", &parsed.fields.actions},         {"picture", &parsed.fields.picture},
  };
  for (const auto& [field, target] : texts) {
    const std::string* const text = textOf(message, field);
    if (text == nullptr) return std::nullopt;
    *target = *text;
  }
  return parsed;
}

struct MessageRow {
  const char* name;
  Parsed (*parse)(const Json& message);
};
constexpr MessageRow messages[] = {
    {"show", &parseShow},   {"acknowledge", &parseAcknowledge},
    {"touch", &parseTouch}, {"type", &parseType},
    {"key", &parseKey},     {"describe", &parseDescribe},
    {"act", &parseAct},     {"focus", &parseFocus},
    {"play", &parsePlay},   {"send", &parseSend},
};

}  // namespace

std::optional<PageMessage> parseMessage(std::string_view text) {
  const Json message = Json::parse(text, nullptr, false);
  if (!message.is_object()) return std::nullopt;
  const MessageRow* const row = rowOf(messages, message, "do");
  return row == nullptr ? std::nullopt : row->parse(message);
}

}  // namespace web_page
