#include "simulator/foundation/locale.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/ns_array.hpp"
#include "platform/ns_bundle.hpp"
#include "platform/ns_date.hpp"
#include "tests/objc/runtime_environment.hpp"

namespace {

namespace fs = std::filesystem;

class Locale : public RuntimeTest {
 protected:
  ~Locale() override { foundation::useLocale("en_US"); }
};
using Names = std::vector<std::string>;

// Formats the time 14:45 UTC.
std::string formattedTime(NSString* format) {
  const auto formatter = objc::make<NSDateFormatter>();
  formatter->setDateFormat(format);
  auto* const date = objc::send<NSDate*, "dateWithTimeIntervalSince1970:">(NSDate::classObject(),
                                                                           86400.0 * 9000 + 14 * 3600 + 45 * 60);
  return formatter->stringFromDate(date)->UTF8String();
}

TEST_F(Locale, TimesAreUtcInTheDigitsOfTheLocale) {
  EXPECT_EQ(formattedTime("HH:mm"_ns), "14:45");
  EXPECT_EQ(formattedTime("h:mm"_ns), "2:45");
  foundation::useLocale("ar_EG");
  EXPECT_EQ(formattedTime("HH:mm"_ns), "١٤:٤٥");
  foundation::useLocale("fa_IR");
  EXPECT_EQ(formattedTime("h:mm"_ns), "۲:۴۵");
  foundation::useLocale("de_DE");
  EXPECT_EQ(formattedTime("HH:mm"_ns), "14:45");
}

TEST_F(Locale, IdentifiersAreNormalized) {
  foundation::useLocale("pt-BR");
  EXPECT_EQ(foundation::localeIdentifier(), "pt_BR");
  foundation::useLocale("de_DE.UTF-8");
  EXPECT_EQ(foundation::localeIdentifier(), "de_DE");
  foundation::useLocale("");
  EXPECT_EQ(foundation::localeIdentifier(), "en_US");
}

TEST_F(Locale, InvalidIdentifierStillFormatsTimes) {
  foundation::useLocale("_-_-;\xff");
  EXPECT_EQ(formattedTime("HH:mm"_ns), "14:45");
}

TEST_F(Locale, ListsLocalizationsInOrderOfPreference) {
  EXPECT_EQ(foundation::localizationsOf("en_US"), (Names{"en-US", "en"}));
  EXPECT_EQ(foundation::localizationsOf("de"), (Names{"de"}));
  EXPECT_EQ(foundation::localizationsOf("pt_BR"), (Names{"pt-BR", "pt"}));
  EXPECT_EQ(foundation::localizationsOf("zh_CN"), (Names{"zh-Hans-CN", "zh-Hans", "zh-CN", "zh"}));
  EXPECT_EQ(foundation::localizationsOf("zh_TW"), (Names{"zh-Hant-TW", "zh-Hant", "zh-TW", "zh"}));
  EXPECT_EQ(foundation::localizationsOf("zh_Hant_HK"), (Names{"zh-Hant-HK", "zh-Hant", "zh-HK", "zh"}));
  EXPECT_EQ(foundation::localizationsOf("iw_IL"), (Names{"he-IL", "he"}));
  EXPECT_EQ(foundation::localizationsOf(""), (Names{}));
}

TEST_F(Locale, IsFoundationsCurrentLocale) {
  foundation::useLocale("sv_SE");
  auto* const locale = objc::send<NSObject*, "currentLocale">(objc::lookUpClass<"NSLocale">());
  EXPECT_STREQ((objc::send<NSString*, "localeIdentifier">(locale)->UTF8String()), "sv_SE");
  const auto* const languages = objc::send<NSArray*, "preferredLanguages">(objc::lookUpClass<"NSLocale">());
  EXPECT_STREQ(objc::as<NSString>(languages->firstObject())->UTF8String(), "sv-SE");
}

class LocalizedStrings : public Locale {
 protected:
  ~LocalizedStrings() override { fs::remove_all(folder); }

  void addTable(const std::string& language, const std::string& contents,
                const std::string& table = "Localizable") const {
    const fs::path tableFolder = language.empty() ? folder : folder / (language + ".lproj");
    fs::create_directories(tableFolder);
    std::ofstream(tableFolder / (table + ".strings")) << contents;
  }
  static std::string reply(const NSBundle* bundle) {
    return bundle->localizedString("REPLY"_ns, "fallback"_ns)->UTF8String();
  }
  NSBundle* bundle() const {
    fs::create_directories(folder);
    return NSBundle::bundleWithPath(NSString::stringWithUTF8String(folder.c_str()));
  }
  std::string replyIn(const char* locale) const {
    foundation::useLocale(locale);
    return reply(bundle());
  }

