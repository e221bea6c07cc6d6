// Property lists from files that anybody may have written.
#pragma once

#include <filesystem>

#include "platform/ns_dictionary.hpp"

namespace foundation {

// The dictionary in the file, in any of the formats. Null where there is no such file, it is no file, it is no property
// list or not a dictionary, or it is larger than a megabyte. Any thread with an autorelease pool.
objc::Ref<NSDictionary> readPropertyList(const std::filesystem::path& file);

// The same for a table of localized strings, "key" = "text"; in UTF-8, or in UTF-16 with a byte order mark.
objc::Ref<NSDictionary> readStringsFile(const std::filesystem::path& file);

}  // namespace foundation
