// What may be opened without harm: opening a pipe would wait for its other end.
#pragma once

#include "platform/ns_data.hpp"

// Whether the path leads, through links or not, to a plain file. False for nil.
bool isRegularFile(NSString* path);

// The bytes of the file; nil where there is none, it cannot be read, it is empty or larger than `largest` bytes, and
// for a folder or a pipe. The path may be nil.
NSData* readRegularFile(NSString* path, NSUInteger largest);
