#include "simulator/foundation/locale.hpp"

#include <algorithm>
#include <cstdlib>
#include <regex>
#include <sstream>

#include "objc/ownership.hpp"
#include "platform/ns_array.hpp"
#include "platform/ns_string.hpp"
#include "simulator/foundation/hook_function.hpp"
#include "simulator/foundation/localized_strings.hpp"

namespace foundation {

namespace {

class NSLocale : public objc::Interface<"NSLocale", NSObject> {};
class NSTimeZone : public objc::Interface<"NSTimeZone", NSObject> {};

constexpr const char* defaultLocale = "en_US";

struct Language {
  std::string language;
  std::string script;
  std::string region;
};

// An obsolete language code that locale identifiers still contain, and the code that replaced it.
struct ReplacedCode {
  const char* replaced;
  const char* current;
};
constexpr ReplacedCode replacedCodes[] = {{"iw", "he"}, {"in", "id"}, {"ji", "yi"}, {"no", "nb"}};

std::string currentCode(const std::string& language) {
  for (const ReplacedCode& code : replacedCodes)
    if (language == code.replaced) return code.current;
  return language;
}

std::string chineseScript(const std::string& region) {
  return region == "TW" || region == "HK" || region == "MO" ? "Hant" : "Hans";
}

std::string withUnderscores(std::string identifier) {
  identifier = identifier.substr(0, identifier.find_first_of(".@"));
  std::replace(identifier.begin(), identifier.end(), '-', '_');
  return identifier;
}

Language parse(const std::string& identifier) {
  Language parsed;
  std::istringstream parts(withUnderscores(identifier));
  std::getline(parts, parsed.language, '_');
  parsed.language = currentCode(parsed.language);
  for (std::string part; std::getline(parts, part, '_');) (part.size() == 4 ? parsed.script : parsed.region) = part;
  if (parsed.language == "zh" && parsed.script.empty()) parsed.script = chineseScript(parsed.region);
  return parsed;
}

struct Current {
  std::string identifier = defaultLocale;
  objc::Ref<NSLocale> locale;
};

Current& current() {
  static Current& shared = *new Current;
  return shared;
}

NSString* text(const std::string& utf8) { return NSString::stringWithUTF8String(utf8.c_str()); }

NSLocale* currentLocale(Class, SEL) {
  objc::Ref<NSLocale>& locale = current().locale;
  if (locale == nullptr)
    locale = objc::adopt(
        objc::send<NSLocale*, "initWithLocaleIdentifier:">(objc::allocate<NSLocale>(), text(current().identifier)));
  return locale;
}

NSArray* preferredLanguages(Class, SEL) {
  NSMutableArray* languages = NSMutableArray::array();
  for (const std::string& name : localizationsOf(current().identifier)) languages->addObject(text(name));
  return languages;
}

void chooseTimeZone() {
  const char* const wanted = std::getenv("TZ");
  auto* zone = wanted == nullptr || *wanted == '\0'
                   ? nullptr
                   : objc::send<NSTimeZone*, "timeZoneWithName:">(NSTimeZone::classObject(), text(wanted));
  if (zone == nullptr)
    zone = objc::send<NSTimeZone*, "timeZoneForSecondsFromGMT:">(NSTimeZone::classObject(), NSInteger{0});
  objc::send<void, "setDefaultTimeZone:">(NSTimeZone::classObject(), zone);
}

void replaceClassMethod(SEL selector, IMP replacement) {
  MSHookMessageEx(reinterpret_cast<Class>(objc_getMetaClass("NSLocale")), selector, replacement, nullptr);
}

}  // namespace

bool isLocaleIdentifier(const std::string& text) {
  static const std::regex pattern(R"([a-z]{2,3}([_-][A-Z][a-z]{3})?([_-]([A-Z]{2}|\d{3}))?)");
  return std::regex_match(text, pattern);
}

void useLocale(const std::string& identifier) {
  const std::string wanted = withUnderscores(identifier);
  current().identifier = wanted.empty() ? defaultLocale : wanted;
  current().locale = nullptr;
  clearLocalizedStringTables();
}

const std::string& localeIdentifier() { return current().identifier; }

std::vector<std::string> localizationsOf(const std::string& identifier) {
  const auto [language, script, region] = parse(identifier);
  std::vector<std::string> names;
  if (!script.empty() && !region.empty()) names.push_back(language + "-" + script + "-" + region);
  if (!script.empty()) names.push_back(language + "-" + script);
  if (!region.empty()) names.push_back(language + "-" + region);
  if (!language.empty()) names.push_back(language);
  return names;
}

void installLocale() {
  replaceClassMethod(objc::selector<"currentLocale">(), objc::toImplementation(&currentLocale));
  replaceClassMethod(objc::selector<"autoupdatingCurrentLocale">(), objc::toImplementation(&currentLocale));
  replaceClassMethod(objc::selector<"preferredLanguages">(), objc::toImplementation(&preferredLanguages));
  chooseTimeZone();
}

}  // namespace foundation