  fs::path folder = testRoot() / testing::UnitTest::GetInstance()->current_test_info()->name();
};

TEST_F(LocalizedStrings, FollowTheLocale) {
  addTable("en", "\"REPLY\" = \"Reply\";");
  addTable("de", "/* An answer. */\n\"REPLY\" = \"Antworten\";\n");
  addTable("pt-BR", "\"REPLY\" = \"Responder\";");
  addTable("zh-Hans", "\"REPLY\" = \"回复\";");
  addTable("zh-Hant", "\"REPLY\" = \"回覆\";");
  EXPECT_EQ(replyIn("en_US"), "Reply");
  EXPECT_EQ(replyIn("de_AT"), "Antworten");
  EXPECT_EQ(replyIn("pt_BR"), "Responder");
  EXPECT_EQ(replyIn("zh_CN"), "回复");
  EXPECT_EQ(replyIn("zh_TW"), "回覆");
}

TEST_F(LocalizedStrings, AnotherRegionOfTheLanguageIsPreferredToEnglish) {
  addTable("en", "\"REPLY\" = \"Reply\";");
  addTable("pt-BR", "\"REPLY\" = \"Responder\";");
  addTable("zh-Hans", "\"REPLY\" = \"回复\";");
  EXPECT_EQ(replyIn("pt_PT"), "Responder");
  EXPECT_EQ(replyIn("zh_TW"), "Reply") << "readers of one Chinese script do not read the other";
}

TEST_F(LocalizedStrings, FallBackToEnglish) {
  addTable("en", "\"REPLY\" = \"Reply\";");
  EXPECT_EQ(replyIn("fi_FI"), "Reply");
}

TEST_F(LocalizedStrings, FallbackIsUsedForAMissingKeyOrTable) {
  addTable("en", "\"OTHER\" = \"Other\";");
  EXPECT_EQ(replyIn("en_US"), "fallback");
  EXPECT_STREQ(bundle()->localizedString("OTHER"_ns, "x"_ns)->UTF8String(), "Other");
  EXPECT_STREQ((objc::send<NSString*, "localizedStringForKey:value:table:">(bundle(), "OTHER"_ns, "x"_ns, "NoTable"_ns)
                    ->UTF8String()),
               "x");
}

TEST_F(LocalizedStrings, KeyIsReturnedWithoutAFallback) {
  EXPECT_STREQ(bundle()->localizedString("REPLY"_ns, nullptr)->UTF8String(), "REPLY");
  EXPECT_STREQ(bundle()->localizedString("REPLY"_ns, ""_ns)->UTF8String(), "REPLY");
  EXPECT_STREQ(bundle()->localizedString(nullptr, nullptr)->UTF8String(), "");
}

TEST_F(LocalizedStrings, InvalidTablesGiveTheFallback) {
  for (const std::string& contents :
       {std::string("\"REPLY\" = "), std::string("\xff\xfe\x00", 3), std::string("( a"), std::string(200000, '(')}) {
    addTable("en", contents);
    EXPECT_EQ(replyIn("en_US"), "fallback");
  }
}

TEST_F(LocalizedStrings, Utf16WithAByteOrderMarkIsRead) {
  const std::u16string text = u"\xfeff\"REPLY\" = \"Ответить\";";
  addTable("ru", std::string(reinterpret_cast<const char*>(text.data()), text.size() * 2));
  EXPECT_EQ(replyIn("ru_RU"), "Ответить");
}

TEST_F(LocalizedStrings, TablesOutsideLanguageFoldersApplyToAllLanguages) {
  addTable("", "\"REPLY\" = \"Any\";");
  EXPECT_EQ(replyIn("ja_JP"), "Any");
}

TEST_F(LocalizedStrings, EachBundleHasItsOwnTables) {
  addTable("en", "\"REPLY\" = \"Reply\";");
  const fs::path second = testRoot() / "Second.bundle";
  fs::create_directories(second / "en.lproj");
  std::ofstream(second / "en.lproj/Localizable.strings") << "\"REPLY\" = \"Second\";";
  EXPECT_EQ(replyIn("en_US"), "Reply");
  EXPECT_EQ(reply(NSBundle::bundleWithPath(NSString::stringWithUTF8String(second.c_str()))), "Second");
}

}  // namespace
