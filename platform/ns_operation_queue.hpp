// NSOperationQueue: a queue that runs completion blocks.
#pragma once

#include "platform/ns_object.hpp"

class NSOperationQueue : public objc::Interface<"NSOperationQueue", NSObject> {
 public:
  // Returns the queue that runs its blocks on the main thread.
  static NSOperationQueue* mainQueue() { return objc::send<NSOperationQueue*, "mainQueue">(classObject()); }
};
