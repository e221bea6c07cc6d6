// An autorelease pool for the enclosing scope: the destructor releases the objects that were autoreleased on this
// thread since the constructor ran.
#pragma once

#include "objc/send.hpp"

namespace objc {

class AutoreleasePool {
 public:
  AutoreleasePool() : pool_(send<id, "new">(lookUpClass<"NSAutoreleasePool">())) {}
  AutoreleasePool(const AutoreleasePool&) = delete;
  AutoreleasePool& operator=(const AutoreleasePool&) = delete;
  ~AutoreleasePool() { send<void, "drain">(pool_); }

 private:
  id pool_;
};

}  // namespace objc
