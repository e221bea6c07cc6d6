// A recording of the screen as an animated WebP file. The recording takes a frame when it starts. It then takes a frame
// whenever the picture has changed, but at most 30 frames a second on the current clock. Each frame is encoded when the
// next frame is taken or the recording ends. A frame is a picture at the end of an iteration of the main queue. Main
// thread.
//
// There is at most one recording at a time. The file is written when the recording ends. If a recording fails, or the
// process ends before the recording does, no file is written and an existing file is unchanged.
#pragma once

#include <filesystem>

namespace runner {

// The maximum duration of a recording in seconds.
inline constexpr double maxRecordingSeconds = 60;

// What ends a recording: the command stoprecording, or the command record after a specified time.
enum class RecordingEnd { Command, Time };

struct RecordingRequest {
  std::filesystem::path path;
  double scale = 1;  // in pixels per point
  int quality = 75;  // from 1 to 100; 100 is lossless
  RecordingEnd end = RecordingEnd::Command;
  double seconds = maxRecordingSeconds;  // the duration if time ends the recording
};

struct RecordingSummary {
  int frames = 0;
  double seconds = 0;
};

// Starts a recording. Throws CommandError if the file cannot be written or another recording is running.
void startRecording(const RecordingRequest& request);
// Ends the recording that was started with this kind of end, and writes the file. Throws CommandError if there is no
// such recording or if the recording fails. Afterwards, no recording with this kind of end is running, even after an
// error.
RecordingSummary endRecording(RecordingEnd end);
// Returns the path of the running recording. Empty if there is none.
std::filesystem::path runningRecording();

}  // namespace runner
