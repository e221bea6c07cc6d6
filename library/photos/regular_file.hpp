// What may be opened without harm: opening a pipe would wait for its other end.
#pragma once

#include "platform/ns_string.hpp"

inline constexpr NSUInteger anySize = ~NSUInteger{0};

// Whether the path leads, through links or not, to a plain file of that many bytes at most. False for nil.
bool isRegularFile(NSString* path, NSUInteger largest = anySize);
