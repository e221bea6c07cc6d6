// Support for tests of recordings: a phone with a folder for recordings, and the decoder of the WebP library.
#pragma once

#include <webp/demux.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <memory>

#include "simulator/drawing/image.hpp"
#include "tests/support/plain_phone.hpp"

namespace test {

namespace fs = std::filesystem;

inline std::string contentsOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

struct Frame {
  int end = 0;                     // the time in milliseconds at which the frame ends
  std::vector<std::uint8_t> rgba;  // the pixels from left to right and from top to bottom
};

struct Animation {
  int width = 0;
  int height = 0;
  std::uint32_t loops = 1;  // 0 means endless
  std::vector<Frame> frames;

  std::vector<int> ends() const {
    std::vector<int> times;
    for (const Frame& frame : frames) times.push_back(frame.end);
    return times;
  }
  // Returns the frame that is visible at this time.
  const Frame& frameAt(int milliseconds) const {
    const auto found = std::find_if(frames.begin(), frames.end(),
                                    [milliseconds](const Frame& frame) { return frame.end > milliseconds; });
    return found == frames.end() ? throw std::runtime_error("the animation is too short") : *found;
  }
};

inline Animation decode(const fs::path& path) {
  const std::string bytes = contentsOf(path);
  const WebPData data = {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()};
  const std::unique_ptr<WebPAnimDecoder, decltype(&WebPAnimDecoderDelete)> decoder(WebPAnimDecoderNew(&data, nullptr),
                                                                                   &WebPAnimDecoderDelete);
  if (decoder == nullptr) throw std::runtime_error(path.string() + " is not a WebP file");
  WebPAnimInfo info;
  WebPAnimDecoderGetInfo(decoder.get(), &info);
  Animation animation = {
      static_cast<int>(info.canvas_width), static_cast<int>(info.canvas_height), info.loop_count, {}};
  while (WebPAnimDecoderHasMoreFrames(decoder.get()) != 0) {
    std::uint8_t* pixels = nullptr;
    int end = 0;
    if (WebPAnimDecoderGetNext(decoder.get(), &pixels, &end) == 0) throw std::runtime_error("a frame is damaged");
    animation.frames.push_back({end, {pixels, pixels + std::size_t{4} * info.canvas_width * info.canvas_height}});
  }
  return animation;
}

// Returns the mean difference of the color components, from 0 to 255.
inline double difference(const Frame& frame, const drawing::Image& picture) {
  double sum = 0;
  std::size_t index = 0;
  for (int y = 0; y < picture.pixelHeight(); ++y) {
    for (int x = 0; x < picture.pixelWidth(); ++x, index += 4) {
      const std::uint32_t pixel = picture.pixel(x, y);
      for (unsigned component = 0; component < 3; ++component)
        sum += std::abs(static_cast<int>(pixel >> (16 - 8 * component) & 0xFF) - frame.rgba[index + component]);
    }
  }
  return sum / 3 / picture.pixelWidth() / picture.pixelHeight();
}

inline std::vector<std::string> filesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename());
  return names;
}

// A phone, and an empty folder for its recordings.
class Recording : public testing::Test {
 protected:
  explicit Recording(runner::Options options = {}) : phone(std::move(options)) { fs::create_directory(folder()); }

  fs::path folder() const { return phone.folder() / "recordings"; }
  fs::path path(const char* name = "a.webp") const { return folder() / name; }
  void start(const Json& fields = Json::object()) {
    Json command = {{"do", "startrecording"}, {"path", path().string()}};
    command.update(fields);
    phone.run(command);
  }
  Json stop() { return phone.run("stoprecording"); }
  std::string errorOf(const Json& command) { return phone.answer(command).value("error", ""); }
  std::shared_ptr<const drawing::Image> screenshot() {
    const fs::path file = phone.folder() / "screenshot.png";
    phone.run("screenshot", {{"path", file.string()}, {"scale", 1}});
    return drawing::loadImage(file);
  }

  PlainPhone phone;
};

}  // namespace test
