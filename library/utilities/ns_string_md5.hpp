// The category NSString(MD5): the digest of a string, and random strings. The names of the category and of its methods
// are part of the library's public interface; do not change them. Any thread.
#pragma once

#include "platform/ns_string.hpp"

// Adds the category's methods to NSString.
void registerStringUtilities();

// Returns `length` random lower-case letters, uniformly distributed. Returns an empty string if `length` is zero or
// negative.
inline NSMutableString* generateRandomString(int length) {
  return objc::send<NSMutableString*, "generateRandomString:">(NSString::classObject(), length);
}
