// A library or settings pane that cannot be loaded ends the program with one line that names the problem.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cstdio>
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

TEST_F(Loader, ReportsAnotherProcessor) {
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

class PaneLoader : public testing::Test {
 protected:
  // Loads a copy of the pane's executable. If a file is given, it takes the place of the executable for the phone.
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

TEST_F(PaneLoader, ReportsALibrary) {
  EXPECT_EXIT(load(DYLIB), testing::ExitedWithCode(1), "^BrimPreferences.arm64: the file is not a bundle\n$");
}

// One range of addresses is for the library.
TEST_F(PaneLoader, LoadsEachCopyAtItsOwnAddresses) {
  for (std::size_t copy = 1; copy < emulation::slotCount; ++copy) load();
  EXPECT_EXIT(load(), testing::ExitedWithCode(1), "^BrimPreferences.arm64: its addresses are not free");
}

}  // namespace
