// Commands that read the state of controllers, settings, hooks, view trees, events and the screen.
#include <string>

#include "simulator/base/event_log.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/drawing/image.hpp"
#include "simulator/process/process_start.hpp"
#include "simulator/runner/banner_inspection.hpp"
#include "simulator/runner/command_handlers.hpp"
#include "simulator/runner/controller_lookup.hpp"
#include "simulator/runner/filmstrip.hpp"
#include "simulator/runner/library_inspection.hpp"
#include "simulator/springboard/services/notification_dispatcher.hpp"
#include "simulator/uikit/description/view_tree.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/rendering/renderer.hpp"
#include "simulator/uikit/views/window.hpp"

namespace runner {

namespace {

constexpr double maxScale = 8;

const FieldType height = {"a number of points above 0",
                          [](const Json& value) { return value.is_number() && value.get<double>() > 0; }};
const FieldType scale = {"a number above 0, at most 8", [](const Json& value) {
                           return value.is_number() && value.get<double>() > 0 && value.get<double>() <= maxScale;
                         }};

Json state(const Json& command) { return stateOfBanner(bannerNumber(command["controller"])); }

Json valueOf(const BrimSetting& setting) {
  if (setting.type == BrimSettingType::Bool) return *static_cast<const bool*>(setting.variable);
  return *static_cast<const NSInteger*>(setting.variable);
}

Json settings(const Json&) {
  Json values = Json::object();
  for (const BrimSetting& setting : librarySettings()) values[setting.key] = valueOf(setting);
  return {{"settings", values}};
}

Json hooks(const Json&) {
  Json rows = Json::array();
  for (const BrimInstalledMethod& method : installedMethods()) {
    rows.push_back({{"class", method.className},
                    {"selector", method.selector},
                    {"kind", method.kind == objc::RowKind::Hook ? "hook" : "add"},
                    {"encoding", method.encoding},
                    {"effective", method.effective}});
  }
  return {{"rows", rows}};
}

Json tree(const Json& command) {
  Json windows = Json::array();
  if (command.contains("controller")) {
    windows.push_back(uikit::describeTree(liveController(command["controller"])->view()));
  } else {
    for (UIWindow* window : uikit::visibleWindows()) windows.push_back(uikit::describeTree(window));
  }
  return {{"windows", windows}};
}

Json describe(const NotificationRequestState& request) {
  const NotificationContentState& content = objc::state(request.content.get());
  return {
      {"section", base::jsonOf(request.sectionIdentifier)},
      {"identifier", base::jsonOf(request.notificationIdentifier)},
      {"thread", base::jsonOf(request.threadIdentifier)},
      {"title", base::jsonOf(content.title)},
      {"subtitle", base::jsonOf(content.subtitle)},
      {"message", base::jsonOf(content.message)},
      {"date", base::jsonOf(request.timestamp)},
  };
}

Json notifications(const Json&) {
  Json listed = Json::array();
  for (const auto& request : NCNotificationDispatcher::shared()->list().all())
    listed.push_back(describe(objc::state(request.get())));
  return {{"notifications", listed}};
}

Json log(const Json&) { return {{"events", base::takeEvents()}}; }

std::shared_ptr<drawing::Canvas> render(const Json& command) {
  const double pixelsPerPoint = command.value("scale", uikit::environment().device.scale);
  if (!command.contains("crop")) return uikit::renderScreen(pixelsPerPoint);
  UIView* banner = visibleBanner(controllerOnScreen(command["crop"]));
  if (banner == nullptr)
    throw CommandError("the picture cannot be cropped to the controller's banner, because the banner has no content");
  return uikit::renderView(banner, pixelsPerPoint);
}

Json screenshot(const Json& command) {
  const std::string path = command["path"];
  const auto canvas = render(command);
  if (canvas == nullptr) throw CommandError("the controller's banner is outside the screen");
  if (const auto failure = drawing::writePng(canvas->surface(), path))
    throw CommandError("the picture " + path + " could not be written: " + *failure);
  return nullptr;
}

// The maximum number of frames in a filmstrip.
constexpr std::size_t maxFrames = 40;

Json frame(const Json& command) {
  if (frameCount() >= maxFrames)
    throw CommandError("the filmstrip has reached the maximum of 40 frames; write it with the command filmstrip");
  const uikit::Environment& environment = uikit::environment();
  const FrameResult result = addFrame(*uikit::renderScreen(command.value("scale", 1.0)),
                                      command.value("height", environment.device.screen.height));
  if (result == FrameResult::StripTooLarge) {
    throw CommandError(
        "the filmstrip is too large for another frame of this size; write it with the command "
        "filmstrip, or use a smaller scale");
  }
  return {{"frames", frameCount()}};
}

Json filmstrip(const Json& command) {
  const std::string path = command["path"];
  const auto strip = drawFilmstrip();
  if (strip == nullptr) throw CommandError("the filmstrip has no frames; add some with the command frame");
  // After an error, the frames are retained, because the next command can specify another path.
  if (const auto failure = drawing::writePng(strip->surface(), path))
    throw CommandError("the picture " + path + " could not be written: " + *failure);
  removeFrames();
  return nullptr;
}

}  // namespace

std::span<const Command> inspectionCommands() {
  static constexpr Field controllerField[] = {{"controller", field::integer, Presence::Required}};
  static constexpr Field treeFields[] = {{"controller", field::integer}};
  static constexpr Field screenshotFields[] = {
      {"path", field::nonEmptyText, Presence::Required}, {"scale", scale}, {"crop", field::integer}};
  static constexpr Field frameFields[] = {{"height", height}, {"scale", scale}};
  static constexpr Field filmstripFields[] = {{"path", field::nonEmptyText, Presence::Required}};
  static constexpr Command commands[] = {
      {"state", controllerField, &state, "return the state of a controller, its banner and its dismissal"},
      {"settings", {}, &settings, "return the current values of the library's settings"},
      {"hooks", {}, &hooks, "return the methods that the library has hooked or added, in order"},
      {"tree", treeFields, &tree, "return the view trees of all windows, or of one controller"},
      {"notifications", {}, &notifications, "return the notifications in the list, latest first"},
      {"log", {}, &log, "return the events since the last log command, and clear the log"},
      {"frame", frameFields, &frame, "add the screen, or its upper part, to the filmstrip"},
      {"filmstrip", filmstripFields, &filmstrip,
       "write the frames since the last filmstrip command side by side to a PNG file"},
      {"screenshot", screenshotFields, &screenshot, "write the screen, or a controller's banner, to a PNG file"},
  };
  return commands;
}

}  // namespace runner
