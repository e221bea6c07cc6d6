#include <webp/encode.h>
#include <webp/mux.h>

#include <cstring>
#include <memory>

#include "simulator/runner/recorder_plugin.hpp"

namespace {

constexpr int maxQuality = 100;  // lossless
// The level of lossless encoding, from 0 to 9: a compromise between file size and encoding time.
constexpr int losslessLevel = 3;

struct EncoderDeleter {
  void operator()(WebPAnimEncoder* encoder) const { WebPAnimEncoderDelete(encoder); }
};
using EncoderHandle = std::unique_ptr<WebPAnimEncoder, EncoderDeleter>;

class Picture {
 public:
  Picture(int width, int height) {
    isInitialized_ = WebPPictureInit(&picture_) != 0;
    picture_.use_argb = 1;
    picture_.width = width;
    picture_.height = height;
  }
  ~Picture() { WebPPictureFree(&picture_); }
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;

  // The encoder requires its own copy of the pixels, because it can modify them.
  bool copy(const std::uint32_t* pixels) {
    if (!isInitialized_ || WebPPictureAlloc(&picture_) == 0) return false;
    const auto width = static_cast<std::size_t>(picture_.width);
    for (int row = 0; row < picture_.height; ++row)
      std::memcpy(picture_.argb + std::ptrdiff_t{row} * picture_.argb_stride,
                  pixels + std::ptrdiff_t{row} * picture_.width, width * sizeof *pixels);
    return true;
  }
  WebPPicture* get() { return &picture_; }

 private:
  WebPPicture picture_ = {};
  bool isInitialized_ = false;
};

class WebpEncoder final : public runner::AnimationEncoder {
 public:
  WebpEncoder(int width, int height, const WebPConfig& config, EncoderHandle encoder)
      : width_(width), height_(height), config_(config), encoder_(std::move(encoder)) {}

  std::optional<std::string> add(const std::uint32_t* pixels, int milliseconds) override {
    Picture picture(width_, height_);
    if (!picture.copy(pixels)) return "there is not enough memory for a frame";
    if (WebPAnimEncoderAdd(encoder_.get(), picture.get(), milliseconds, &config_) == 0) return lastError();
    return std::nullopt;
  }

  std::optional<std::string> finish(int milliseconds, std::vector<std::byte>& file) override {
    WebPData data = {};
    const bool isAssembled = WebPAnimEncoderAdd(encoder_.get(), nullptr, milliseconds, nullptr) != 0 &&
                             WebPAnimEncoderAssemble(encoder_.get(), &data) != 0;
    const auto* const bytes = reinterpret_cast<const std::byte*>(data.bytes);
    if (isAssembled) file.assign(bytes, bytes + data.size);
    WebPDataClear(&data);
    return isAssembled ? std::nullopt : std::optional(lastError());
  }

 private:
  std::string lastError() const { return WebPAnimEncoderGetError(encoder_.get()); }

  int width_;
  int height_;
  WebPConfig config_;
  EncoderHandle encoder_;
};

bool initialize(WebPConfig& config, int quality) {
  if (WebPConfigInit(&config) == 0) return false;
  if (quality == maxQuality) return WebPConfigLosslessPreset(&config, losslessLevel) != 0;
  // The encoder omits pixels that differ from the previous frame by less than a threshold. In a slow animation, these
  // differences add up, and remnants of earlier frames remain visible. The threshold depends on `quality` and is lowest
  // at its maximum. Therefore, `quality` has its maximum, and the requested quality is the upper limit `qmax`.
  config.quality = maxQuality;
  config.qmax = quality;
  return true;
}

}  // namespace

runner::AnimationEncoder* brim_create_animation_encoder(int width, int height, int quality) {
  WebPAnimEncoderOptions options;
  WebPConfig config;
  if (WebPAnimEncoderOptionsInit(&options) == 0 || !initialize(config, quality)) return nullptr;
  EncoderHandle encoder(WebPAnimEncoderNew(width, height, &options));
  return encoder == nullptr ? nullptr : new WebpEncoder(width, height, config, std::move(encoder));
}
