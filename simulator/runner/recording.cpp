#include "simulator/runner/recording.hpp"

#include <cairo.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "simulator/drawing/canvas.hpp"
#include "simulator/drawing/files.hpp"
#include "simulator/foundation/clock.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/plugin.hpp"
#include "simulator/runner/command_handlers.hpp"
#include "simulator/runner/recorder_plugin.hpp"
#include "simulator/uikit/rendering/renderer.hpp"

namespace runner {

namespace {

using foundation::Nanoseconds;

// The display shows 60 frames a second, and the recording examines every other frame. The minimum interval is shorter
// than two frames, because the times of frames are rounded, and because a frame can be late with a real clock.
constexpr Nanoseconds minFrameInterval = foundation::nanosecondsInSecond / 40;
constexpr Nanoseconds nanosecondsInMillisecond = 1'000'000;

std::unique_ptr<AnimationEncoder> createEncoder(const drawing::Canvas& canvas, int quality) {
  const auto create = reinterpret_cast<decltype(&brim_create_animation_encoder)>(
      foundation::pluginFunction("recorder.so", "brim_create_animation_encoder"));
  if (create == nullptr) {
    throw CommandError(
        "the plugin recorder.so cannot be loaded; it must be next to libsimulator.so, and the WebP library must be "
        "installed (see standard error)");
  }
  std::unique_ptr<AnimationEncoder> encoder(create(canvas.pixelWidth(), canvas.pixelHeight(), quality));
  if (encoder == nullptr)
    throw CommandError(
        "the installed WebP library is incompatible with the plugin recorder.so; build the plugin again");
  return encoder;
}

// A canvas has no gaps between its rows, because each pixel has four bytes.
const std::uint32_t* pixelsOf(const drawing::Canvas& canvas) {
  cairo_surface_flush(canvas.surface());
  return reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(canvas.surface()));
}

bool hasSamePixels(const drawing::Canvas& left, const drawing::Canvas& right) {
  const auto count = static_cast<std::size_t>(left.pixelWidth()) * static_cast<std::size_t>(left.pixelHeight());
  return std::memcmp(pixelsOf(left), pixelsOf(right), count * sizeof(std::uint32_t)) == 0;
}

class Recording {
 public:
  explicit Recording(const RecordingRequest& request)
      : request_(request),
        start_(foundation::clock::now()),
        limit_(start_ + foundation::nanosecondsOf(request.seconds)),
        examined_(start_),
        taken_(start_),
        picture_(uikit::renderScreen(request.scale)),
        generation_(uikit::displayGeneration()),
        encoder_(createEncoder(*picture_, request.quality)) {}

  const RecordingRequest& request() const { return request_; }
  // Returns whether the recording can take more frames.
  bool continues() const { return !error_ && foundation::clock::now() < limit_; }
  bool isFrameDue() const { return foundation::clock::now() - examined_ >= minFrameInterval; }

  void takeFrame() {
    examined_ = foundation::clock::now();
    if (uikit::displayGeneration() == generation_) return;
    const std::shared_ptr<drawing::Canvas> next = uikit::renderScreen(request_.scale);
    generation_ = uikit::displayGeneration();
    if (hasSamePixels(*picture_, *next)) return;
    encode();
    picture_ = next;
    taken_ = examined_;
  }

  RecordingSummary write() {
    const Nanoseconds now = foundation::clock::now();
    if (request_.end == RecordingEnd::Command && now > limit_)
      fail("it lasted longer than the maximum of " + std::to_string(static_cast<int>(maxRecordingSeconds)) +
           " seconds; end it earlier with the command stoprecording");
    const Nanoseconds end = std::min(now, limit_);
    if (taken_ < end || frames_ == 0) encode();
    std::vector<std::byte> file;
    if (!error_) error_ = encoder_->finish(millisecondsTo(end), file);
    if (!error_) error_ = drawing::writeFile(file, request_.path);
    if (error_) fail(*error_);
    return {frames_, foundation::secondsOf(end - start_)};
  }

 private:
  [[noreturn]] void fail(const std::string& reason) const {
    throw CommandError("the recording " + request_.path.string() + " was not written: " + reason);
  }

  int millisecondsTo(Nanoseconds time) const {
    return static_cast<int>((time - start_ + nanosecondsInMillisecond / 2) / nanosecondsInMillisecond);
  }

  // Encodes the last frame. A frame is encoded only after it has ended, because a frame whose duration is zero must be
  // omitted: browsers would show it for a tenth of a second.
  void encode() {
    if (error_) return;
    error_ = encoder_->add(pixelsOf(*picture_), millisecondsTo(taken_));
    ++frames_;
  }

  RecordingRequest request_;
  Nanoseconds start_;
  Nanoseconds limit_;
  Nanoseconds examined_;  // the time at which the screen was last compared with the last frame
  Nanoseconds taken_;     // the time at which the last frame was taken
  std::shared_ptr<const drawing::Canvas> picture_;  // the last frame
  std::uint64_t generation_;
  std::unique_ptr<AnimationEncoder> encoder_;
  std::optional<std::string> error_;
  int frames_ = 0;
};

std::shared_ptr<Recording>& running() {
  static std::shared_ptr<Recording> recording;
  return recording;
}

// Schedules the examination of the screen on the main queue, after all observers of this frame have run, because they
// can change the screen.
foundation::FrameDemand observeFrame(const std::weak_ptr<Recording>& observed) {
  const std::shared_ptr<Recording> recording = observed.lock();
  if (recording == nullptr || !recording->continues()) return foundation::FrameDemand::Done;
  if (recording->isFrameDue()) {
    foundation::onMainThread([observed] {
      if (const std::shared_ptr<Recording> due = observed.lock()) due->takeFrame();
    });
  }
  return foundation::FrameDemand::More;
}

}  // namespace

void startRecording(const RecordingRequest& request) {
  if (running() != nullptr)
    throw CommandError("the recording " + running()->request().path.string() +
                       " is running; only one recording can run at a time, so it must end first");
  if (const auto error = drawing::checkWritable(request.path))
    throw CommandError("the recording " + request.path.string() + " cannot be written: " + *error);
  running() = std::make_shared<Recording>(request);
  foundation::addFrameObserver([observed = std::weak_ptr(running())](double) { return observeFrame(observed); });
}

RecordingSummary endRecording(RecordingEnd end) {
  if (running() == nullptr) throw CommandError("no recording is running; start one with the command startrecording");
  if (running()->request().end != end)
    throw CommandError("the recording " + running()->request().path.string() +
                       " was started by the command record, which ends it");
  return std::exchange(running(), nullptr)->write();
}

std::filesystem::path runningRecording() {
  return running() == nullptr ? std::filesystem::path() : running()->request().path;
}

}  // namespace runner
