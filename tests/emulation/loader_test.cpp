// Tests that a library or settings pane that cannot be loaded ends the program with one line that names the problem.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>

#include "device/emulation/library_address.hpp"
#include "device/mach_o/mach_file.hpp"
#include "tests/support/temporary_folder.hpp"

namespace {

struct Ended {
  int status;
  std::string output;
};

class Loader : public testing::Test {
 protected:
  static std::string library() {
    const auto bytes = device::contentsOf(DYLIB);
    return {bytes.begin(), bytes.end()};
  }
  static std::string replaced(std::string bytes, const std::string& old, const std::string& text) {
    const std::size_t found = bytes.find(old);
    EXPECT_NE(found, std::string::npos);
    return bytes.replace(found, text.size(), text);
  }

  std::filesystem::path store(const std::string& bytes) {
    std::ofstream(folder_.path() / "Brim.dylib") << bytes;
    return folder_.path() / "Brim.dylib";
  }

  // Starts the home screen with this library.
  Ended start(const std::filesystem::path& path) {
    const std::string command = "BRIM_DYLIB='" + path.string() + "' '" SPRINGBOARD "' --root '" +
                                (folder_.path() / "root").string() + "' --script - 2>&1 </dev/null";
    std::FILE* const pipe = popen(command.c_str(), "r");
    std::string output;
    std::array<char, 4096> read{};
    for (std::size_t count = 0; (count = std::fread(read.data(), 1, read.size(), pipe)) > 0;)
      output.append(read.data(), count);
    const int status = pclose(pipe);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, output};
  }

  test::TemporaryFolder folder_;
};

TEST_F(Loader, LoadsACopyOfTheLibrary) {
  const Ended ended = start(store(library()));
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.output, "");
}

TEST_F(Loader, ReportsAMissingFile) {
  const Ended ended = start("/no/such/library");
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.output, "Brim.dylib: /no/such/library cannot be read\n");
}

TEST_F(Loader, ReportsATruncatedFile) {
  const Ended ended = start(store(library().substr(0, 100'000)));
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.output, "Brim.dylib: a part is outside the file\n");
}

TEST_F(Loader, ReportsALibraryForAnotherProcessor) {
  std::string bytes = library();
  bytes[4] = 7;
  const Ended ended = start(store(bytes));
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.output, "Brim.dylib: the processor type is not arm64\n");
}

TEST_F(Loader, ReportsAMissingImport) {
  const Ended ended = start(store(replaced(library(), "_strlen", "_strlex")));
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.output, "Brim.dylib: _strlex is missing, which /usr/lib/libSystem.B.dylib exports on the phone\n");
}

TEST_F(Loader, ReportsAnOpcodeOutOfRange) {
  const device::MachFile file = device::MachFile::read(DYLIB);
  std::string bytes = library();
  bytes[file.linkerInformation.rebases.offset] = static_cast<char>(0xf0);
  const Ended ended = start(store(bytes));
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.output, "Brim.dylib: a rebase opcode is unknown\n");
}

// Tests of the loader with invalid unwind information. The constants are offsets into the section __unwind_info.
class UnwindInformation : public Loader {
 protected:
  static constexpr std::size_t indexOffset = 20;
  static constexpr std::size_t firstEncoding = 28;

  std::uint32_t at(std::size_t offset) const {
    std::uint32_t number = 0;
    std::memcpy(&number, &file_.bytes.at(start_ + offset), sizeof number);
    return number;
  }
  std::size_t page() const { return at(at(indexOffset) + 4); }
  std::size_t function() const { return page() + (at(page() + 4) & 0xffff); }

  // Starts the home screen with a copy of the library in which this number is at the offset into the section.
  template <class Number>
  Ended startWith(std::size_t offset, Number number) {
    std::string bytes = library();
    std::memcpy(&bytes.at(start_ + offset), &number, sizeof number);
    return start(store(bytes));
  }

  const device::MachFile file_ = device::MachFile::read(DYLIB);
  const std::size_t start_ =
      static_cast<std::size_t>(file_.bytesOf(*file_.sectionNamed("__unwind_info")).data() - file_.bytes.data());
};

TEST_F(UnwindInformation, IsReportedIfAPageIsTruncated) {
  const Ended ended = startWith(page() + 6, std::uint16_t{0xffff});
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.output, "Brim.dylib: the unwind information ends too early\n");
}

TEST_F(UnwindInformation, IsReportedIfAnIndexIsOutOfRange) {
  const Ended ended = startWith(function() + 3, std::uint8_t{0xff});
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.output, "Brim.dylib: an unwind entry has an encoding that does not exist\n");
}

TEST_F(UnwindInformation, IsReportedIfItRefersToAnotherSection) {
  const Ended ended = startWith(firstEncoding, 0x03000010U);
  EXPECT_EQ(ended.status, 1);
  EXPECT_TRUE(ended.output.starts_with("Brim.dylib: the function at 0x")) << ended.output;
  EXPECT_TRUE(ended.output.ends_with(" has the unsupported unwind encoding 0x03000010\n")) << ended.output;
}

class PaneLoader : public testing::Test {
 protected:
  // Loads a copy of the pane's executable. If a file is given, it replaces the executable for the phone.
  void load(const std::filesystem::path& phoneFile = {}) {
    const std::filesystem::path copy = folder_.path() / std::to_string(count_++);
    std::filesystem::create_directory(copy);
    for (const char* name : {"BrimPreferences", "BrimPreferences.arm64"})
      std::filesystem::copy(std::filesystem::path(PANE) / name, copy);
    if (!phoneFile.empty())
      std::filesystem::copy(phoneFile, copy / "BrimPreferences.arm64",
                            std::filesystem::copy_options::overwrite_existing);
    EXPECT_NE(dlopen((copy / "BrimPreferences").c_str(), RTLD_NOW | RTLD_LOCAL), nullptr) << dlerror();
  }

  test::TemporaryFolder folder_;
  int count_ = 0;
};

TEST_F(PaneLoader, ReportsALibraryInsteadOfABundle) {
  EXPECT_EXIT(load(DYLIB), testing::ExitedWithCode(1), "^BrimPreferences.arm64: the file is not a bundle\n$");
}

// One of the address ranges is reserved for the library.
TEST_F(PaneLoader, LoadsEachCopyAtItsOwnAddresses) {
  for (std::size_t copy = 1; copy < emulation::slotCount; ++copy) load();
  EXPECT_EXIT(load(), testing::ExitedWithCode(1), "^BrimPreferences.arm64: its addresses are not free");
}

}  // namespace
