// NSData: bytes.
#pragma once

#include "platform/ns_string.hpp"

class NSData : public objc::Interface<"NSData", NSObject> {
 public:
  static NSData* dataWithBytes(const void* bytes, NSUInteger length) {
    return objc::send<NSData*, "dataWithBytes:length:">(classObject(), bytes, length);
  }
  // nil where the file cannot be read.
  static NSData* withContentsOfFile(NSString* path) {
    return objc::send<NSData*, "dataWithContentsOfFile:">(classObject(), path);
  }
  const void* bytes() const { return objc::send<const void*, "bytes">(this); }
  NSUInteger length() const { return objc::send<NSUInteger, "length">(this); }
  // The MD5 digest as 32 lower-case hexadecimal digits.
  NSString* md5() const { return objc::send<NSString*, "ic_md5">(this); }
};
