// NSDate and NSDateFormatter: instants, and how they are written.
#pragma once

#include "platform/ns_string.hpp"

class NSDate : public objc::Interface<"NSDate", NSObject> {
 public:
  static NSDate* date() { return objc::send<NSDate*, "date">(classObject()); }
};

class NSDateFormatter : public objc::Interface<"NSDateFormatter", NSObject> {
 public:
  void setDateFormat(NSString* format) { objc::send<void, "setDateFormat:">(this, format); }
  NSString* stringFromDate(NSDate* date) const { return objc::send<NSString*, "stringFromDate:">(this, date); }
};
