#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "objc/autorelease_pool.hpp"
#include "platform/ns_data.hpp"
#include "platform/ns_dictionary.hpp"
#include "simulator/foundation/ignored_leaks.hpp"
#include "simulator/foundation/preference_domain.hpp"
#include "simulator/foundation/preferences.hpp"
#include "simulator/foundation/property_list_files.hpp"

namespace foundation {

namespace {

enum class PropertyListFormat : NSUInteger { Xml = 100 };

NSMutableDictionary* storedValues(const std::filesystem::path& file) {
  NSMutableDictionary* values = NSMutableDictionary::dictionaryWithCapacity(0);
  if (const objc::Ref<NSDictionary> stored = readPropertyList(file))
    objc::send<void, "addEntriesFromDictionary:">(values, stored.get());
  return values;
}

// Returns whether a property list can contain the value. Foundation would store only the description of any other
// value.
bool isPropertyListValue(const NSObject* value) {
  for (const char* name : {"NSString", "NSNumber", "NSData", "NSDate", "NSArray", "NSDictionary"})
    if (value->isKindOfClass(reinterpret_cast<Class>(objc_getClass(name)))) return true;
  return false;
}

NSData* serialized(NSDictionary* values) {
  const IgnoredLeaks ignored;
  void* const unwanted = nullptr;
  return objc::send<NSData*, "dataFromPropertyList:format:errorDescription:">(
      objc::lookUpClass<"NSPropertyListSerialization">(), values, PropertyListFormat::Xml, unwanted);
}

bool writeBytes(const std::string& file, const NSData* data) {
  const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (descriptor < 0) return false;
  const ssize_t written = write(descriptor, data->bytes(), data->length());
  return close(descriptor) == 0 && written == static_cast<ssize_t>(data->length());
}

// Replaces the file atomically, because other processes can read it at any time.
bool replaceFile(const std::string& file, const NSData* data) {
  const std::string unfinished = file + "." + std::to_string(getpid());
  if (writeBytes(unfinished, data) && rename(unfinished.c_str(), file.c_str()) == 0) return true;
  const int reason = errno;
  unlink(unfinished.c_str());
  errno = reason;
  return false;
}

}  // namespace

std::optional<std::string> writePreference(const std::string& domain, const std::string& key, const NSObject* value) {
  const objc::AutoreleasePool pool;
  PreferenceDomain& target = PreferenceDomain::named(domain);
  if (target.file().empty())
    return "\"" + domain + "\" is not the name of a preferences domain; a name is not empty and contains no slash";
  NSMutableDictionary* values = storedValues(target.file());
  NSString* const name = NSString::stringWithUTF8String(key.c_str());
  if (name == nullptr) return "the key is not UTF-8";
  if (value != nullptr && !isPropertyListValue(value))
    return "the value of \"" + key + "\" cannot be stored in a property list";
  if (value == nullptr) {
    objc::send<void, "removeObjectForKey:">(values, name);
  } else {
    values->setObject(value, name);
  }
  if (!replaceFile(target.file(), serialized(values))) return target.file().string() + ": " + std::strerror(errno);
  target.reload();
  return std::nullopt;
}

}  // namespace foundation
