// NSAttributedString and NSMutableAttributedString: text with attributes, such as fonts, for ranges of the text. Ranges
// are in UTF-16 code units.
#pragma once

#include "platform/ns_string.hpp"

class NSAttributedString : public objc::Interface<"NSAttributedString", NSObject> {
 public:
  static objc::Ref<NSAttributedString> withString(NSString* text) {
    return objc::adopt(objc::send<NSAttributedString*, "initWithString:">(objc::allocate<NSAttributedString>(), text));
  }
  NSString* string() const { return objc::send<NSString*, "string">(this); }
};

class NSMutableAttributedString : public objc::Interface<"NSMutableAttributedString", NSAttributedString> {
 public:
  static objc::Ref<NSMutableAttributedString> withString(NSString* text) {
    return objc::adopt(
        objc::send<NSMutableAttributedString*, "initWithString:">(objc::allocate<NSMutableAttributedString>(), text));
  }
  // Raises a range exception if the range is not inside the text.
  void addAttribute(NSString* name, NSObject* value, NSRange range) {
    objc::send<void, "addAttribute:value:range:">(this, name, value, range);
  }
};

// The name of the attribute whose value is a UIFont.
inline NSString* fontAttributeName() { return "NSFont"_ns; }
