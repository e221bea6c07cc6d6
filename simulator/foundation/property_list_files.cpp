#include "simulator/foundation/property_list_files.hpp"

#include <string>

#include "objc/autorelease_pool.hpp"
#include "platform/ns_data.hpp"
#include "platform/ns_property_list_serialization.hpp"
#include "simulator/base/file_contents.hpp"
#include "simulator/foundation/property_list_parsing.hpp"

namespace foundation {

namespace {

constexpr std::size_t maxFileSize = 1 << 20;

// Returns the contents of the file. They are empty if the file cannot be read or is too large.
std::string contentsOf(const std::filesystem::path& file) {
  return base::readRegularFile(file, maxFileSize).value_or("");
}

NSDictionary* parse(const std::string& text) {
  return objc::as<NSDictionary>(
      NSPropertyListSerialization::propertyList(NSData::dataWithBytes(text.data(), text.size())));
}

bool hasByteOrderMark(const std::string& text) { return text.starts_with("\xff\xfe") || text.starts_with("\xfe\xff"); }

NSDictionary* parseStrings(const std::string& text) {
  const NSStringEncoding encoding = hasByteOrderMark(text) ? NSStringEncoding::Unicode : NSStringEncoding::UTF8;
  const objc::Ref<NSString> decoded = NSString::decoded(NSData::dataWithBytes(text.data(), text.size()), encoding);
  try {
    return objc::as<NSDictionary>(objc::send<NSObject*, "propertyListFromStringsFileFormat">(decoded.get()));
  } catch (...) {
    return nullptr;
  }
}

}  // namespace

objc::Ref<NSDictionary> readStringsFile(const std::filesystem::path& file) {
  const std::string text = contentsOf(file);
  if (text.empty() || !hasAcceptableNesting(text)) return nullptr;
  const objc::AutoreleasePool pool;
  return objc::retain(parseStrings(text));
}

objc::Ref<NSDictionary> readPropertyList(const std::filesystem::path& file) {
  const std::string text = contentsOf(file);
  const objc::AutoreleasePool pool;
  return objc::retain(parse(text));
}

}  // namespace foundation
