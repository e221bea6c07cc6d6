#include "simulator/springboard/services/applications.hpp"

#include <algorithm>
#include <deque>

#include "simulator/base/foundation_json.hpp"
#include "simulator/uikit/images/application_icons.hpp"

namespace springboard {

namespace {

namespace fs = std::filesystem;

struct ApplicationName {
  std::string_view identifier;
  const char* name;
};

// The applications that can be installed, in the order of the home screen.
constexpr ApplicationName knownApplications[] = {
    {"com.apple.mobilecal", "Calendar"},        {"com.apple.mobiletimer", "Clock"},
    {"com.apple.reminders", "Reminders"},       {"com.atebits.Tweetie2", "Twitter"},
    {"com.burbn.instagram", "Instagram"},       {"com.facebook.Messenger", "Messenger"},
    {"com.hammerandchisel.discord", "Discord"}, {"com.tinyspeck.chatlyio", "Slack"},
    {"net.whatsapp.WhatsAppSMB", "Business"},   {"ph.telegra.Telegraph", "Telegram"},
    {"com.apple.Preferences", "Settings"},      {"com.apple.Maps", "Maps"},
    {"com.apple.mobilemail", "Mail"},           {"com.apple.MobileSMS", "Messages"},
    {"net.whatsapp.WhatsApp", "WhatsApp"},
};

// The platform's numbers of the icon formats: notification, home screen and list.
constexpr int iconFormats[] = {8, 2, 0};
constexpr int homeScreenFormat = 2;
// The number of pixels per point in the artwork.
constexpr double artworkScale = 3;
constexpr std::size_t maxIconsOfOtherApplications = 200;

fs::path& artworkFolder() {
  static fs::path& folder = *new fs::path;
  return folder;
}

std::vector<std::string>& installed() {
  static auto& identifiers = *new std::vector<std::string>;
  return identifiers;
}

void setIconInAllFormats(const std::string& application, const std::shared_ptr<const drawing::Image>& icon) {
  for (const int format : iconFormats) uikit::setApplicationIcon(application, format, icon);
}

// Limits the number of icons of applications that are not installed: removes the icon that was least recently set.
void limitIcons(const std::string& latest) {
  static auto& identifiers = *new std::deque<std::string>;
  std::erase(identifiers, latest);
  identifiers.push_back(latest);
  if (identifiers.size() <= maxIconsOfOtherApplications) return;
  setIconInAllFormats(identifiers.front(), nullptr);
  identifiers.pop_front();
}

}  // namespace

std::shared_ptr<const drawing::Image> loadArtwork(const std::string& name) {
  return drawing::Image::fromInstalledFile(artworkFolder() / (name + ".png"), artworkScale);
}

void registerApplications(const fs::path& folder) {
  artworkFolder() = folder;
  uikit::setPlaceholderIcon(loadArtwork("placeholder"));
  for (const ApplicationName& application : knownApplications) {
    const std::string identifier(application.identifier);
    const auto icon = loadArtwork(identifier);
    if (icon == nullptr) continue;
    setIconInAllFormats(identifier, icon);
    installed().push_back(identifier);
  }
}

const std::vector<std::string>& installedApplications() { return installed(); }

std::string nameOf(std::string_view bundleIdentifier) {
  const auto* known = std::ranges::find(knownApplications, bundleIdentifier, &ApplicationName::identifier);
  if (known != std::ranges::end(knownApplications)) return known->name;
  return std::string(bundleIdentifier.substr(bundleIdentifier.rfind('.') + 1));
}

UIImage* iconOf(NSString* bundleIdentifier) { return UIImage::applicationIcon(bundleIdentifier, homeScreenFormat); }

bool setIcon(const std::string& bundleIdentifier, const fs::path& file) {
  const auto icon = drawing::loadImage(file);
  if (icon == nullptr) return false;
  setIconInAllFormats(bundleIdentifier, icon);
  if (std::ranges::find(installed(), bundleIdentifier) == installed().end()) limitIcons(bundleIdentifier);
  return true;
}

}  // namespace springboard
