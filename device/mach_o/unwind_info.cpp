#include "device/mach_o/unwind_info.hpp"

#include <stdexcept>

#include "device/mach_o/byte_reader.hpp"

namespace device {

namespace {

constexpr std::uint32_t supportedVersion = 1;
constexpr std::size_t headerSize = 28;
constexpr std::size_t pageHeaderSize = 8;
constexpr std::size_t indexEntrySize = 12;
constexpr std::size_t regularEntrySize = 8;
constexpr std::size_t wordSize = 4;

enum class PageKind : std::uint32_t { Regular = 2, Compressed = 3 };

struct Table {
  std::size_t offset;
  std::size_t count;
};

// The section has an index of pages. Each page lists functions with their encodings. An entry of a compressed page
// contains an index into a list of encodings, which consists of the section's encodings and then the page's encodings.
class UnwindInformation {
 public:
  UnwindInformation(const MachFile& file, const Section& section)
      : bytes_(file.bytesOf(section)), segment_(file.segmentAt(section.address)) {}

  std::vector<UnwindEntry> read() {
    ByteReader header = readerAt(0, headerSize);
    if (header.number<std::uint32_t>() != supportedVersion)
      throw std::runtime_error("the unwind information has an unknown version");
    encodings_ = table<std::uint32_t>(header);
    readerAt(encodings_.offset, encodings_.count * wordSize);
    header.skip(2 * wordSize);  // personality functions
    const Table index = table<std::uint32_t>(header);
    if (index.count == 0) throw std::runtime_error("the unwind information has no index");
    ByteReader pages = readerAt(index.offset, index.count * indexEntrySize);
    for (std::size_t page = 1; page < index.count; ++page) {
      const auto firstFunction = pages.number<std::uint32_t>();
      readPage(pages.number<std::uint32_t>(), firstFunction);
      pages.skip(wordSize);  // language-specific data
    }
    endLastEntry(pages.number<std::uint32_t>());
    if (!entries_.empty() && entries_.back().end - segment_.address > segment_.size)
      throw std::runtime_error("an unwind entry is outside its segment");
    return std::move(entries_);
  }

 private:
  template <class Number>
  static Table table(ByteReader& reader) {
    const auto offset = reader.number<Number>();
    return {offset, reader.number<Number>()};
  }

  ByteReader readerAt(std::size_t offset, std::size_t size) const {
    if (offset > bytes_.size() || size > bytes_.size() - offset)
      throw std::runtime_error("the unwind information ends too early");
    return ByteReader(bytes_.subspan(offset, size));
  }

  void readPage(std::size_t offset, std::uint32_t firstFunction) {
    switch (static_cast<PageKind>(readerAt(offset, wordSize).number<std::uint32_t>())) {
      case PageKind::Regular:
        return readRegularPage(offset);
      case PageKind::Compressed:
        return readCompressedPage(offset, firstFunction);
    }
    throw std::runtime_error("a page of the unwind information has an unknown kind");
  }

  void readRegularPage(std::size_t page) {
    ByteReader header = readerAt(page + wordSize, pageHeaderSize - wordSize);
    const Table functions = table<std::uint16_t>(header);
    ByteReader reader = readerAt(page + functions.offset, functions.count * regularEntrySize);
    while (!reader.atEnd()) {
      const auto function = reader.number<std::uint32_t>();
      add(function, reader.number<std::uint32_t>());
    }
  }

  void readCompressedPage(std::size_t page, std::uint32_t firstFunction) {
    ByteReader header = readerAt(page + wordSize, pageHeaderSize);
    const Table functions = table<std::uint16_t>(header);
    Table encodings = table<std::uint16_t>(header);
    encodings.offset += page;
    ByteReader reader = readerAt(page + functions.offset, functions.count * wordSize);
    while (!reader.atEnd()) {
      const auto entry = reader.number<std::uint32_t>();
      const std::size_t number = entry >> 24;
      const bool isOfSection = number < encodings_.count;
      add(firstFunction + (entry & 0xffffff),
          isOfSection ? encodingIn(encodings_, number) : encodingIn(encodings, number - encodings_.count));
    }
  }

  std::uint32_t encodingIn(Table encodings, std::size_t number) const {
    if (number >= encodings.count) throw std::runtime_error("an unwind entry has an encoding that does not exist");
    return readerAt(encodings.offset + number * wordSize, wordSize).number<std::uint32_t>();
  }

  void add(std::uint32_t function, std::uint32_t encoding) {
    endLastEntry(function);
    entries_.push_back({segment_.address + function, 0, encoding});
  }

  void endLastEntry(std::uint32_t end) {
    if (entries_.empty()) return;
    entries_.back().end = segment_.address + end;
    if (entries_.back().end <= entries_.back().begin) throw std::runtime_error("the unwind entries are not in order");
  }

  std::span<const std::uint8_t> bytes_;
  const Segment& segment_;
  Table encodings_{};
  std::vector<UnwindEntry> entries_;
};

}  // namespace

std::vector<UnwindEntry> unwindEntries(const MachFile& file) {
  const Section* const section = file.sectionNamed("__unwind_info");
  if (section == nullptr) return {};
  return UnwindInformation(file, *section).read();
}

std::vector<std::uint64_t> functionStarts(const MachFile& file) {
  std::vector<std::uint64_t> starts;
  ByteReader reader(file.partAt(file.functionStarts));
  std::uint64_t address = file.segments.empty() ? 0 : file.segments.front().address;
  while (!reader.atEnd()) {
    const std::uint64_t distance = reader.unsignedLeb128();
    // The rest of the list is padding.
    if (distance == 0) break;
    address += distance;
    starts.push_back(address);
  }
  return starts;
}

}  // namespace device
