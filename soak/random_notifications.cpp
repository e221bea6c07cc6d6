#include "soak/random_notifications.hpp"

#include <iterator>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace soak {

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* sections[] = {"com.apple.MobileSMS",   "com.apple.mobilemail",   "com.apple.mobilecal",
                                    "com.apple.reminders",   "net.whatsapp.WhatsApp",  "ph.telegra.Telegraph",
                                    "com.burbn.instagram",   "com.tinyspeck.chatlyio", "com.atebits.Tweetie2",
                                    "com.apple.mobiletimer", "com.facebook.Messenger", "org.example.chat"};
constexpr const char* titles[] = {
    "Anna Weber", "Emil", "مريم حداد", "דנה לוי", "Wochenrückblick", "👩‍👩‍👧 Family", ""};
constexpr const char* sentences[] = {"Lunch?",
                                     "Are we still on for lunch today?",
                                     "هل ما زلنا سنتناول الغداء اليوم؟",
                                     "האם אנחנו עדיין נפגשים לארוחת צהריים?",
                                     "今日のランチはまだ大丈夫？",
                                     ""};
constexpr const char* buttons[] = {"Open", "Close", "Snooze", "Stop"};
constexpr std::size_t maxLongTextSentences = 40;

// A person in the address book, with a photo.
const Json personWithPhoto = {{"CKBBContextKeySenderPersonCentricID", "C0FFEE00-0001-4A11-8E11-0000000000A1"}};

}  // namespace

std::span<const char* const> applications() { return sections; }

const RandomNotifications::NamedOutcome RandomNotifications::namedOutcomes[] = {
    {"tapped", &RandomNotifications::tap},
    {"swiped away", &RandomNotifications::swipeAway},
    {"expanded", &RandomNotifications::expandAndCollapse},
    {"answered", &RandomNotifications::reply},
    {"cleared", &RandomNotifications::clear},
    {"timed out", &RandomNotifications::timeOut},
    {"replaced", &RandomNotifications::replace},
    {"withdrawn", &RandomNotifications::withdraw},
    {"dismissed by the lock", &RandomNotifications::lock},
    {"action executed", &RandomNotifications::executeAction},
};

Json RandomNotifications::notification() {
  Json command = {{"do", "present"}, {"section", oneOf(sections)}, {"title", oneOf(titles)}};
  std::string message = oneOf(sentences);
  if (below(5) == 0) {
    for (std::size_t count = below(maxLongTextSentences); count > 0; --count)
      message.append(" ").append(oneOf(sentences));
  }
  command["message"] = message;
  if (below(4) == 0) command["subtitle"] = oneOf(sentences);
  if (below(3) == 0) command["thread"] = std::to_string(below(20));
  if (below(3) == 0) {
    command["section"] = "com.apple.MobileSMS";
    command["userInfo"] = personWithPhoto;
  }
  if (command["section"] == "com.apple.mobiletimer") {
    command["close"] = true;
    command["dismissAutomatically"] = false;
    command["actions"] = {{{"key", "snooze"}, {"identifier", "MTAlarmSnoozeAction"}, {"title", "Snooze"}}};
  } else if (below(2) == 0) {
    command["actions"] = {{{"key", "like"}, {"identifier", "like"}, {"title", "Like"}},
                          {{"key", "reply"}, {"identifier", "reply"}, {"title", "Reply"}, {"textInput", true}}};
  }
  return command;
}

void RandomNotifications::attempt(const Json& command) { session_.run(command); }

void RandomNotifications::wait(double seconds) { attempt({{"do", "wait"}, {"seconds", seconds}}); }

void RandomNotifications::present(const Json& notification) {
  const Json answer = session_.run(notification);
  if (!answer.at("ok")) throw std::runtime_error("a notification was rejected: " + answer.dump());
}

void RandomNotifications::completeEach(std::span<const char* const> applications) {
  for (const char* const application : applications) {
    for (const NamedOutcome& outcome : namedOutcomes) {
      Json command = notification();
      command["section"] = application;
      command["userInfo"] = personWithPhoto;
      present(command);
      wait(0.6);
      (this->*outcome.run)();
      wait(1);
    }
  }
}

void RandomNotifications::presentAndComplete() {
  const NamedOutcome& outcome = namedOutcomes[below(std::size(namedOutcomes))];
  ++outcomes_[outcome.name];
  present(notification());
  wait(0.6);
  (this->*outcome.run)();
  wait(below(4) == 0 ? 7 : 1);
  attempt({{"do", "log"}});
}

void RandomNotifications::presentOnly() {
  present(notification());
  switch (below(5)) {
    case 0:
      attempt({{"do", "drag"}, {"by", {0, -80}}, {"steps", 2}});
      break;
    case 1:
      attempt({{"do", "drag"}, {"by", {0, 200}}, {"steps", 2}});
      break;
    case 2:
      attempt({{"do", "withdraw"}});
      break;
    default:
      break;
  }
  attempt({{"do", "log"}});
}

void RandomNotifications::reset() {
  attempt({{"do", "drag"}, {"at", {5, 800}}, {"by", {0, 0}}, {"end", "cancel"}});
  attempt({{"do", "lock"}});
  wait(1);
  // The first press unlocks the phone. The second one closes the page of an application.
  for (int press = 0; press < 2; ++press) attempt({{"do", "press"}, {"type", 101}, {"force", 0}});
  attempt({{"do", "withdraw"}});
  wait(4);
  attempt({{"do", "log"}});
}

void RandomNotifications::expand() {
  attempt({{"do", "drag"}, {"by", {0, 200}}});
  wait(0.6);
}

void RandomNotifications::tap() {
  attempt({{"do", "tap"}, {"at", {187, 70}}});
  wait(1);
  attempt({{"do", "press"}, {"type", 101}, {"force", 0}});
}

void RandomNotifications::swipeAway() { attempt({{"do", "drag"}, {"by", {0, -80}}}); }

void RandomNotifications::expandAndCollapse() {
  expand();
  attempt({{"do", "drag"}, {"by", {0, -200}}});
}

void RandomNotifications::reply() {
  expand();
  attempt({{"do", "tap"}, {"label", "Reply"}});
  wait(0.6);
  attempt({{"do", "type"}, {"text", oneOf(sentences)}});
  attempt({{"do", "key"}, {"name", "return"}});
}

void RandomNotifications::clear() {
  expand();
  attempt({{"do", "tap"}, {"label", "Clear"}});
}

void RandomNotifications::timeOut() { wait(7); }

void RandomNotifications::replace() {
  present(notification());
  wait(0.6);
  present(notification());
}

void RandomNotifications::withdraw() { attempt({{"do", "withdraw"}}); }

void RandomNotifications::lock() {
  attempt({{"do", "lock"}});
  wait(1);
  attempt({{"do", "press"}, {"type", 101}, {"force", 0}});
}

void RandomNotifications::executeAction() {
  expand();
  attempt({{"do", "tap"}, {"label", oneOf(buttons)}});
}

}  // namespace soak
