#include "simulator/base/foundation_json.hpp"

#include <cstring>
#include <map>
#include <nlohmann/json.hpp>

#include "platform/ns_data.hpp"
#include "platform/ns_date.hpp"
#include "platform/ns_number.hpp"
#include "simulator/base/iso_time.hpp"

namespace base {

namespace {

using Json = nlohmann::ordered_json;

class NSNull : public objc::Interface<"NSNull", NSObject> {};

NSArray* arrayOf(const Json& values) {
  NSMutableArray* array = NSMutableArray::array();
  for (const Json& value : values) array->addObject(objectOf(value));
  return array;
}

NSDictionary* dictionaryOf(const Json& members) {
  NSMutableDictionary* dictionary = NSMutableDictionary::dictionaryWithCapacity(members.size());
  for (const auto& [key, value] : members.items()) dictionary->setObject(objectOf(value), stringOf(key));
  return dictionary;
}

Json jsonOfArray(const NSArray* array) {
  Json values = Json::array();
  for (NSUInteger index = 0; index < array->count(); ++index) values.push_back(jsonOf(array->objectAtIndex(index)));
  return values;
}

Json jsonOfDictionary(const NSDictionary* dictionary) {
  std::map<std::string, Json> sorted;
  const NSArray* keys = dictionary->allKeys();
  for (NSUInteger index = 0; index < keys->count(); ++index) {
    const NSObject* key = keys->objectAtIndex(index);
    sorted[textOf(key->description())] = jsonOf(dictionary->objectForKey(key));
  }
  Json members = Json::object();
  for (auto& [key, value] : sorted) members[key] = std::move(value);
  return members;
}

Json jsonOfNumber(const NSNumber* number) {
  if (number->isKindOfClass(objc::lookUpClass<"NSBoolNumber">())) return number->boolValue();
  const char* type = objc::send<const char*, "objCType">(number);
  if (std::strchr("fd", *type) != nullptr) return number->doubleValue();
  return number->integerValue();
}

}  // namespace

NSString* stringOf(std::string_view text) {
  return objc::autorelease(objc::adopt(objc::send<NSString*, "initWithBytes:length:encoding:">(
      objc::allocate<NSString>(), static_cast<const void*>(text.data()), NSUInteger{text.size()},
      NSStringEncoding::UTF8)));
}

std::string textOf(NSString* string) {
  const NSData* data = string->dataUsingEncoding(NSStringEncoding::UTF8);
  return {static_cast<const char*>(data->bytes()), data->length()};
}

NSObject* objectOf(const Json& value) {
  switch (value.type()) {
    case Json::value_t::object:
      return dictionaryOf(value);
    case Json::value_t::array:
      return arrayOf(value);
    case Json::value_t::string:
      return stringOf(value.get_ref<const std::string&>());
    case Json::value_t::boolean:
      return NSNumber::numberWithBool(value.get<bool>());
    case Json::value_t::number_integer:
      return objc::send<NSNumber*, "numberWithLongLong:">(NSNumber::classObject(), value.get<long long>());
    case Json::value_t::number_unsigned:
      return objc::send<NSNumber*, "numberWithUnsignedLongLong:">(NSNumber::classObject(),
                                                                  value.get<unsigned long long>());
    case Json::value_t::number_float:
      return NSNumber::numberWithDouble(value.get<double>());
    default:
      return objc::send<NSNull*, "null">(NSNull::classObject());
  }
}

Json jsonOf(const NSObject* object) {
  if (object == nullptr || objc::as<NSNull>(object) != nullptr) return nullptr;
  if (NSString* string = objc::as<NSString>(object)) return textOf(string);
  if (const NSNumber* number = objc::as<NSNumber>(object)) return jsonOfNumber(number);
  if (const NSDictionary* dictionary = objc::as<NSDictionary>(object)) return jsonOfDictionary(dictionary);
  if (const NSArray* array = objc::as<NSArray>(object)) return jsonOfArray(array);
  if (const NSDate* date = objc::as<NSDate>(object))
    return formatIsoTime(objc::send<double, "timeIntervalSince1970">(date));
  return textOf(object->description());
}

}  // namespace base
