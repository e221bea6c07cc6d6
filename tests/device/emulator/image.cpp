#include "tests/device/emulator/image.hpp"

#include <stdexcept>

#include "device/mach_o/fixups.hpp"

namespace device {

namespace {

// Differs from the address in the file, as on a phone.
constexpr Address slide = 0x1'0480'0000;

}  // namespace

Image::Image(Processor& mappedInto, const MachFile& mapped, const Resolve& resolve)
    : processor(mappedInto), file(mapped) {
  for (const Segment& segment : file.segments) {
    processor.map(segment.address + slide, segment.size,
                  segment.allows(Protection::Execute) ? Access::ReadAndExecute : Access::ReadAndWrite);
    const FilePart where{static_cast<std::uint32_t>(segment.fileOffset), static_cast<std::uint32_t>(segment.fileSize)};
    processor.write(segment.address + slide, file.partAt(where));
  }
  for (const std::uint64_t pointer : rebases(file))
    processor.store(pointer + slide, processor.load<Address>(pointer + slide) + slide);
  for (const Bind& bind : binds(file)) processor.store(bind.address + slide, resolve(bind.symbol, bind.library));
  for (const auto& [address, name] : file.symbols) processor.nameFunction(address + slide, name);
}

void Image::runInitializers() {
  for (const Section& section : file.sectionsOfType(SectionType::Initializers))
    for (std::uint64_t offset = 0; offset < section.size; offset += sizeof(Address))
      processor.call(processor.load<Address>(section.address + slide + offset));
}

Address Image::exported(const std::string& symbol) const {
  for (const Export& each : exports(file))
    if (each.symbol == symbol) return each.address + slide;
  throw std::runtime_error(symbol + " is not exported");
}

bool Image::holdsVariable(Address address) const { return file.segmentAt(address - slide).allows(Protection::Write); }

}  // namespace device
