// Checks and reads files that other programs wrote. Opens them without blocking, because a blocking open of a pipe
// waits until another process opens its other end. Any thread.
#pragma once

#include "platform/ns_data.hpp"
#include "platform/ns_dictionary.hpp"

// Whether the path, after its symbolic links are resolved, is a regular file. False for nil.
bool isRegularFile(NSString* path);

// The bytes of the file. nil if the path is nil, cannot be opened, or names a folder or a pipe. nil also if the file is
// empty or has more than maxSize bytes.
NSData* readRegularFile(NSString* path, NSUInteger maxSize);

// The property list in the file. nil in the cases of readRegularFile with a limit of 1 MiB, and if the content is not a
// valid property list of a dictionary.
NSDictionary* readPropertyList(NSString* path);
