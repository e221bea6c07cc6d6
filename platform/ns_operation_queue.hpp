// NSOperationQueue: where completions run.
#pragma once

#include "platform/ns_object.hpp"

class NSOperationQueue : public objc::Interface<"NSOperationQueue", NSObject> {
 public:
  // That of the main thread.
  static NSOperationQueue* mainQueue() { return objc::send<NSOperationQueue*, "mainQueue">(classObject()); }
};
