#include "tests/support/library_code.hpp"

#include <link.h>

#include <cstdint>
#include <cstring>
#include <vector>

namespace test {

namespace {

struct Range {
  std::uintptr_t begin;
  std::uintptr_t end;
  bool isLibrary;
};

// The loaded objects that were recognized before. The library can also be in memory that the dynamic linker does not
// know, because another loader has mapped it.
std::vector<Range>& knownRanges() {
  static std::vector<Range> ranges;
  return ranges;
}

// The library is loaded through a link with the name that it has on a phone.
bool isLibraryFile(const char* path) {
  return std::strstr(path, "/Brim.dylib") != nullptr || std::strstr(path, "/libBrim.so") != nullptr;
}

int addRange(dl_phdr_info* object, std::size_t, void* address) {
  const auto wanted = *static_cast<const std::uintptr_t*>(address);
  for (int index = 0; index < object->dlpi_phnum; ++index) {
    const auto& segment = object->dlpi_phdr[index];
    const std::uintptr_t begin = object->dlpi_addr + segment.p_vaddr;
    if (segment.p_type != PT_LOAD || wanted < begin || wanted >= begin + segment.p_memsz) continue;
    knownRanges().push_back({begin, begin + segment.p_memsz, isLibraryFile(object->dlpi_name)});
    return 1;
  }
  return 0;
}

}  // namespace

bool isLibraryCode(const void* address) {
  auto wanted = reinterpret_cast<std::uintptr_t>(address);
  for (const Range& range : knownRanges())
    if (wanted >= range.begin && wanted < range.end) return range.isLibrary;
  return dl_iterate_phdr(&addRange, &wanted) == 0 || knownRanges().back().isLibrary;
}

}  // namespace test
