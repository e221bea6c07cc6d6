// Commands that simulate the user's touches and typing.
#include <cmath>

#include "simulator/runner/banner_inspection.hpp"
#include "simulator/runner/command_handlers.hpp"
#include "simulator/runner/controller_lookup.hpp"
#include "simulator/runner/finger.hpp"
#include "simulator/runner/screen_search.hpp"
#include "simulator/runner/typing.hpp"

namespace runner {

namespace {

constexpr int maxSteps = 10000;

constexpr const char* endings[] = {"release", "cancel", "hold"};
constexpr const char* keys[] = {"return", "backspace"};
const FieldType ending = {"release, cancel or hold", [](const Json& value) { return isOneOf(value, endings); }};
const FieldType key = {"return or backspace", [](const Json& value) { return isOneOf(value, keys); }};
const FieldType stepCount = {"an integer from 1 to 10000", [](const Json& value) {
                               return value.is_number_integer() && value >= 1 && value <= maxSteps;
                             }};

CGPoint pointOf(const Json& value) { return {value[0].get<double>(), value[1].get<double>()}; }

CGPoint onScreen(const Json& value) {
  const CGPoint point = pointOf(value);
  if (!isOnScreen(point)) throw CommandError("the point " + value.dump() + " is not on the screen");
  return point;
}

// Returns the middle of the view's final frame. If the final frame is outside the screen, returns the middle of its
// presented frame, because a view that is being animated off the screen is still visible.
CGPoint middleOf(const UIView* view, const std::string& name) {
  for (const CGRect& frame : {frameOnScreen(view), presentedFrameOnScreen(view)})
    if (const auto middle = middleOnScreen(frame)) return *middle;
  throw CommandError(name + " is outside the screen");
}

CGPoint middleOfBanner(const NCNotificationShortLookViewController* controller) {
  const UIView* banner = visibleBanner(controller);
  if (banner == nullptr)
    throw CommandError("the controller's banner has no content, because another banner could not be replaced");
  return middleOf(banner, "the controller's banner");
}

std::string listOfReadableTexts() {
  std::string list;
  for (const std::string& text : readableTexts()) list += (list.empty() ? "\"" : ", \"") + text + "\"";
  return list.empty() ? "the screen shows no text" : "the texts on the screen are " + list;
}

CGPoint middleOfLabel(const std::string& text) {
  const UIView* view = viewWithText(text);
  if (view == nullptr) throw CommandError("no view has the text \"" + text + "\"; " + listOfReadableTexts());
  return middleOf(view, "\"" + text + "\"");
}

Json tap(const Json& command) {
  if (command.size() != 2) throw CommandError(R"(tap takes exactly one of "at", "label" and "controller")");
  if (isFingerHeld())
    throw CommandError(R"(the finger of the last drag is still on the screen; a drag without "end":"hold" lifts it)");
  if (command.contains("at")) {
    tapAt(onScreen(command["at"]));
  } else if (command.contains("label")) {
    tapAt(middleOfLabel(command["label"]));
  } else {
    tapAt(middleOfBanner(controllerOnScreen(command["controller"])));
  }
  return nullptr;
}

CGPoint startOf(const Json& command) {
  if (command.contains("at") && command.contains("controller"))
    throw CommandError(R"(drag takes "at" or "controller", not both)");
  if (command.contains("at")) return onScreen(command["at"]);
  return middleOfBanner(command.contains("controller") ? controllerOnScreen(command["controller"])
                                                       : newestControllerOnScreen());
}

// Checks the start of a drag that continues an earlier one. The finger is already on the screen, so the start is
// ignored, but an invalid start is probably a mistake.
CGPoint checkIgnoredStart(const Json& command) {
  if (command.contains("at")) onScreen(command["at"]);
  if (command.contains("controller")) bannerNumber(command["controller"]);
  return {};
}

Json dragFinger(const Json& command) {
  const std::string end = command.value("end", "release");
  const CGPoint start = isFingerHeld() ? checkIgnoredStart(command) : startOf(command);
  drag(start, pointOf(command["by"]), command.value("steps", 10),
       end == "hold"     ? DragEnd::Hold
       : end == "cancel" ? DragEnd::Cancel
                         : DragEnd::Release);
  return nullptr;
}

Json typingAnswer(TypingResult result) {
  if (result == TypingResult::NoReceiver) throw CommandError("no view has the keyboard focus; tap a text field first");
  return nullptr;
}

Json type(const Json& command) { return typingAnswer(typeText(command["text"].get_ref<const std::string&>())); }

Json pressKeyNamed(const Json& command) {
  return typingAnswer(pressKey(command["name"] == "return" ? Key::Return : Key::Backspace));
}

}  // namespace

std::span<const Command> touchCommands() {
  static constexpr Field tapFields[] = {
      {"at", field::point}, {"label", field::nonEmptyText}, {"controller", field::integer}};
  static constexpr Field dragFields[] = {{"controller", field::integer},
                                         {"at", field::point},
                                         {"by", field::point, Presence::Required},
                                         {"steps", stepCount},
                                         {"end", ending}};
  static constexpr Field typeFields[] = {{"text", field::text, Presence::Required}};
  static constexpr Field keyFields[] = {{"name", key, Presence::Required}};
  static constexpr Command commands[] = {
      {"tap", tapFields, &tap, "tap a point, the label or control with this text, or the middle of a banner"},
      {"drag", dragFields, &dragFinger, "drag a finger, by default from the middle of the newest banner"},
      {"type", typeFields, &type, "type text into the first responder"},
      {"key", keyFields, &pressKeyNamed, "press return or backspace in the first responder"},
  };
  return commands;
}

}  // namespace runner
