// The category NSString(MD5): the digest of a string, and random strings. The names of the category and of its methods
// are fixed by the interface. Any thread.
#pragma once

#include "platform/ns_string.hpp"

// Adds the category's methods to NSString.
void registerStringUtilities();

// Random lower-case letters, uniformly distributed. Empty for a length of zero or less.
inline NSMutableString* generateRandomString(int length) {
  return objc::send<NSMutableString*, "generateRandomString:">(NSString::classObject(), length);
}
