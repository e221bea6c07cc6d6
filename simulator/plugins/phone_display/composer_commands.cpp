#include "simulator/plugins/phone_display/composer_commands.hpp"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "simulator/runner/demonstration_data.hpp"
#include "simulator/runner/demonstration_samples.hpp"

namespace phone_display {

namespace {

constexpr std::string_view textInputMark = "…";

std::string trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

Json actionNamed(const std::string& title) {
  return {{"key", "composer"}, {"identifier", title}, {"title", title}, {"textInput", title.ends_with(textInputMark)}};
}

Json actionsFrom(const std::string& titles) {
  Json actions = Json::array();
  for (std::size_t start = 0; start < titles.size();) {
    const std::size_t end = std::min(titles.find(',', start), titles.size());
    if (const std::string title = trimmed(titles.substr(start, end - start)); !title.empty())
      actions.push_back(actionNamed(title));
    start = end + 1;
  }
  return actions;
}

std::string titlesOf(const Json& command) {
  std::string titles;
  for (const Json& action : command.value("actions", Json::array()))
    titles += (titles.empty() ? "" : ", ") + action.value("title", "");
  return titles;
}

// The presets that present samples of the demonstration.
struct SampleRow {
  const char* preset;
  const char* sample;
};
constexpr SampleRow sampleRows[] = {
    {"Messages", "messages"}, {"WhatsApp", "whatsapp"},   {"Telegram", "telegram"},   {"Slack", "slack"},
    {"Discord", "discord"},   {"Twitter", "twitter"},     {"Instagram", "instagram"}, {"Messenger", "messenger"},
    {"Alarm", "alarm"},       {"Long text", "long-text"},
};

Json withCommandName(const Json& notification) {
  Json command = {{"do", "present"}};
  command.update(notification);
  return command;
}

std::vector<Preset> samplePresets() {
  const std::vector<runner::Sample> all = runner::samples(runner::demonstrationAddress());
  std::vector<Preset> made;
  for (const SampleRow& row : sampleRows) {
    const auto sample = std::ranges::find(all, std::string_view(row.sample), &runner::Sample::name);
    made.push_back({row.preset, {{0, withCommandName(sample->notification)}}});
  }
  return made;
}

Json message(const std::string& title, const std::string& text, const std::string& thread) {
  return withCommandName({{"section", "com.apple.MobileSMS"}, {"title", title}, {"message", text}, {"thread", thread}});
}

Preset rightToLeft() {
  return {"Right to left", {{0, message("דנה לוי", "בוקר טוב! ניפגש ב־10:30 ליד הספרייה?", "dana")}}};
}

Preset conversation() {
  constexpr double interval = 2;
  constexpr const char* texts[] = {"Are you at the station?", "The train is five minutes late", "Platform 7",
                                   "I have a coffee for you", "I can see you!"};
  Preset made = {"Conversation of five messages", {}};
  for (const char* text : texts)
    made.steps.push_back({interval * static_cast<double>(made.steps.size()), message("Anna Weber", text, "anna")});
  return made;
}

Preset burst() {
  constexpr double interval = 0.15;
  constexpr int count = 20;
  Preset made = {"Burst of twenty", {}};
  for (int number = 1; number <= count; ++number) {
    const std::string text = std::to_string(number);
    made.steps.push_back({interval * (number - 1), message("Sender " + text, "Message " + text, "sender" + text)});
  }
  return made;
}

void setText(Json& command, const char* member, const std::string& text) {
  if (text.empty()) {
    command.erase(member);
  } else {
    command[member] = text;
  }
}

}  // namespace

Json commandOf(const ComposerFields& fields) {
  // The user info and the thread of a preset belong to its application.
  const bool isSameApplication = fields.base.value("section", "") == fields.application;
  Json command = withCommandName(isSameApplication ? fields.base : Json::object());
  command["section"] = fields.application;
  setText(command, "title", fields.title);
  setText(command, "subtitle", fields.subtitle);
  setText(command, "message", fields.text);
  setText(command, "icon", fields.picture);
  if (fields.actions != titlesOf(command)) command["actions"] = actionsFrom(fields.actions);
  command["dismissAutomatically"] = fields.persistence == Persistence::Temporary;
  return command;
}

ComposerFields fieldsOf(const Json& command) {
  ComposerFields fields;
  fields.application = command.value("section", "");
  fields.title = command.value("title", "");
  fields.subtitle = command.value("subtitle", "");
  fields.text = command.value("message", "");
  fields.actions = titlesOf(command);
  fields.picture = command.value("icon", "");
  fields.persistence = command.value("dismissAutomatically", true) ? Persistence::Temporary : Persistence::Persistent;
  fields.base = command;
  return fields;
}

std::vector<Preset> presets() {
  std::vector<Preset> all = samplePresets();
  all.push_back(rightToLeft());
  all.push_back(conversation());
  all.push_back(burst());
  return all;
}

}  // namespace phone_display
