// The files of the settings pane's bundle, as JSON values.
#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "objc/autorelease_pool.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/property_list_files.hpp"

namespace test {

using Json = nlohmann::ordered_json;

inline std::filesystem::path paneBundle() { return SETTINGS_PANE_BUNDLE; }

// The languages of the pane and of the library.
inline constexpr const char* languages[] = {"en", "de", "fr", "es", "it", "pt-BR",   "nl",      "sv", "pl",
                                            "tr", "ru", "uk", "ja", "ko", "zh-Hans", "zh-Hant", "ar", "he"};

inline Json propertyList(const std::filesystem::path& file) {
  const objc::AutoreleasePool pool;
  const objc::Ref<NSDictionary> read = foundation::readPropertyList(file);
  if (read == nullptr) throw std::runtime_error(file.string() + " is not a property list");
  return base::jsonOf(read);
}

// The specifiers of the page, in order.
inline Json paneItems() { return propertyList(paneBundle() / "Root.plist").at("items"); }

// The specifiers with a key, in order.
inline std::vector<Json> paneSettings() {
  std::vector<Json> settings;
  for (const Json& item : paneItems())
    if (item.contains("key")) settings.push_back(item);
  return settings;
}

inline Json stringsTable(const std::string& language) {
  const objc::AutoreleasePool pool;
  const std::filesystem::path file = paneBundle() / (language + ".lproj") / "Root.strings";
  const objc::Ref<NSDictionary> read = foundation::readStringsFile(file);
  if (read == nullptr) throw std::runtime_error(file.string() + " is not a table of strings");
  return base::jsonOf(read);
}

}  // namespace test
