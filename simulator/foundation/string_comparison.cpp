#include "simulator/foundation/string_comparison.hpp"

#include "objc/hook.hpp"
#include "platform/ns_string.hpp"
#include "simulator/foundation/hook_function.hpp"

namespace foundation {

namespace {

constexpr NSUInteger maxComposedLength = 4096;
constexpr NSUInteger literalSearch = 2;  // NSLiteralSearch

bool isLong(const NSString* string) { return string != nullptr && string->length() > maxComposedLength; }

NSUInteger optionsFor(const NSString* string, const NSString* other, NSUInteger options) {
  return isLong(string) || isLong(other) ? options | literalSearch : options;
}

bool isEqualLiterally(const NSString* string, NSString* other) {
  const NSUInteger length = string->length();
  return other->length() == length &&
         objc::send<NSInteger, "compare:options:range:">(string, other, literalSearch, NSRange{0, length}) == 0;
}

bool isString(const NSObject* object) { return object != nullptr && object->isKindOfClass(NSString::classObject()); }

// The functions are templates because each hook stores the implementation that it has replaced. `Owner` identifies the
// class.
template <int Owner>
bool isEqual(objc::Original<bool(NSString*, NSObject*)> original, NSString* self, NSObject* object) {
  if (self == object) return true;
  if (!isString(object)) return original(self, object);
  auto* const other = static_cast<NSString*>(object);
  return isLong(self) || isLong(other) ? isEqualLiterally(self, other) : original(self, object);
}

template <int Owner>
bool isEqualToString(objc::Original<bool(NSString*, NSString*)> original, NSString* self, NSString* other) {
  if (self == other || other == nullptr) return original(self, other);
  return isLong(self) || isLong(other) ? isEqualLiterally(self, other) : original(self, other);
}

template <int Owner>
NSInteger compare(objc::Original<NSInteger(NSString*, NSString*, NSUInteger, NSRange)> original, NSString* self,
                  NSString* other, NSUInteger options, NSRange range) {
  return original(self, other, optionsFor(self, other, options), range);
}

template <int Owner>
NSInteger compareInLocale(objc::Original<NSInteger(NSString*, NSString*, NSUInteger, NSRange, NSObject*)> original,
                          NSString* self, NSString* other, NSUInteger options, NSRange range, NSObject* locale) {
  return original(self, other, optionsFor(self, other, options), range, locale);
}

template <int Owner>
NSRange rangeOfString(objc::Original<NSRange(NSString*, NSString*, NSUInteger, NSRange)> original, NSString* self,
                      NSString* wanted, NSUInteger options, NSRange range) {
  return original(self, wanted, optionsFor(self, wanted, options), range);
}

template <int Owner>
NSRange rangeOfStringInLocale(objc::Original<NSRange(NSString*, NSString*, NSUInteger, NSRange, NSObject*)> original,
                              NSString* self, NSString* wanted, NSUInteger options, NSRange range, NSObject* locale) {
  return original(self, wanted, optionsFor(self, wanted, options), range, locale);
}

template <int Owner>
NSUInteger replaceOccurrences(objc::Original<NSUInteger(NSString*, NSString*, NSString*, NSUInteger, NSRange)> original,
                              NSString* self, NSString* wanted, NSString* replacement, NSUInteger options,
                              NSRange range) {
  return original(self, wanted, replacement, optionsFor(self, wanted, options), range);
}

}  // namespace

void installStringComparison() {
  // Foundation's classes of strings that define these methods, each superclass before its subclasses.
  const objc::Row rows[] = {
      objc::hook<"isEqual:", &isEqual<0>>("NSString"),
      objc::hook<"isEqual:", &isEqual<1>>("GSImmutableString"),
      objc::hook<"isEqual:", &isEqual<2>>("GSCString"),
      objc::hook<"isEqual:", &isEqual<3>>("GSUnicodeString"),
      objc::hook<"isEqual:", &isEqual<4>>("GSMutableString"),
      objc::hook<"isEqual:", &isEqual<5>>("NSConstantString"),
      objc::hook<"isEqualToString:", &isEqualToString<0>>("NSString"),
      objc::hook<"isEqualToString:", &isEqualToString<1>>("GSImmutableString"),
      objc::hook<"isEqualToString:", &isEqualToString<2>>("GSCString"),
      objc::hook<"isEqualToString:", &isEqualToString<3>>("GSUnicodeString"),
      objc::hook<"isEqualToString:", &isEqualToString<4>>("GSMutableString"),
      objc::hook<"isEqualToString:", &isEqualToString<5>>("NSConstantString"),
      objc::hook<"compare:options:range:", &compare<0>>("NSString"),
      objc::hook<"compare:options:range:", &compare<1>>("GSImmutableString"),
      objc::hook<"compare:options:range:", &compare<2>>("GSCString"),
      objc::hook<"compare:options:range:", &compare<3>>("GSUnicodeString"),
      objc::hook<"compare:options:range:", &compare<4>>("GSMutableString"),
      objc::hook<"compare:options:range:locale:", &compareInLocale<0>>("NSString"),
      objc::hook<"rangeOfString:options:range:", &rangeOfString<0>>("NSString"),
      objc::hook<"rangeOfString:options:range:", &rangeOfString<1>>("GSImmutableString"),
      objc::hook<"rangeOfString:options:range:locale:", &rangeOfStringInLocale<0>>("NSString"),
      objc::hook<"replaceOccurrencesOfString:withString:options:range:", &replaceOccurrences<0>>("NSMutableString"),
  };
  for (const objc::Row& row : rows)
    for (std::size_t index = 0; index < row.count; ++index) objc::install(row.methods[index], &MSHookMessageEx);
}

}  // namespace foundation
