#include "device/emulation/loader.hpp"

#include <dlfcn.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <map>
#include <string>

#include "device/emulation/frames.hpp"
#include "device/emulation/imports.hpp"
#include "device/emulation/library_address.hpp"
#include "device/emulation/report.hpp"
#include "device/mach_o/fixups.hpp"
#include "device/mach_o/loadable.hpp"
#include "device/mach_o/unwind_info.hpp"

namespace emulation {

namespace {

namespace fs = std::filesystem;

std::map<std::string, std::uint64_t>& exportedAddresses() {
  static std::map<std::string, std::uint64_t> addresses;
  return addresses;
}

std::uint64_t imageAddress;

void* placeOf(std::uint64_t address) { return reinterpret_cast<void*>(imageAddress + address); }
std::uint64_t& pointerAt(std::uint64_t address) { return *static_cast<std::uint64_t*>(placeOf(address)); }

fs::path imagePath() {
  const char* const chosen = image.pathVariable == nullptr ? nullptr : std::getenv(image.pathVariable);
  if (chosen != nullptr) return chosen;
  Dl_info here = {};
  dladdr(reinterpret_cast<const void*>(&imagePath), &here);
  return fs::canonical(here.dli_fname).parent_path() / image.name;
}

// Reserves writable memory in a free slot and returns its address.
std::uint64_t reserve(std::size_t size) {
  for (std::size_t slot = image.firstSlot; slot <= image.lastSlot; ++slot) {
    void* const wanted = reinterpret_cast<void*>(addressOfSlot(slot));
    void* const place = mmap(wanted, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (place == wanted) return addressOfSlot(slot);
    if (place != MAP_FAILED) munmap(place, size);
  }
  fail("its addresses are not free in this process");
}

void copySegments(const device::MachFile& file) {
  imageAddress = reserve(device::sizeInMemory(file));
  for (const device::Segment& segment : file.segments)
    std::memcpy(placeOf(segment.address), file.bytes.data() + segment.fileOffset, segment.fileSize);
}

void bind(const device::MachFile& file) {
  for (const std::uint64_t pointer : device::rebases(file)) pointerAt(pointer) += imageAddress;
  for (const device::Bind& bind : device::binds(file)) {
    void* const address = importedAddress(bind.symbol);
    if (address == nullptr) fail(bind.symbol + " is missing, which " + bind.library + " exports on the phone");
    pointerAt(bind.address) = reinterpret_cast<std::uint64_t>(address);
  }
}

void protectSegments(const device::MachFile& file) {
  for (const device::Segment& segment : file.segments) {
    int protection = 0;
    if (segment.allows(device::Protection::Read)) protection |= PROT_READ;
    if (segment.allows(device::Protection::Write)) protection |= PROT_WRITE;
    if (segment.allows(device::Protection::Execute)) protection |= PROT_EXEC;
    char* const place = static_cast<char*>(placeOf(segment.address));
    __builtin___clear_cache(place, place + segment.size);
    if (mprotect(place, segment.size, protection) != 0) fail("segment " + segment.name + " cannot be protected");
  }
}

void runInitializers(const device::MachFile& file) {
  using Initializer = void (*)(int argumentCount, char** arguments, char** environment, char** system, void* variables);
  char* none[] = {nullptr};
  for (const device::Section& section : file.sectionsOfType(device::SectionType::Initializers))
    for (std::uint64_t offset = 0; offset < section.size; offset += sizeof(std::uint64_t))
      reinterpret_cast<Initializer>(pointerAt(section.address + offset))(0, none, environ, none, nullptr);
}

[[gnu::constructor]] void load() {
  setFileName(image.name);
  try {
    const device::MachFile file = device::MachFile::read(imagePath());
    device::requireLoadable(file, image.type);
    for (const device::Export& each : device::exports(file)) exportedAddresses()[each.symbol] = each.address;
    copySegments(file);
    bind(file);
    protectSegments(file);
    registerFrames(device::unwindEntries(file), imageAddress);
    runInitializers(file);
  } catch (const std::exception& error) {
    fail(error.what());
  }
}

}  // namespace

void* exportedAddress(const char* symbol) {
  const auto found = exportedAddresses().find(symbol);
  if (found == exportedAddresses().end()) fail(std::string("it does not export ") + symbol);
  return placeOf(found->second);
}

}  // namespace emulation
