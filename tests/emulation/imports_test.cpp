#include "device/emulation/imports.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>

#include "device/mach_o/fixups.hpp"

namespace {

template <class Function>
Function* imported(const char* symbol) {
  return reinterpret_cast<Function*>(emulation::importedAddress(symbol));
}

TEST(Imports, AreFoundByName) {
  EXPECT_EQ(imported<std::size_t(const char*)>("_strlen")("four"), 4U);
  EXPECT_NE(emulation::importedAddress("_sqlite3_step"), nullptr);
  EXPECT_NE(emulation::importedAddress("__dispatch_main_q"), nullptr);
}

TEST(Imports, AreNullIfTheyDoNotExist) {
  EXPECT_EQ(emulation::importedAddress("_noSuchFunction"), nullptr);
  EXPECT_EQ(emulation::importedAddress("strlen"), nullptr);
  EXPECT_EQ(emulation::importedAddress(""), nullptr);
}

TEST(Imports, ContainEverySymbolThatTheLibraryImports) {
  for (const device::Bind& bind : device::binds(device::MachFile::read(DYLIB)))
    EXPECT_NE(emulation::importedAddress(bind.symbol), nullptr) << bind.symbol;
}

TEST(ImportedOpen, TranslatesThePhonesFlags) {
  constexpr int nonBlockingAndCloseOnExec = 0x1000004;
  const int file = imported<int(const char*, int)>("_open")("/dev/null", nonBlockingAndCloseOnExec);
  ASSERT_GE(file, 0);
  EXPECT_NE(fcntl(file, F_GETFL) & O_NONBLOCK, 0);
  EXPECT_EQ(fcntl(file, F_GETFL) & O_ACCMODE, O_RDONLY);
  EXPECT_NE(fcntl(file, F_GETFD) & FD_CLOEXEC, 0);
  close(file);
}

TEST(ImportedOpen, FailsForUnknownFlags) {
  constexpr int create = 0x200;
  EXPECT_EXIT(imported<int(const char*, int)>("_open")("/dev/null", create), testing::ExitedWithCode(1),
              "^Brim.dylib: open has unknown flags\n$");
}

TEST(ImportedDlopen, FindsThePhonesLibrariesInTheProcess) {
  constexpr int lazy = 1;
  constexpr int global = 8;
  const auto open = imported<void*(const char*, int)>("_dlopen");
  const auto symbol = imported<void*(void*, const char*)>("_dlsym");
  for (const char* path : {static_cast<const char*>(nullptr), "/usr/lib/libSystem.B.dylib",
                           "/Library/Frameworks/CydiaSubstrate.framework/CydiaSubstrate"}) {
    void* const library = open(path, lazy | global);
    ASSERT_NE(library, nullptr);
    EXPECT_NE(symbol(library, "__BBServerQueue"), nullptr);
    EXPECT_EQ(symbol(library, "MSHookMessageEx"), emulation::importedAddress("_MSHookMessageEx"));
    EXPECT_EQ(symbol(library, "noSuchFunction"), nullptr);
  }
  EXPECT_EQ(open("/no/such/library", lazy), nullptr);
}

TEST(ImportedStubBinder, IsNeverCalled) {
  EXPECT_EXIT(imported<void()>("dyld_stub_binder")(), testing::ExitedWithCode(1),
              "^Brim.dylib: a symbol is bound lazily\n$");
}

}  // namespace
