// NSData and NSMutableData: byte buffers.
#pragma once

#include "platform/ns_string.hpp"

class NSData : public objc::Interface<"NSData", NSObject> {
 public:
  // Copies the bytes.
  static NSData* dataWithBytes(const void* bytes, NSUInteger length) {
    return objc::send<NSData*, "dataWithBytes:length:">(classObject(), bytes, length);
  }
  // The pointer is valid as long as the object exists.
  const void* bytes() const { return objc::send<const void*, "bytes">(this); }
  NSUInteger length() const { return objc::send<NSUInteger, "length">(this); }
  // The MD5 digest of the bytes, as 32 lower-case hexadecimal digits. nil if the platform lacks this method.
  NSString* md5() const { return objc::sendIfAvailable<NSString*, "ic_md5">(this); }
};

class NSMutableData : public objc::Interface<"NSMutableData", NSData> {
 public:
  // Returns a buffer whose bytes are zero.
  static NSMutableData* dataWithLength(NSUInteger length) {
    return objc::send<NSMutableData*, "dataWithLength:">(classObject(), length);
  }
  void* mutableBytes() { return objc::send<void*, "mutableBytes">(this); }
};
