#include "simulator/uikit/images/application_icons.hpp"

#include <map>

#include "simulator/uikit/images/image_class.hpp"
#include "simulator/uikit/text/utf8.hpp"

namespace uikit {

namespace {

using IconsByFormat = std::map<int, objc::Ref<UIImage>>;

// The icons are never destroyed, because the Objective-C runtime can shut down before static destructors run.
std::map<std::string, IconsByFormat>& icons() {
  static auto& all = *new std::map<std::string, IconsByFormat>;
  return all;
}

objc::Ref<UIImage>& placeholder() {
  static auto& icon = *new objc::Ref<UIImage>;
  return icon;
}

}  // namespace

void setApplicationIcon(const std::string& bundleIdentifier, int format, std::shared_ptr<const drawing::Image> icon) {
  IconsByFormat& formats = icons()[bundleIdentifier];
  if (icon == nullptr) {
    formats.erase(format);
  } else {
    formats[format] = makeImage(std::move(icon));
  }
  if (formats.empty()) icons().erase(bundleIdentifier);
}

void setPlaceholderIcon(std::shared_ptr<const drawing::Image> icon) { placeholder() = makeImage(std::move(icon)); }

UIImage* applicationIcon(Class, NSString* bundleIdentifier, int format) {
  const auto application = icons().find(utf8(bundleIdentifier));
  if (application == icons().end()) return placeholder();
  const auto icon = application->second.find(format);
  return icon == application->second.end() ? nullptr : icon->second.get();
}

}  // namespace uikit
