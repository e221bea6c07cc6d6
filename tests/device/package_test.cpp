// Tests of the contents of the packages, unpacked with dpkg.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <sstream>

#include "device/mach_o/mach_file.hpp"
#include "tests/device/built_files.hpp"
#include "tests/device/command_output.hpp"

namespace {

namespace fs = std::filesystem;

constexpr const char* librariesFolder = "Library/MobileSubstrate/DynamicLibraries";
constexpr const char* assetBundle = "Library/Application Support/Brim/Assets.bundle";
constexpr const char* paneBundle = "Library/PreferenceBundles/BrimPreferences.bundle";

std::string dpkgDeb(const std::string& arguments) {
  const device::CommandOutput output = device::outputOf("dpkg-deb " + arguments);
  EXPECT_EQ(output.status, 0) << output.text;
  return output.text;
}

struct PackageKind {
  const char* architecture;
  // The folder that contains the installed files, relative to the root.
  const char* prefix;
};

void PrintTo(const PackageKind& kind, std::ostream* stream) { *stream << kind.architecture; }

class Package : public testing::TestWithParam<PackageKind> {
 protected:
  static fs::path file() { return device::buildFolder() / device::packageName(GetParam().architecture); }

  static std::string field(const std::string& name) {
    std::string value = dpkgDeb("--field " + file().string() + " " + name);
    value.erase(std::remove(value.begin(), value.end(), '\n'), value.end());
    return value;
  }
};

// Unpacks a package into a temporary folder. The destructor removes the folder.
class Unpacked {
 public:
  Unpacked(const fs::path& package, const PackageKind& kind)
      : temporary_(makeFolder()), folder(temporary_ / kind.prefix) {
    dpkgDeb("--extract " + package.string() + " " + temporary_.string());
  }
  ~Unpacked() {
    std::error_code ignored;
    fs::remove_all(temporary_, ignored);
  }
  Unpacked(const Unpacked&) = delete;
  Unpacked& operator=(const Unpacked&) = delete;

  const fs::path& root() const { return temporary_; }

 private:
  static fs::path makeFolder() {
    std::string pattern = (fs::temp_directory_path() / "brim-package-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder can be made");
    return pattern;
  }

  fs::path temporary_;

