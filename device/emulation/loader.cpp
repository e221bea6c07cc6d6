// libBrim.so for arm64 Linux. It contains no code of Brim: when it is loaded, it loads Brim.dylib, the phone's library,
// from the same folder, as the phone's dynamic linker does. The environment variable BRIM_DYLIB names another file.
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
#include "library/startup/inspection.hpp"

namespace emulation {

namespace {

namespace fs = std::filesystem;

std::map<std::string, std::uint64_t>& exportedAddresses() {
  static std::map<std::string, std::uint64_t> addresses;
  return addresses;
}

void* placeOf(std::uint64_t address) { return reinterpret_cast<void*>(loadAddress + address); }
std::uint64_t& pointerAt(std::uint64_t address) { return *static_cast<std::uint64_t*>(placeOf(address)); }

fs::path libraryPath() {
  if (const char* const chosen = std::getenv("BRIM_DYLIB"); chosen != nullptr) return chosen;
  Dl_info here = {};
  dladdr(reinterpret_cast<const void*>(&libraryPath), &here);
  return fs::canonical(here.dli_fname).parent_path() / "Brim.dylib";
}

// Copies the segments into memory that can be written.
void copySegments(const device::MachFile& file) {
  void* const place = placeOf(0);
  if (mmap(place, device::sizeInMemory(file), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) != place)
    fail("its addresses are not free in this process");
  for (const device::Segment& segment : file.segments)
    std::memcpy(placeOf(segment.address), file.bytes.data() + segment.fileOffset, segment.fileSize);
}

void bind(const device::MachFile& file) {
  for (const std::uint64_t pointer : device::rebases(file)) pointerAt(pointer) += loadAddress;
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

template <class Function>
Function* exported(const char* symbol) {
  const auto found = exportedAddresses().find(symbol);
  if (found == exportedAddresses().end()) fail(std::string("it does not export ") + symbol);
  return reinterpret_cast<Function*>(found->second + loadAddress);
}

[[gnu::constructor]] void load() {
  try {
    const device::MachFile file = device::MachFile::read(libraryPath());
    device::requireLoadable(file);
    for (const device::Export& each : device::exports(file)) exportedAddresses()[each.symbol] = each.address;
    copySegments(file);
    bind(file);
    protectSegments(file);
    registerFrames(device::unwindEntries(file), loadAddress);
    runInitializers(file);
  } catch (const std::exception& error) {
    fail(error.what());
  }
}

}  // namespace

}  // namespace emulation

extern "C" [[gnu::visibility("default")]] const char* brim_version() {
  return emulation::exported<const char*()>("_brim_version")();
}

extern "C" [[gnu::visibility("default")]] const BrimInstalledMethod* brim_installed_methods(std::size_t* count) {
  return emulation::exported<const BrimInstalledMethod*(std::size_t*)>("_brim_installed_methods")(count);
}

extern "C" [[gnu::visibility("default")]] const BrimSetting* brim_settings(std::size_t* count) {
  return emulation::exported<const BrimSetting*(std::size_t*)>("_brim_settings")(count);
}
