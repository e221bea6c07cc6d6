// NSRegularExpression: matching and replacing in text.
#pragma once

#include "platform/ns_string.hpp"

enum class NSRegularExpressionOptions : NSUInteger { None = 0, CaseInsensitive = 1 };

class NSTextCheckingResult : public objc::Interface<"NSTextCheckingResult", NSObject> {
 public:
  NSRange range() const { return objc::send<NSRange, "range">(this); }
  NSRange rangeAtIndex(NSUInteger group) const { return objc::send<NSRange, "rangeAtIndex:">(this, group); }
};

class NSRegularExpression : public objc::Interface<"NSRegularExpression", NSObject> {
 public:
  // nil where the pattern does not compile.
  static NSRegularExpression* withPattern(NSString* pattern, NSRegularExpressionOptions options) {
    return objc::send<NSRegularExpression*, "regularExpressionWithPattern:options:error:">(classObject(), pattern,
                                                                                           options, error());
  }
  NSTextCheckingResult* firstMatchInString(NSString* text, NSRange range) const {
    return objc::send<NSTextCheckingResult*, "firstMatchInString:options:range:">(this, text, NSUInteger{0}, range);
  }
  NSString* stringByReplacingMatchesInString(NSString* text, NSRange range, NSString* replacement) const {
    return objc::send<NSString*, "stringByReplacingMatchesInString:options:range:withTemplate:">(
        this, text, NSUInteger{0}, range, replacement);
  }

 private:
  static id* error() { return nullptr; }
};