 public:
  // The folder that contains the installed files.
  const fs::path folder;
};

std::string textOf(const fs::path& path) {
  const auto bytes = device::contentsOf(path);
  return {bytes.begin(), bytes.end()};
}

TEST_P(Package, DeclaresItsDependencies) {
  EXPECT_EQ(field("Package"), "com.marrowgate.brim");
  EXPECT_EQ(field("Architecture"), GetParam().architecture);
  EXPECT_EQ(field("Depends"), "firmware (>= 11.2), mobilesubstrate, preferenceloader, ws.hbang.common");
}

TEST_P(Package, ContainsTheBuiltLibrary) {
  const Unpacked package(file(), GetParam());
  EXPECT_EQ(device::contentsOf(package.folder / librariesFolder / "Brim.dylib"),
            device::contentsOf(device::builtLibrary()));
}

TEST_P(Package, ContainsAFilterForTheHomeScreenAndMessages) {
  const Unpacked package(file(), GetParam());
  const std::string filter = textOf(package.folder / librariesFolder / "Brim.plist");
  EXPECT_EQ(filter, "{ Filter = { Bundles = ( \"com.apple.springboard\", \"com.apple.MobileSMS\" ); }; }\n");
}

TEST_P(Package, ContainsTheAssetsAtTheLibrarysPath) {
  const Unpacked package(file(), GetParam());
  const fs::path bundle = package.folder / assetBundle;
  EXPECT_TRUE(fs::exists(bundle / "Info.plist"));
  EXPECT_TRUE(fs::exists(bundle / "en.lproj/Localizable.strings"));
  EXPECT_TRUE(fs::exists(bundle / "zh-Hant.lproj/Localizable.strings"));
  for (const char* color : {"black", "white"}) {
    for (const char* glyph :
         {"whatsapp", "imessages", "twitter", "slack", "discord", "instagram", "facebook_messenger", "telegram"}) {
      for (const char* suffix : {".png", "@2x.png", "@3x.png"})
        EXPECT_GT(fs::file_size(bundle / "glyphs" / color / (std::string(glyph) + suffix)), 100U)
            << color << " " << glyph << suffix;
    }
  }
}

TEST_P(Package, ContainsTheSettingsPane) {
  const Unpacked package(file(), GetParam());
  const fs::path bundle = package.folder / paneBundle;
  EXPECT_EQ(device::contentsOf(bundle / "BrimPreferences"),
            device::contentsOf(device::builtPane() / "BrimPreferences"));
  for (const char* file : {"Info.plist", "Root.plist", "icon@2x.png", "icon@3x.png"})
    EXPECT_GT(fs::file_size(bundle / file), 500U) << file;
  for (const char* language : {"en", "de", "fr", "es", "it", "pt-BR", "nl", "sv", "pl", "tr", "ru", "uk", "ja", "ko",
                               "zh-Hans", "zh-Hant", "ar", "he", "iw"})
    EXPECT_TRUE(fs::exists(bundle / (std::string(language) + ".lproj") / "Root.strings")) << language;
}

TEST_P(Package, AddsTheSettingsPaneToTheSettingsApplication) {
  const Unpacked package(file(), GetParam());
  EXPECT_EQ(device::contentsOf(package.folder / "Library/PreferenceLoader/Preferences/Brim.plist"),
            device::contentsOf(device::sourceFolder() / "settings_pane/resources/Brim.plist"));
}

TEST_P(Package, FilesBelongToRootAndAreNotWritableByOthers) {
  std::istringstream lines(dpkgDeb("--contents " + file().string()));
  int entries = 0;
  for (std::string line; std::getline(lines, line); ++entries) {
    EXPECT_NE(line.find(" root/root "), std::string::npos) << line;
    const std::string mode = line.substr(0, 10);
    const bool isExecutable = mode[0] == 'd' || line.ends_with("/Brim.dylib") || line.ends_with("/BrimPreferences");
    EXPECT_EQ(mode.substr(1), isExecutable ? "rwxr-xr-x" : "rw-r--r--") << line;
  }
  EXPECT_GT(entries, 100);
}

TEST_P(Package, IsReproducible) {
  EXPECT_EQ(device::contentsOf(device::secondBuild() / "Brim.dylib"), device::contentsOf(device::builtLibrary()));
  EXPECT_EQ(device::contentsOf(device::secondBuild() / file().filename()), device::contentsOf(file()));
}

TEST_P(Package, NamesItsAuthorsAndItsIcon) {
  EXPECT_EQ(field("Author"), "The Brim developers");
  EXPECT_EQ(field("Maintainer"), "The Brim developers");
  const Unpacked package(file(), GetParam());
  const std::string icon = field("Icon");
  ASSERT_TRUE(icon.starts_with("file:///")) << icon;
  EXPECT_TRUE(fs::is_regular_file(package.root() / icon.substr(8))) << icon;
}

// The size is in KiB. The size of each file is rounded up to whole KiB, as on a file system that allocates whole KiB.
TEST_P(Package, DeclaresItsInstalledSize) {
  const Unpacked package(file(), GetParam());
  std::uintmax_t size = 0;
  for (const auto& entry : fs::recursive_directory_iterator(package.root()))
    size += entry.is_directory() ? 1 : (entry.file_size() + 1023) / 1024;
  EXPECT_EQ(field("Installed-Size"), std::to_string(size));
}

TEST_P(Package, InstallsNothingOutsideItsFolder) {
  const Unpacked package(file(), GetParam());
  const std::string folder = (package.folder / "Library/").string();
  for (const auto& entry : fs::recursive_directory_iterator(package.root())) {
    const bool isInside = entry.is_directory() || entry.path().string().starts_with(folder);
    EXPECT_TRUE(isInside) << entry.path();
  }
}

INSTANTIATE_TEST_SUITE_P(Architectures, Package,
                         testing::Values(PackageKind{"iphoneos-arm", ""}, PackageKind{"iphoneos-arm64", "var/jb"}),
                         [](const auto& parameter) { return parameter.index == 0 ? "RootFolder" : "VarJb"; });

}  // namespace
