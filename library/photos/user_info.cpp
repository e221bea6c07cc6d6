#include "library/photos/user_info.hpp"

#include "platform/ns_number.hpp"

NSDictionary* userInfoOf(NCNotificationRequest* request) {
  return objc::as<NSDictionary>(request->userNotification()->request()->content()->userInfo());
}

NSDictionary* dictionaryAt(NSDictionary* values, NSString* key) {
  return objc::as<NSDictionary>(values->objectForKey(key));
}

NSString* textAt(NSDictionary* values, NSString* key) { return objc::as<NSString>(values->objectForKey(key)); }

NSString* identifierAt(NSDictionary* values, NSString* key) {
  NSObject* value = values->objectForKey(key);
  if (auto* text = objc::as<NSString>(value)) return text;
  return objc::as<NSNumber>(value)->description();
}
