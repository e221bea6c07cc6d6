// Checks and reads files that other programs wrote. Files are opened without blocking, because opening a pipe otherwise
// waits until another process opens the other end of the pipe. Any thread.
#pragma once

#include "platform/ns_data.hpp"
#include "platform/ns_dictionary.hpp"

// Returns whether the path refers to a regular file, directly or through symbolic links. Returns false if the path is
// nil.
bool isRegularFile(NSString* path);

// Returns the bytes of the file. Returns nil if the path is nil, cannot be opened, or refers to a folder or a pipe, or
// if the file is empty or has more than maxSize bytes.
NSData* readRegularFile(NSString* path, NSUInteger maxSize);

// Returns the dictionary that is stored in the file as a property list. Returns nil if readRegularFile with a limit of
// 1 MiB returns nil, or if the content is not a valid property list whose root is a dictionary.
NSDictionary* readPropertyList(NSString* path);
