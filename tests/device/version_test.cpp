// Tests that the package and its asset bundle have the version of the project.
#include <gtest/gtest.h>

#include "tests/device/built_files.hpp"
#include "tests/device/command_output.hpp"

namespace {

std::string package() { return (device::buildFolder() / device::packageName("iphoneos-arm")).string(); }

TEST(Version, IsTheSameForThePackageAndTheProject) {
  const device::CommandOutput output = device::outputOf("dpkg-deb --field " + package() + " Version");
  EXPECT_EQ(output.text, BRIM_VERSION "\n");
}

TEST(Version, IsTheSameForTheAssetBundleAndTheProject) {
  const device::CommandOutput output = device::outputOf(
      "dpkg-deb --fsys-tarfile " + package() + " | tar --extract --to-stdout --wildcards '*/Assets.bundle/Info.plist'");
  const std::string value = "<string>" BRIM_VERSION "</string>";
  for (const char* key : {"<key>CFBundleShortVersionString</key>", "<key>CFBundleVersion</key>"}) {
    const std::size_t at = output.text.find(key);
    ASSERT_NE(at, std::string::npos) << key << output.text;
    EXPECT_EQ(output.text.find("<string>", at), output.text.find(value, at)) << key;
  }
}

}  // namespace
