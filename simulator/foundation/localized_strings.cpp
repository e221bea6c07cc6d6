#include "simulator/foundation/localized_strings.hpp"

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/ns_bundle.hpp"
#include "simulator/foundation/hook_function.hpp"
#include "simulator/foundation/locale.hpp"
#include "simulator/foundation/property_list_files.hpp"

namespace foundation {

namespace {

namespace fs = std::filesystem;

constexpr const char* fallbackLanguage = "en";
constexpr const char* localizationSuffix = ".lproj";

using TableName = std::pair<std::string, std::string>;
using Tables = std::map<TableName, objc::Ref<NSDictionary>>;

Tables& tables() {
  static Tables& cache = *new Tables;
  return cache;
}

// Returns the localizations for other regions of the same language. They are preferred to another language. Chinese has
// none, because people who read one of its scripts often cannot read the other.
std::vector<std::string> otherRegions(const fs::path& folder, const std::string& language) {
  std::vector<std::string> names;
  if (language == "zh") return names;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const fs::path& path = entry->path();
    if (path.extension() == localizationSuffix && path.filename().native().starts_with(language + "-"))
      names.push_back(path.stem());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::string> localizationNames(const fs::path& folder) {
  std::vector<std::string> names = localizationsOf(localeIdentifier());
  if (!names.empty()) {
    const std::vector<std::string> others = otherRegions(folder, names.back());
    names.insert(names.end(), others.begin(), others.end());
  }
  names.push_back(fallbackLanguage);
  return names;
}

// Reads the table of the best localization in a resource folder. Returns null if the folder contains no such table in
// any language.
objc::Ref<NSDictionary> readTable(const fs::path& folder, const std::string& table) {
  for (const std::string& name : localizationNames(folder))
    if (objc::Ref<NSDictionary> found = readStringsFile(folder / (name + localizationSuffix) / (table + ".strings")))
      return found;
  return readStringsFile(folder / (table + ".strings"));
}

NSDictionary* tableOf(const std::string& bundle, const std::string& table) {
  const auto [entry, isNew] = tables().try_emplace({bundle, table});
  if (isNew) {
    entry->second = readTable(bundle, table);
    if (entry->second == nullptr) entry->second = readTable(fs::path(bundle) / "Resources", table);
  }
  return entry->second;
}

bool isEmpty(NSString* text) { return text == nullptr || text->length() == 0; }

NSString* localizedString(NSBundle* self, SEL, NSString* key, NSString* value, NSString* table) {
  auto* const path = objc::send<NSString*, "bundlePath">(self);
  const char* const name = isEmpty(table) ? "Localizable" : table->UTF8String();
  auto* const found =
      path == nullptr || key == nullptr
          ? nullptr
          : objc::as<NSString>(
                tableOf(objc::send<const char*, "fileSystemRepresentation">(path), name)->objectForKey(key));
  if (found != nullptr) return found;
  if (!isEmpty(value)) return value;
  return key == nullptr ? NSString::string() : key;
}

}  // namespace

void installLocalizedStrings() {
  MSHookMessageEx(NSBundle::classObject(), objc::selector<"localizedStringForKey:value:table:">(),
                  objc::toImplementation(&localizedString), nullptr);
}

void clearLocalizedStringTables() { tables().clear(); }

}  // namespace foundation
