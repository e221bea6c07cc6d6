// MD5 digests, and the category NSString(MD5): the digest of a string, and random strings. The names of the category
// and of its methods are part of the library's public interface; do not change them. Any thread.
#pragma once

#include "platform/ns_data.hpp"

// Adds the category's methods to NSString.
void registerStringUtilities();

// Returns the MD5 digest of the bytes, as 32 lower-case hexadecimal digits. Uses the platform's method if it exists.
// Returns nil for nil.
NSString* md5Of(NSData* data);

// Returns `length` random lower-case letters, uniformly distributed. Returns an empty string if `length` is zero or
// negative.
inline NSMutableString* generateRandomString(int length) {
  return objc::send<NSMutableString*, "generateRandomString:">(NSString::classObject(), length);
}
