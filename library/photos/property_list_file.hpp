// Property lists in files that others wrote.
#pragma once

#include "platform/ns_dictionary.hpp"

// nil for what is no readable property list of a dictionary: a folder, a pipe, a link that leads nowhere, malformed or
// truncated bytes, a file of more than a mebibyte. The path may be nil.
NSDictionary* readPropertyList(NSString* path);
