// NSAttributedString: text with fonts and colors by range.
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
  void addAttribute(NSString* name, NSObject* value, NSRange range) {
    objc::send<void, "addAttribute:value:range:">(this, name, value, range);
  }
};

// The name under which an attributed string carries a UIFont.
inline NSString* fontAttributeName() { return "NSFont"_ns; }
