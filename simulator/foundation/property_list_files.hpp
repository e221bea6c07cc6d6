// Reads property lists from files. The contents of the files are untrusted input. Any thread, with an autorelease pool.
#pragma once

#include <filesystem>

#include "platform/ns_dictionary.hpp"

namespace foundation {

// Reads a dictionary in any format of property lists. Returns null if the file is missing, is not a regular file, is
// larger than a megabyte, or does not contain a property list whose top-level object is a dictionary.
objc::Ref<NSDictionary> readPropertyList(const std::filesystem::path& file);

// Reads a table of localized strings, which contains lines such as "key" = "text"; and is encoded in UTF-8, or in
// UTF-16 with a byte order mark. Returns null in the same cases as readPropertyList.
objc::Ref<NSDictionary> readStringsFile(const std::filesystem::path& file);

}  // namespace foundation
