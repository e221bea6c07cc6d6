// The interface of the recorder plugin, which encodes animations as WebP files. The simulator looks up the function by
// name.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace runner {

// Encodes one animation. It encodes each frame when the frame is added and retains only the encoded frames. Equal
// frames give equal bytes. The functions return a description of the error, or nothing on success. After an error, the
// encoder cannot be used. One thread at a time can use an encoder.
class AnimationEncoder {
 public:
  AnimationEncoder() = default;
  AnimationEncoder(const AnimationEncoder&) = delete;
  AnimationEncoder& operator=(const AnimationEncoder&) = delete;
  virtual ~AnimationEncoder() = default;

  // Adds the frame that is visible from this time on, in milliseconds since the first frame. A pixel is 0xAARRGGBB. The
  // rows follow each other without a gap. The times of the frames must not decrease.
  [[nodiscard]] virtual std::optional<std::string> add(const std::uint32_t* pixels, int milliseconds) = 0;
  // Ends the last frame at this time. `file` receives the contents of the file.
  [[nodiscard]] virtual std::optional<std::string> finish(int milliseconds, std::vector<std::byte>& file) = 0;
};

}  // namespace runner

// Creates an encoder for frames of this size in pixels. The quality is from 1 to 100; 100 is lossless. Returns null if
// the installed WebP library is incompatible. The caller owns the encoder.
extern "C" runner::AnimationEncoder* brim_create_animation_encoder(int width, int height, int quality);
