// Commands that record the screen as an animation.
#include "simulator/runner/command_handlers.hpp"
#include "simulator/runner/recording.hpp"
#include "simulator/runner/waiting.hpp"

namespace runner {

namespace {

constexpr double defaultSeconds = 5;
constexpr double maxScale = 3;

const FieldType duration = {"a number of seconds above 0, at most 60", [](const Json& value) {
                              return value.is_number() && value.get<double>() > 0 &&
                                     value.get<double>() <= maxRecordingSeconds;
                            }};
const FieldType scale = {"a number above 0, at most 3", [](const Json& value) {
                           return value.is_number() && value.get<double>() > 0 && value.get<double>() <= maxScale;
                         }};
const FieldType quality = {"an integer from 1 to 100", [](const Json& value) {
                             return value.is_number_integer() && value.get<double>() >= 1 && value.get<double>() <= 100;
                           }};

RecordingRequest requestFor(const Json& command) {
  RecordingRequest request;
  request.path = command["path"].get<std::string>();
  request.scale = command.value("scale", request.scale);
  request.quality = command.value("quality", request.quality);
  return request;
}

Json answerFor(const RecordingSummary& summary) { return {{"frames", summary.frames}, {"seconds", summary.seconds}}; }

Json start(const Json& command) {
  startRecording(requestFor(command));
  return nullptr;
}

Json stop(const Json&) { return answerFor(endRecording(RecordingEnd::Command)); }

Json record(const Json& command) {
  RecordingRequest request = requestFor(command);
  request.end = RecordingEnd::Time;
  request.seconds = command.value("seconds", defaultSeconds);
  startRecording(request);
  letTimePass(request.seconds);
  return answerFor(endRecording(RecordingEnd::Time));
}

}  // namespace

std::span<const Command> recordingCommands() {
  static constexpr Field startFields[] = {
      {"path", field::nonEmptyText, Presence::Required}, {"scale", scale}, {"quality", quality}};
  static constexpr Field recordFields[] = {
      {"path", field::nonEmptyText, Presence::Required}, {"seconds", duration}, {"scale", scale}, {"quality", quality}};
  static constexpr Command commands[] = {
      {"startrecording", startFields, &start, "start to record the screen as an animation"},
      {"stoprecording", {}, &stop, "end the recording and write it to a WebP file"},
      {"record", recordFields, &record, "start a recording, advance the clock as wait does, and end the recording"},
  };
  return commands;
}

}  // namespace runner
