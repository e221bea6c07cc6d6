#include "simulator/uikit/images/image_class.hpp"

#include <algorithm>
#include <list>

#include "objc/class_definition.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/images/application_icons.hpp"
#include "simulator/uikit/text/utf8.hpp"

struct ImageState {
  std::shared_ptr<const drawing::Image> image;
};
template <>
struct objc::StateOf<UIImage> {
  using Type = ImageState;
};

namespace uikit {

objc::Ref<UIImage> makeImage(std::shared_ptr<const drawing::Image> image) {
  if (image == nullptr) return nullptr;
  auto made = objc::make<UIImage>();
  objc::state(made.get()).image = std::move(image);
  return made;
}

std::shared_ptr<const drawing::Image> imageOf(const UIImage* image) {
  return image == nullptr ? nullptr : objc::state(image).image;
}

namespace {

// Converts a path of the phone to a path on this machine, as Foundation does. The conversion to a string replaces
// characters that are not valid UTF-8, because Foundation would reject them.
std::string fileSystemPath(const std::string& path) {
  NSString* clean = NSString::stringWithUTF8String(path.c_str());
  return clean->fileSystemRepresentation();
}

UIImage* imageWithContentsOfFile(Class, NSString* path) {
  const std::string name = utf8(path);
  if (name.empty()) return nullptr;
  const auto image = drawing::loadImageNamed(fileSystemPath(name), environment().device.scale);
  return image == nullptr ? nullptr : objc::autorelease(makeImage(image->named(name)));
}

UIImage* initWithData(UIImage* self, NSData* data) {
  objc::Ref<UIImage> made = objc::adopt(objc::sendSuper<"UIImage", UIImage*, "init">(self));
  if (made == nullptr || data == nullptr) return nullptr;
  auto image = drawing::decodeImage({static_cast<const std::byte*>(data->bytes()), data->length()});
  if (image == nullptr) return nullptr;
  objc::state(made.get()).image = std::move(image);
  return made.leak();
}

UIImage* imageWithData(Class, NSData* data) { return objc::autorelease(UIImage::withData(data)); }

CGSize size(UIImage* self) {
  const auto image = imageOf(self);
  if (image == nullptr) return {};
  return {image->size().width, image->size().height};
}
CGFloat scale(UIImage* self) {
  const auto image = imageOf(self);
  return image == nullptr ? 1 : image->scale();
}

UIImage* copyWithZone(UIImage* self, void*) { return objc::retain(self).leak(); }

NSData* dataOf(const std::vector<std::byte>& bytes) {
  return bytes.empty() ? nullptr : NSData::dataWithBytes(bytes.data(), bytes.size());
}

struct JpegRepresentation {
  std::weak_ptr<const drawing::Image> image;
  CGFloat quality;
  objc::Ref<NSData> data;
};

// The maximum number of cached representations, the most recently used first. Without the cache, an icon would be
// encoded again for each banner of its application.
constexpr std::size_t maxJpegRepresentations = 8;

std::list<JpegRepresentation>& jpegRepresentations() {
  static auto& stored = *new std::list<JpegRepresentation>;
  return stored;
}

NSData* jpegOf(const std::shared_ptr<const drawing::Image>& image, CGFloat quality) {
  std::list<JpegRepresentation>& stored = jpegRepresentations();
  stored.remove_if([](const JpegRepresentation& each) { return each.image.expired(); });
  const auto found = std::ranges::find_if(
      stored, [&](const JpegRepresentation& each) { return each.image.lock() == image && each.quality == quality; });
  if (found != stored.end()) {
    stored.splice(stored.begin(), stored, found);
  } else {
    stored.push_front({image, quality, objc::retain(dataOf(drawing::encodeJpeg(*image, quality)))});
    if (stored.size() > maxJpegRepresentations) stored.pop_back();
  }
  return objc::autorelease(stored.front().data);
}

}  // namespace

void defineImage() {
  static constexpr objc::MethodEntry methods[] = {
      objc::classMethod<"_applicationIconImageForBundleIdentifier:format:", &applicationIcon>(),
      objc::classMethod<"imageWithContentsOfFile:", &imageWithContentsOfFile>(),
      objc::classMethod<"imageWithData:", &imageWithData>(),
      objc::method<"initWithData:", &initWithData>(),
      objc::method<"size", &size>(),
      objc::method<"scale", &scale>(),
      objc::method<"copyWithZone:", &copyWithZone>(),
  };
  objc::defineClassWithState<UIImage>(methods);
}

}  // namespace uikit

NSData* UIImageJPEGRepresentation(UIImage* image, CGFloat quality) {
  const auto pixels = uikit::imageOf(image);
  return pixels == nullptr ? nullptr : uikit::jpegOf(pixels, quality);
}

NSData* UIImagePNGRepresentation(UIImage* image) {
  const auto pixels = uikit::imageOf(image);
  return pixels == nullptr ? nullptr : uikit::dataOf(drawing::encodePng(*pixels));
}
