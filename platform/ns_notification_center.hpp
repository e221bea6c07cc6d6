// NSNotificationCenter: notifications within the process. `post` calls the observers on the calling thread and returns
// after the last call.
#pragma once

#include "platform/ns_dictionary.hpp"
#include "platform/ns_string.hpp"

class NSNotification : public objc::Interface<"NSNotification", NSObject> {
 public:
  NSString* name() const { return objc::send<NSString*, "name">(this); }
  // The dictionary that was posted with the notification; nil if there is none.
  NSDictionary* userInfo() const { return objc::send<NSDictionary*, "userInfo">(this); }
};

class NSNotificationCenter : public objc::Interface<"NSNotificationCenter", NSObject> {
 public:
  static NSNotificationCenter* defaultCenter() {
    return objc::send<NSNotificationCenter*, "defaultCenter">(classObject());
  }
  // The center does not retain the observer.
  void addObserver(NSObject* observer, SEL selector, NSString* name) {
    objc::send<void, "addObserver:selector:name:object:">(this, observer, selector, name, noObject());
  }
  void removeObserver(NSObject* observer, NSString* name) {
    objc::send<void, "removeObserver:name:object:">(this, observer, name, noObject());
  }
  void post(NSString* name, NSDictionary* userInfo) {
    objc::send<void, "postNotificationName:object:userInfo:">(this, name, noObject(), userInfo);
  }

 private:
  static NSObject* noObject() { return nullptr; }
};
