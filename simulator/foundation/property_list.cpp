#include "simulator/foundation/property_list.hpp"

#include <algorithm>
#include <string>

#include "objc/autorelease_pool.hpp"
#include "platform/ns_data.hpp"
#include "simulator/foundation/regular_file.hpp"

namespace foundation {

namespace {

constexpr std::size_t largestFile = 1 << 20;
constexpr std::ptrdiff_t mostCollections = 1000;

// Empty for what is not a file of sensible size.
std::string contentsOf(const std::filesystem::path& file) { return readRegularFile(file, largestFile).value_or(""); }

// Foundation reads nested collections recursively and without a limit.
bool nestsSensibly(const std::string& text) {
  if (text.starts_with("bplist")) return true;
  return std::count_if(text.begin(), text.end(), [](char letter) { return letter == '(' || letter == '{'; }) <=
         mostCollections;
}

NSDictionary* parse(const std::string& text) {
  NSData* data = NSData::dataWithBytes(text.data(), text.size());
  void* const unwanted = nullptr;
  // What is malformed raises an exception or answers nil, by its format.
  try {
    return objc::as<NSDictionary>(objc::send<NSObject*, "propertyListWithData:options:format:error:">(
        objc::lookUpClass<"NSPropertyListSerialization">(), data, NSUInteger{0}, unwanted, unwanted));
  } catch (...) {
    return nullptr;
  }
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
  if (text.empty() || !nestsSensibly(text)) return nullptr;
  const objc::AutoreleasePool pool;
  return objc::retain(parseStrings(text));
}

objc::Ref<NSDictionary> readPropertyList(const std::filesystem::path& file) {
  const std::string text = contentsOf(file);
  if (text.empty() || !nestsSensibly(text)) return nullptr;
  const objc::AutoreleasePool pool;
  return objc::retain(parse(text));
}

}  // namespace foundation
