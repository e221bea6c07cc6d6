// NSString and NSMutableString: immutable and mutable text. Lengths, indexes and ranges are in UTF-16 code units; an
// index or range outside the text raises an exception.
#pragma once

#include "platform/ns_object.hpp"

class NSArray;
class NSData;

struct NSRange {
  NSUInteger location = 0;
  NSUInteger length = 0;
};
template <>
struct objc::TypeEncoding<NSRange> : objc::EncodingText<"{_NSRange=QQ}"> {};

// The location of a range that was not found.
inline constexpr NSUInteger NSNotFound = 0x7fffffffffffffff;

enum class NSStringEncoding : NSUInteger { UTF8 = 4, Latin1 = 5, Unicode = 10 };
enum class NSStringCompareOptions : NSUInteger { None = 0, CaseInsensitive = 1, Numeric = 64 };
enum class NSComparisonResult : NSInteger { Ascending = -1, Same = 0, Descending = 1 };

class NSString : public objc::Interface<"NSString", NSObject> {
 public:
  // Returns nil if the bytes are not valid UTF-8.
  static NSString* stringWithUTF8String(const char* text) {
    return objc::send<NSString*, "stringWithUTF8String:">(classObject(), text);
  }
  static NSString* string() { return objc::send<NSString*, "string">(classObject()); }
  // Returns a null reference if the data is not valid in the encoding.
  static objc::Ref<NSString> decoded(NSData* data, NSStringEncoding encoding) {
    return objc::adopt(objc::send<NSString*, "initWithData:encoding:">(objc::allocate<NSString>(), data, encoding));
  }

  NSUInteger length() const { return objc::send<NSUInteger, "length">(this); }
  // The text in UTF-8. The pointer is valid until the string is deallocated or the current autorelease pool is drained.
  const char* UTF8String() const { return objc::send<const char*, "UTF8String">(this); }
  // The path as the system's C functions expect it. Empty if the path cannot be represented.
  const char* fileSystemRepresentation() const { return objc::send<const char*, "fileSystemRepresentation">(this); }
  // Resolves the symbolic links of a path. Returns the path unchanged if there is no file at the path.
  NSString* stringByResolvingSymlinksInPath() const {
    return objc::send<NSString*, "stringByResolvingSymlinksInPath">(this);
  }
  bool isEqualToString(NSString* other) const { return objc::send<bool, "isEqualToString:">(this, other); }
  bool hasPrefix(NSString* prefix) const { return objc::send<bool, "hasPrefix:">(this, prefix); }
  NSString* stringByAppendingString(NSString* other) const {
    return objc::send<NSString*, "stringByAppendingString:">(this, other);
  }
  NSRange rangeOfString(NSString* wanted) const { return objc::send<NSRange, "rangeOfString:">(this, wanted); }
  NSRange rangeOfString(NSString* wanted, NSStringCompareOptions options) const {
    return objc::send<NSRange, "rangeOfString:options:">(this, wanted, options);
  }
  bool contains(NSString* wanted) const { return rangeOfString(wanted).length != 0; }
  NSString* substringToIndex(NSUInteger index) const { return objc::send<NSString*, "substringToIndex:">(this, index); }
  NSString* stringByReplacingCharactersInRange(NSRange range, NSString* replacement) const {
    return objc::send<NSString*, "stringByReplacingCharactersInRange:withString:">(this, range, replacement);
  }
  // The texts between the separators, as NSString objects. The array has one element more than there are separators.
  NSArray* componentsSeparatedByString(NSString* separator) const {
    return objc::send<NSArray*, "componentsSeparatedByString:">(this, separator);
  }
  NSString* stringByReplacing(NSString* wanted, NSString* replacement) const {
    return objc::send<NSString*, "stringByReplacingOccurrencesOfString:withString:">(this, wanted, replacement);
  }
  NSString* substringWithRange(NSRange range) const {
    return objc::send<NSString*, "substringWithRange:">(this, range);
  }
  NSComparisonResult compare(NSString* other, NSStringCompareOptions options) const {
    return objc::send<NSComparisonResult, "compare:options:">(this, other, options);
  }
  NSData* dataUsingEncoding(NSStringEncoding encoding) const {
    return objc::send<NSData*, "dataUsingEncoding:">(this, encoding);
  }
  NSString* lowercaseString() const { return objc::send<NSString*, "lowercaseString">(this); }
};

class NSMutableString : public objc::Interface<"NSMutableString", NSString> {
 public:
  static NSMutableString* stringWithCapacity(NSUInteger capacity) {
    return objc::send<NSMutableString*, "stringWithCapacity:">(classObject(), capacity);
  }
  void appendString(NSString* other) { objc::send<void, "appendString:">(this, other); }
};

// A string constant. It is created at first use and never deallocated.
template <objc::FixedString text>
NSString* operator""_ns() {
  static objc::CachedPointer<NSString*> cached;
  return cached.getOrFind([] { return objc::retain(NSString::stringWithUTF8String(objc::TextOf<text>::text)).leak(); });
}
