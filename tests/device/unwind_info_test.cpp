// Tests of the library's unwind information. An exception of the platform can pass through every function of the
// library.
#include "device/mach_o/unwind_info.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iostream>
#include <iterator>
#include <stdexcept>

#include "tests/device/built_files.hpp"

namespace {

using device::MachFile;
using device::Section;
using device::UnwindEntry;
using device::UnwindMode;

const MachFile& library() {
  static const MachFile file = MachFile::read(device::builtLibrary());
  return file;
}

UnwindEntry entryAt(const std::vector<UnwindEntry>& entries, std::uint64_t address) {
  for (const UnwindEntry& entry : entries)
    if (address >= entry.begin && address < entry.end) return entry;
  return {};
}

TEST(UnwindInformation, DescribesEveryFunction) {
  const Section* const code = library().sectionNamed("__text");
  ASSERT_NE(code, nullptr);
  const auto entries = device::unwindEntries(library());
  const auto functions = device::functionStarts(library());
  ASSERT_GT(functions.size(), 1000U);
  EXPECT_EQ(functions.front(), code->address);
  EXPECT_LT(functions.back(), code->address + code->size);
  std::cout << functions.size() << " functions, " << entries.size() << " entries\n";
  std::vector<std::uint64_t> undescribed;
  std::copy_if(functions.begin(), functions.end(), std::back_inserter(undescribed),
               [&](std::uint64_t function) { return entryAt(entries, function).mode() == UnwindMode::None; });
  EXPECT_THAT(undescribed, testing::IsEmpty());
}

TEST(UnwindInformation, DescribesNothingButTheCode) {
  const Section* const code = library().sectionNamed("__text");
  ASSERT_NE(code, nullptr);
  const auto entries = device::unwindEntries(library());
  ASSERT_FALSE(entries.empty());
  EXPECT_EQ(entries.front().begin, code->address);
  EXPECT_EQ(entries.back().end, code->address + code->size);
}

// A function with another mode needs the section __eh_frame. A handler is a language-specific function.
TEST(UnwindInformation, UsesNoOtherModesAndNoHandlers) {
  constexpr std::uint32_t handlerBits = 0xf0000000;
  for (const UnwindEntry& entry : device::unwindEntries(library())) {
    EXPECT_TRUE(entry.mode() == UnwindMode::Frameless || entry.mode() == UnwindMode::Frame)
        << std::hex << entry.encoding;
    EXPECT_EQ(entry.encoding & handlerBits, 0U) << std::hex << entry.encoding;
  }
}

// Tests of the errors in a damaged section.
class DamagedUnwindInformation : public testing::Test {
 protected:
  static constexpr std::size_t version = 0;
  static constexpr std::size_t encodingCount = 8;
  static constexpr std::size_t indexOffset = 20;
  static constexpr std::size_t indexCount = 24;

  std::uint32_t at(std::size_t offset) const {
    std::uint32_t number = 0;
    std::memcpy(&number, &bytes_.at(start_ + offset), sizeof number);
    return number;
  }
  // The first page of the index, and the first function of that page.
  std::size_t page() const { return at(at(indexOffset) + 4); }
  std::size_t function() const { return page() + (at(page() + 4) & 0xffff); }

  template <class Number>
  std::string errorWith(std::size_t offset, Number number) const {
    auto damaged = bytes_;
    std::memcpy(&damaged.at(start_ + offset), &number, sizeof number);
    try {
      device::unwindEntries(MachFile(damaged));
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "";
  }

  const std::vector<std::uint8_t>& bytes_ = library().bytes;
  const std::size_t start_ = static_cast<std::size_t>(
      library().bytesOf(*library().sectionNamed("__unwind_info")).data() - library().bytes.data());
};

TEST_F(DamagedUnwindInformation, IsRejectedIfItIsTruncated) {
  constexpr const char* truncated = "the unwind information ends too early";
  EXPECT_EQ(errorWith(indexOffset, 0xfffffff0U), truncated);
  EXPECT_EQ(errorWith(indexCount, 0xffffffffU), truncated);
  EXPECT_EQ(errorWith(at(indexOffset) + 4, 0xfffffffcU), truncated);
  // The number of functions and the number of encodings of the page.
  EXPECT_EQ(errorWith(page() + 6, std::uint16_t{0xffff}), truncated);
  EXPECT_EQ(errorWith(encodingCount, 0xffffffffU), truncated);
}

TEST_F(DamagedUnwindInformation, IsRejectedIfANumberIsOutOfRange) {
  EXPECT_EQ(errorWith(function() + 3, std::uint8_t{0xff}), "an unwind entry has an encoding that does not exist");
  EXPECT_EQ(errorWith(encodingCount, 0U), "an unwind entry has an encoding that does not exist");
  EXPECT_EQ(errorWith(indexCount, 0U), "the unwind information has no index");
  EXPECT_EQ(errorWith(version, 2U), "the unwind information has an unknown version");
  EXPECT_EQ(errorWith(page(), 4U), "a page of the unwind information has an unknown kind");
}

TEST_F(DamagedUnwindInformation, IsRejectedIfTheFunctionsAreNotInTheLibrary) {
  EXPECT_EQ(errorWith(function(), at(function()) | 0xffffffU), "the unwind entries are not in order");
  const std::size_t endOfCode = at(indexOffset) + (at(indexCount) - 1) * 12;
  EXPECT_EQ(errorWith(endOfCode, 0xfffffff0U), "an unwind entry is outside its segment");
  EXPECT_EQ(errorWith(endOfCode, 0U), "the unwind entries are not in order");
}

// The compilers of this project do not emit a page of this kind.
TEST_F(DamagedUnwindInformation, HasNoErrorIfAPageIsNotCompressed) {
  constexpr std::uint32_t regular = 2;
  constexpr std::uint32_t headerSize = 8;
  constexpr std::uint32_t functionCount = 2;
  auto changed = bytes_;
  const std::uint32_t first = at(at(indexOffset));
  const std::uint32_t words[] = {regular, headerSize | functionCount << 16, first, 0x04000001, first + 8, 0x02000000};
  std::memcpy(&changed.at(start_ + page()), words, sizeof words);
  const auto entries = device::unwindEntries(MachFile(changed));
  ASSERT_GT(entries.size(), functionCount);
  EXPECT_EQ(entries[0].begin, first);
  EXPECT_EQ(entries[0].end, first + 8);
  EXPECT_EQ(entries[0].encoding, 0x04000001U);
  EXPECT_EQ(entries[1].begin, first + 8);
  EXPECT_EQ(entries[1].encoding, 0x02000000U);
}

}  // namespace
