// NSURL and NSURLRequest: a URL, and a request to load a URL.
#pragma once

#include "platform/ns_string.hpp"

class NSURL : public objc::Interface<"NSURL", NSObject> {
 public:
  // Returns nil if the text is not a valid URL. The text must not be nil.
  static NSURL* withString(NSString* text) { return objc::send<NSURL*, "URLWithString:">(classObject(), text); }
  // The scheme as written in the URL; nil for a relative URL.
  NSString* scheme() const { return objc::send<NSString*, "scheme">(this); }
  // The host; nil if the URL has none.
  NSString* host() const { return objc::send<NSString*, "host">(this); }
};

class NSURLRequest : public objc::Interface<"NSURLRequest", NSObject> {
 public:
  // A GET request with the platform's default timeout and cache policy.
  static NSURLRequest* withURL(NSURL* url) { return objc::send<NSURLRequest*, "requestWithURL:">(classObject(), url); }
};
