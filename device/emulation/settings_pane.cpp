// The executable of the settings pane's bundle for arm64 Linux. It contains no code of the pane: it loads the phone's
// executable from the same folder.
#include "device/emulation/library_address.hpp"
#include "device/emulation/loader.hpp"

namespace emulation {

constexpr Image image = {"BrimPreferences.arm64", nullptr, device::FileType::Bundle, librarySlot + 1, slotCount - 1};

}  // namespace emulation
