// Environment variables:
//   BRIM_MUTANT        the number of the selected mutant
//   BRIM_MUTANT_REACH  a file that all processes of a test map into memory. It contains the number of calls so far and
//                      the maximum number of calls, 8 bytes each, and then one byte for each mutant, which is 1 after
//                      the mutant was executed.
#include "mutation/runtime/selection.hpp"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct Reach {
  unsigned long calls;
  unsigned long maxCalls;
};

unsigned long selected;
Reach* reach;
unsigned char* isReached;
unsigned long reachCount;

// Has a priority, so it runs before the library's entry point, which has none.
[[gnu::constructor(101)]] void readEnvironment() {
  if (const char* number = getenv("BRIM_MUTANT")) selected = strtoul(number, nullptr, 10);
  const char* path = getenv("BRIM_MUTANT_REACH");
  if (path == nullptr) return;
  const int file = open(path, O_RDWR | O_CLOEXEC);
  struct stat status = {};
  if (file < 0 || fstat(file, &status) != 0) return;
  const auto size = static_cast<unsigned long>(status.st_size);
  void* const mapped = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  close(file);
  if (mapped == MAP_FAILED) return;
  reach = static_cast<Reach*>(mapped);
  isReached = static_cast<unsigned char*>(mapped) + sizeof(Reach);
  reachCount = size - sizeof(Reach);
}

}  // namespace

extern "C" bool brimMutantIsOn(unsigned number) {
  if (reach != nullptr) {
    if (number < reachCount) isReached[number] = 1;
    // Ends an endless loop, after the same number of iterations on every machine.
    if (__atomic_add_fetch(&reach->calls, 1, __ATOMIC_RELAXED) > reach->maxCalls) _exit(1);
  }
  return number == selected;
}
