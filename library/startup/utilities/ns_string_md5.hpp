// NSString(MD5): a digest of a string, and random identifiers. Any thread.
#pragma once

#include "platform/ns_string.hpp"

// Adds the category's methods to NSString.
void registerStringUtilities();

// Lower-case letters, uniformly drawn; empty for a length of zero or less.
inline NSMutableString* generateRandomString(int length) {
  return objc::send<NSMutableString*, "generateRandomString:">(NSString::classObject(), length);
}
