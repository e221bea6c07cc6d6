// NSRegularExpression: a pattern for searching and replacing text. Ranges are in UTF-16 code units and must be inside
// the text.
#pragma once

#include "platform/ns_string.hpp"

enum class NSRegularExpressionOptions : NSUInteger { None = 0, CaseInsensitive = 1 };

class NSTextCheckingResult : public objc::Interface<"NSTextCheckingResult", NSObject> {
 public:
  // The range of the whole match.
  NSRange range() const { return objc::send<NSRange, "range">(this); }
  // The range of a capture group; group 0 is the whole match. The location is NSNotFound if the group did not
  // participate in the match.
  NSRange rangeAtIndex(NSUInteger group) const { return objc::send<NSRange, "rangeAtIndex:">(this, group); }
};

class NSRegularExpression : public objc::Interface<"NSRegularExpression", NSObject> {
 public:
  // Returns nil if the pattern is invalid.
  static NSRegularExpression* withPattern(NSString* pattern, NSRegularExpressionOptions options) {
    return objc::send<NSRegularExpression*, "regularExpressionWithPattern:options:error:">(classObject(), pattern,
                                                                                           options, error());
  }
  // Returns nil if there is no match.
  NSTextCheckingResult* firstMatchInString(NSString* text, NSRange range) const {
    return objc::send<NSTextCheckingResult*, "firstMatchInString:options:range:">(this, text, NSUInteger{0}, range);
  }
  // `replacement` is a template: $1 inserts the first capture group.
  NSString* stringByReplacingMatchesInString(NSString* text, NSRange range, NSString* replacement) const {
    return objc::send<NSString*, "stringByReplacingMatchesInString:options:range:withTemplate:">(
        this, text, NSUInteger{0}, range, replacement);
  }

 private:
  static id* error() { return nullptr; }
};
