// NSURLResponse and NSHTTPURLResponse: a server's response without its body.
#pragma once

#include "platform/ns_object.hpp"

class NSURLResponse : public objc::Interface<"NSURLResponse", NSObject> {};

class NSHTTPURLResponse : public objc::Interface<"NSHTTPURLResponse", NSURLResponse> {
 public:
  NSInteger statusCode() const { return objc::send<NSInteger, "statusCode">(this); }
};
