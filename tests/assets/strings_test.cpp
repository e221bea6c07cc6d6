// Tests of the localized strings in the asset bundle, as Foundation reads them.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>

#include "objc/autorelease_pool.hpp"
#include "platform/ns_bundle.hpp"
#include "platform/ns_dictionary.hpp"
#include "simulator/foundation/ignored_leaks.hpp"

namespace assets_test {
namespace {

constexpr std::array languages = {"en", "de", "fr", "es", "it", "pt-BR",   "nl",      "sv", "pl",
                                  "tr", "ru", "uk", "ja", "ko", "zh-Hans", "zh-Hant", "ar", "he"};
constexpr std::array keys = {"CONTENT_HIDDEN", "NOW", "SNOOZE", "STOP", "CLOSE", "CLEAR", "REPLY", "OPEN"};

NSString* text(const std::string& characters) { return NSString::stringWithUTF8String(characters.c_str()); }

// Reads the strings of a language. Returns nil if the file is missing or is not a valid strings table.
NSDictionary* stringsTable(const std::string& language) {
  const std::string path = std::string(ASSET_BUNDLE "/") + language + ".lproj/Localizable.strings";
  // Foundation leaks the keys of the file.
  const foundation::IgnoredLeaks ignored;
  return objc::send<NSDictionary*, "dictionaryWithContentsOfFile:">(NSDictionary::classObject(), text(path));
}

std::string localizedString(NSDictionary* table, const char* key) {
  const auto* string = static_cast<NSString*>(table->objectForKey(text(key)));
  return string == nullptr ? std::string() : std::string(string->UTF8String());
}

TEST(Strings, EveryLanguageTranslatesExactlyTheKnownKeys) {
  const objc::AutoreleasePool pool;
  for (const char* language : languages) {
    SCOPED_TRACE(language);
    NSDictionary* const table = stringsTable(language);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->count(), keys.size());
    for (const char* key : keys) EXPECT_FALSE(localizedString(table, key).empty()) << key;
  }
}

// A button's title must fit in a third of the narrowest screen.
TEST(Strings, ButtonTitlesAreShort) {
  const objc::AutoreleasePool pool;
  for (const char* language : languages) {
    for (const char* key : {"SNOOZE", "STOP", "CLOSE", "CLEAR", "REPLY", "OPEN"}) {
      EXPECT_LE(text(localizedString(stringsTable(language), key))->length(), 11U) << language << " " << key;
    }
  }
}

TEST(Strings, NoTranslationIsLeftInEnglish) {
  const objc::AutoreleasePool pool;
  const std::string english = localizedString(stringsTable("en"), "CONTENT_HIDDEN");
  EXPECT_EQ(english, "Content hidden");
  for (const char* language : languages) {
    if (std::string(language) != "en") {
      EXPECT_NE(localizedString(stringsTable(language), "CONTENT_HIDDEN"), english) << language;
    }
  }
}

TEST(Strings, HebrewIsAlsoAvailableUnderItsOldLanguageCode) {
  const objc::AutoreleasePool pool;
  EXPECT_TRUE((objc::send<bool, "isEqualToDictionary:">(stringsTable("iw"), stringsTable("he"))));
}

TEST(Strings, BundleContainsNoOtherLanguages) {
  std::size_t folders = 0;
  for (const auto& entry : std::filesystem::directory_iterator(ASSET_BUNDLE)) {
    if (entry.path().extension() == ".lproj") ++folders;
  }
  EXPECT_EQ(folders, languages.size() + 1);
}

TEST(Strings, BundleReturnsTheFallbackOnlyForAnUnknownKey) {
  const objc::AutoreleasePool pool;
  NSBundle* const bundle = NSBundle::bundleWithPath(text(ASSET_BUNDLE));
  ASSERT_NE(bundle, nullptr);
  EXPECT_FALSE(bundle->localizedString(text("REPLY"), text("unknown"))->isEqualToString(text("unknown")));
  EXPECT_STREQ(bundle->localizedString(text("ARCHIVE"), text("unknown"))->UTF8String(), "unknown");
}

}  // namespace
}  // namespace assets_test
