// NSURLResponse and NSHTTPURLResponse: what a server said beside the body.
#pragma once

#include "platform/ns_object.hpp"

class NSURLResponse : public objc::Interface<"NSURLResponse", NSObject> {};

class NSHTTPURLResponse : public objc::Interface<"NSHTTPURLResponse", NSURLResponse> {
 public:
  NSInteger statusCode() const { return objc::send<NSInteger, "statusCode">(this); }
};
