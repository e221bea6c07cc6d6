// Moves an installation to another folder. Its programs must use the installed files instead of the files in the build
// folder.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "simulator/base/default_root.hpp"
#include "simulator/base/installation.hpp"
#include "tests/support/temporary_folder.hpp"

namespace {

namespace fs = std::filesystem;

std::string contentsOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(DefaultRoot, IsNotInTheCurrentFolder) {
  for (const char* home : {"", "relative"}) {
    setenv("HOME", home, 1);
    setenv("XDG_DATA_HOME", home, 1);
    const fs::path root = base::defaultRoot();
    EXPECT_TRUE(root.is_absolute()) << root;
    EXPECT_TRUE(root.native().ends_with("/.local/share/brim/root")) << root;
  }
  setenv("HOME", "/home/anna", 1);
  EXPECT_EQ(base::defaultRoot(), "/home/anna/.local/share/brim/root");
  setenv("XDG_DATA_HOME", "/data", 1);
  EXPECT_EQ(base::defaultRoot(), "/data/brim/root");
}

class InstalledPhone : public testing::Test {
 protected:
  InstalledPhone() {
    // The programs must find their libraries without it.
    unsetenv("LD_LIBRARY_PATH");
    const fs::path first = folder.path() / "first";
    const std::string command =
        INSTALL " --prefix '" + first.string() + "' >'" + (folder.path() / "log").string() + "'";
    EXPECT_EQ(std::system(command.c_str()), 0) << contentsOf(folder.path() / "log");
    fs::rename(first, prefix());
  }

  fs::path prefix() const { return folder.path() / "installed"; }

  // Runs the program with a script that writes a picture of a banner, and returns the picture.
  std::string pictureOf(const std::string& program, const std::string& name) const {
    const fs::path work = folder.path() / name;
    fs::create_directories(work);
    std::ofstream(work / "script") << R"({"do":"present","section":"com.apple.MobileSMS","title":"Anna"})"
                                      "\n"
                                      R"({"do":"wait","seconds":1})"
                                      "\n"
                                      R"({"do":"screenshot","path":"picture.png"})"
                                      "\n";
    const std::string command = "cd '" + work.string() + "' && LD_DEBUG=files '" + program +
                                "' --root root --time 2020-03-14T09:41 --script script >answers 2>files";
    EXPECT_EQ(std::system(command.c_str()), 0) << contentsOf(work / "answers");
    return contentsOf(work / "picture.png");
  }

  test::TemporaryFolder folder;
};

TEST_F(InstalledPhone, ReportsAMissingPlugin) {
  ASSERT_TRUE(fs::remove(prefix() / "lib/brim/recorder.so"));
  std::ofstream(folder.path() / "script") << R"({"do":"startrecording","path":"recording.webp"})";
  const std::string command = "cd '" + folder.path().string() + "' && installed/bin/springboard" +
                              " --root root --script script >answers 2>errors";
  EXPECT_NE(std::system(command.c_str()), 0);
  const std::string answers = contentsOf(folder.path() / "answers");
  EXPECT_NE(answers.find("the plugin recorder.so cannot be loaded"), std::string::npos) << answers;
  EXPECT_EQ(contentsOf(folder.path() / "errors").find("was not ended"), std::string::npos);
  EXPECT_FALSE(fs::exists(folder.path() / "recording.webp"));
}

TEST_F(InstalledPhone, ShowsTheSamePictureAsTheBuild) {
  const std::string picture = pictureOf(prefix() / "bin/springboard", "installation");
  EXPECT_FALSE(picture.empty());
  EXPECT_EQ(picture, pictureOf(SPRINGBOARD, "build"));
}

TEST_F(InstalledPhone, UsesNoFileOfTheBuild) {
  pictureOf(prefix() / "bin/springboard", "work");
  const fs::path work = folder.path() / "work";
  const std::string files = contentsOf(work / "files");
  EXPECT_NE(files.find("lib/brim/libsimulator.so"), std::string::npos);
  EXPECT_EQ(files.find(BUILD_FOLDER "/"), std::string::npos);
  int links = 0;
  for (const auto& entry : fs::recursive_directory_iterator(work / "root")) {
    if (!entry.is_symlink() || !fs::read_symlink(entry).is_absolute()) continue;
    const std::string target = fs::read_symlink(entry);
    EXPECT_FALSE(target.starts_with(BUILD_FOLDER "/")) << entry.path() << " to " << target;
    if (target.starts_with(prefix().string()) && fs::exists(target)) ++links;
  }
  EXPECT_GT(links, 10);
}

TEST_F(InstalledPhone, ContainsTheFilesOfTheBuild) {
  const base::Installation built = base::installation();
  for (const fs::path& part : {built.library, built.assetBundle, built.applications, built.messages,
                               built.demonstration, built.settingsPane}) {
    EXPECT_TRUE(fs::exists(part)) << part;
    EXPECT_TRUE(fs::exists(prefix() / fs::relative(part, BUILD_FOLDER))) << part;
  }
  for (const char* plugin : {"transfers.so", "vcards.so", "web_server.so", "recorder.so"})
    EXPECT_TRUE(fs::exists(prefix() / "lib/brim" / plugin)) << plugin;
  for (const char* document : {"README.md", "CHANGELOG.md", "docs/script.md", "docs/pictures/light.png"})
    EXPECT_TRUE(fs::exists(prefix() / "share/doc/brim" / document)) << document;
}

}  // namespace
