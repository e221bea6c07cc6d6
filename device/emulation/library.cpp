// libBrim.so for arm64 Linux. It contains no code of Brim: it loads Brim.dylib, the phone's library, from the same
// folder. The environment variable BRIM_DYLIB names another file.
#include "device/emulation/library_address.hpp"
#include "device/emulation/loader.hpp"
#include "library/startup/inspection.hpp"

namespace emulation {

constexpr Image image = {"Brim.dylib", "BRIM_DYLIB", device::FileType::Library, librarySlot, librarySlot};

namespace {

template <class Function>
Function* exported(const char* symbol) {
  return reinterpret_cast<Function*>(exportedAddress(symbol));
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
