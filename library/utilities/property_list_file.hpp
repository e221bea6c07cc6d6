// Reads property lists from files that other programs wrote. Any thread.
#pragma once

#include "platform/ns_dictionary.hpp"

// The dictionary in the file. nil if the path is nil, if it does not lead to a regular file, if the file has more than
// 1 MiB, or if its content is not a valid property list of a dictionary.
NSDictionary* readPropertyList(NSString* path);
