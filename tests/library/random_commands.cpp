#include "tests/library/random_commands.hpp"

#include <utility>

namespace test {

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* sections[] = {"com.apple.MobileSMS", "com.apple.MobileSMS", "com.apple.mobilemail",
                                    "com.apple.mobiletimer", "org.example.chat"};
constexpr const char* words[] = {
    "", " ", "Anna", "Bert: ", "Hello", "1\n2\n3\n4\n5", "Are we still on for lunch today?"};
constexpr const char* identifiers[] = {"reply", "MTAlarmSnoozeAction", "like"};
constexpr const char* labels[] = {"Close", "Clear", "Reply", "Open", "Snooze", "Stop", "Anna", "Hello"};
// In seconds. Many waits end just before, exactly at or just after the end of an animation or of a timer.
constexpr double waits[] = {0, 0.001, 1.0 / 60, 0.1, 0.15, 0.3, 0.4, 0.5, 0.7, 0.72, 0.74, 0.8, 1, 4.9, 5, 20};
constexpr double distances[] = {-200, -60, -25, -20, -19, -12, -3, 0, 3, 12, 41, 100, 164, 300};
constexpr const char* dragEnds[] = {"release", "release", "cancel", "hold"};
constexpr const char* flags[] = {"backgroundBlur", "showButtons",      "vibrate_on_send", "24_h_clock",
                                 "statusbar",      "boldButtons",      "enableGrabber",   "hide_unless_expanded",
                                 "tinyBanner",     "tinyBannerNoText", "enabled"};
constexpr const char* integers[] = {"maxLineCount",         "containerColor", "textAlignment", "timeToDismiss",
                                    "messagesAutoReadMode", "appIconPfp",     "topOffset",     "headerFontSize"};
constexpr const char* longLookKinds[] = {"scroll", "click", "trigger"};

}  // namespace

RandomCommands::RandomCommands(std::uint64_t seed, std::filesystem::path screenshotFolder)
    : generator_(seed), screenshotFolder_(std::move(screenshotFolder)) {}

std::size_t RandomCommands::below(std::size_t count) { return static_cast<std::size_t>(generator_() % count); }

double RandomCommands::between(double low, double high) {
  return low + (high - low) * static_cast<double>(below(1001)) / 1000;
}

// Usually returns the number of one of the three newest controllers. Occasionally returns another number, which can
// also belong to a released controller or to no controller.
std::size_t RandomCommands::controller(std::size_t controllers) {
  if (oneIn(20)) return below(controllers + 2);
  return controllers - std::min(controllers, below(3));
}

Json RandomCommands::texts() {
  Json fields = Json::object();
  for (const char* name : {"title", "subtitle", "message", "summary"})
    if (!oneIn(3)) fields[name] = oneOf(words);
  return fields;
}

Json RandomCommands::present() {
  Json command = {{"do", "present"}, {"section", oneOf(sections)}};
  command.update(texts());
  if (oneIn(2)) command["thread"] = "+491234567";
  if (oneIn(2)) command["actions"] = {{{"key", oneOf(words)}, {"identifier", oneOf(identifiers)}}, Json::object()};
  for (const char* name : {"clear", "close", "silence"})
    if (oneIn(3)) command[name] = oneIn(2);
  if (oneIn(2)) command["dismissAutomatically"] = oneIn(3) ? Json(nullptr) : Json(oneIn(3));
  return command;
}

Json RandomCommands::wait() { return {{"do", "wait"}, {"seconds", oneOf(waits)}}; }

Json RandomCommands::drag(std::size_t controllers) {
  Json command = {{"do", "drag"}, {"by", {between(-5, 5), oneOf(distances)}}, {"steps", below(4) + 1}};
  command["end"] = oneOf(dragEnds);
  if (oneIn(4))
    command["controller"] = controller(controllers);
  else if (oneIn(6))
    command["at"] = {between(0, 374), between(0, 811)};
  return command;
}

Json RandomCommands::tap(std::size_t controllers) {
  if (oneIn(3)) return {{"do", "tap"}, {"at", {between(0, 374), between(0, 811)}}};
  if (oneIn(2)) return {{"do", "tap"}, {"label", oneOf(labels)}};
  return {{"do", "tap"}, {"controller", controller(controllers)}};
}

Json RandomCommands::keyboard() {
  if (oneIn(2)) return {{"do", "type"}, {"text", oneOf(words)}};
  return {{"do", "key"}, {"name", oneIn(2) ? "return" : "backspace"}};
}

Json RandomCommands::set() {
  if (oneIn(2)) return {{"do", "set"}, {"key", oneOf(flags)}, {"value", oneIn(4) ? Json(nullptr) : Json(oneIn(2))}};
  return {{"do", "set"}, {"key", oneOf(integers)}, {"value", oneIn(4) ? Json(nullptr) : Json(below(6))}};
}

Json RandomCommands::platformEvent(std::size_t controllers) {
  switch (below(7)) {
    case 0:
      // Changes of the appearance are infrequent, because each change loads another wallpaper.
      if (oneIn(4)) return {{"do", "appearance"}, {"style", oneIn(2) ? "light" : "dark"}};
      return {{"do", "lock"}};
    case 1:
      return {{"do", "grabber"}};
    case 2:
      return {{"do", "press"}, {"type", oneIn(3) ? 102 : 101}, {"force", below(2)}};
    case 3:
      return {{"do", "longlook"}, {"controller", controller(controllers)}, {"kind", oneOf(longLookKinds)}};
    case 4:
      return {{"do", "dismiss"}, {"controller", controller(controllers)}, {"transition", oneIn(4) ? 30 : below(3)}};
    case 5:
      return {{"do", "testbanner"}};
    default: {
      Json command = {{"do", "update"}, {"controller", controller(controllers)}};
      command.update(texts());
      return command;
    }
  }
}

Json RandomCommands::inspection(std::size_t controllers) {
  switch (below(8)) {
    case 0:
      return {{"do", "screenshot"}, {"path", (screenshotFolder_ / "picture.png").string()}, {"scale", 0.25}};
    case 1:
      return {{"do", "tree"}};
    case 2:
      return {{"do", "tree"}, {"controller", controller(controllers)}};
    case 3:
      return {{"do", "settings"}};
    case 4:
      return {{"do", "hooks"}};
    default:
      return {{"do", "state"}, {"controller", controller(controllers)}};
  }
}

Json RandomCommands::next(std::size_t controllers) {
  const std::size_t choice = below(100);
  if (choice < 15) return present();
  if (choice < 50) return wait();
  if (choice < 67) return drag(controllers);
  if (choice < 77) return tap(controllers);
  if (choice < 83) return keyboard();
  if (choice < 86) return set();
  if (choice < 97) return platformEvent(controllers);
  return inspection(controllers);
}

}  // namespace test
