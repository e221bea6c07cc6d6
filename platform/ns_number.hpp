// NSNumber: numbers and Booleans as objects.
#pragma once

#include "platform/ns_object.hpp"

class NSNumber : public objc::Interface<"NSNumber", NSObject> {
 public:
  static NSNumber* numberWithBool(bool value) { return objc::send<NSNumber*, "numberWithBool:">(classObject(), value); }
  static NSNumber* numberWithInteger(NSInteger value) {
    return objc::send<NSNumber*, "numberWithInteger:">(classObject(), value);
  }
  static NSNumber* numberWithDouble(double value) {
    return objc::send<NSNumber*, "numberWithDouble:">(classObject(), value);
  }
  // The type encoding of the number, such as "d".
  const char* objCType() const { return objc::send<const char*, "objCType">(this); }
  NSInteger integerValue() const { return objc::send<NSInteger, "integerValue">(this); }
  double doubleValue() const { return objc::send<double, "doubleValue">(this); }
  bool boolValue() const { return objc::send<bool, "boolValue">(this); }
};
