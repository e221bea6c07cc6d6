// A program that only loads Foundation and sends a few messages. Its instruction count is a lower bound for the start
// of the home screen.
#include <cstdio>

#include "objc/autorelease_pool.hpp"
#include "platform/ns_file_manager.hpp"

int main() {
  const objc::AutoreleasePool pool;
  std::printf("%lu\n",
              static_cast<unsigned long>(NSFileManager::defaultManager()->contentsOfDirectory("/"_ns)->count()));
  return 0;
}
