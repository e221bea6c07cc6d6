#include "simulator/foundation/preference_value.hpp"

#include <strings.h>

#include <charconv>
#include <string_view>
#include <system_error>

#include "platform/ns_number.hpp"
#include "platform/ns_string.hpp"

namespace foundation {

namespace {

struct Word {
  const char* text;
  bool value;
};
constexpr Word words[] = {{"YES", true}, {"NO", false}, {"true", true}, {"false", false}, {"1", true}, {"0", false}};

std::optional<bool> booleanOfText(const char* text) {
  for (const Word& word : words)
    if (text != nullptr && strcasecmp(text, word.text) == 0) return word.value;
  return std::nullopt;
}

std::optional<NSInteger> integerOfText(const char* text) {
  if (text == nullptr) return std::nullopt;
  const std::string_view digits = text;
  NSInteger value = 0;
  const auto [end, error] = std::from_chars(digits.begin(), digits.end(), value);
  if (error != std::errc() || end != digits.end()) return std::nullopt;
  return value;
}

bool isFloatingPoint(const NSNumber* number) {
  const std::string_view type = objc::send<const char*, "objCType">(number);
  return type == "d" || type == "f";
}

// A double cannot represent every integer beyond 2^53, so an integer number is read as an integer.
std::optional<NSInteger> integerOfNumber(const NSNumber* number) {
  constexpr double limit = 9223372036854775808.0;
  const double value = number->doubleValue();
  if (isFloatingPoint(number)) {
    if (!(value >= -limit && value < limit)) return std::nullopt;
    return static_cast<NSInteger>(value);
  }
  const NSInteger whole = number->integerValue();
  // An unsigned number beyond the range has a positive double value but a negative integer value.
  if (value > 0 && whole < 0) return std::nullopt;
  return whole;
}

std::optional<bool> booleanOfNumber(const NSNumber* number) {
  const double value = number->doubleValue();
  if (value == 0) return false;
  if (value == 1) return true;
  return std::nullopt;
}

}  // namespace

std::optional<bool> booleanPreference(const NSObject* stored) {
  if (const auto* number = objc::as<NSNumber>(stored)) return booleanOfNumber(number);
  if (const auto* text = objc::as<NSString>(stored)) return booleanOfText(text->UTF8String());
  return std::nullopt;
}

std::optional<NSInteger> integerPreference(const NSObject* stored) {
  if (const auto* number = objc::as<NSNumber>(stored)) return integerOfNumber(number);
  if (const auto* text = objc::as<NSString>(stored)) return integerOfText(text->UTF8String());
  return std::nullopt;
}

}  // namespace foundation
