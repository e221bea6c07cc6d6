// NSURL and NSURLRequest: addresses, and asking for what is there.
#pragma once

#include "platform/ns_string.hpp"

class NSURL : public objc::Interface<"NSURL", NSObject> {
 public:
  // nil where the text is no address. The text must not be nil.
  static NSURL* withString(NSString* text) { return objc::send<NSURL*, "URLWithString:">(classObject(), text); }
  // As written in the address; nil for a relative one.
  NSString* scheme() const { return objc::send<NSString*, "scheme">(this); }
  // nil where the address names none.
  NSString* host() const { return objc::send<NSString*, "host">(this); }
};

class NSURLRequest : public objc::Interface<"NSURLRequest", NSObject> {
 public:
  // A GET request with the platform's time-out and caching.
  static NSURLRequest* withURL(NSURL* url) { return objc::send<NSURLRequest*, "requestWithURL:">(classObject(), url); }
};
