// What is autoreleased while the pool lives is released when it ends.
#pragma once

#include "objc/send.hpp"

namespace objc {

class AutoreleasePool {
 public:
  AutoreleasePool() : pool(send<id, "new">(lookUpClass<"NSAutoreleasePool">())) {}
  AutoreleasePool(const AutoreleasePool&) = delete;
  AutoreleasePool& operator=(const AutoreleasePool&) = delete;
  ~AutoreleasePool() { send<void, "drain">(pool); }

 private:
  id pool;
};

}  // namespace objc
