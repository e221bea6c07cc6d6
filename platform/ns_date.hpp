// NSDate and NSDateFormatter: time points and their text representation.
#pragma once

#include "platform/ns_string.hpp"

class NSDate : public objc::Interface<"NSDate", NSObject> {
 public:
  // The current time.
  static NSDate* date() { return objc::send<NSDate*, "date">(classObject()); }
};

class NSDateFormatter : public objc::Interface<"NSDateFormatter", NSObject> {
 public:
  // Sets the format, a pattern of Unicode date field symbols such as "HH:mm".
  void setDateFormat(NSString* format) { objc::send<void, "setDateFormat:">(this, format); }
  NSString* stringFromDate(NSDate* date) const { return objc::send<NSString*, "stringFromDate:">(this, date); }
};
