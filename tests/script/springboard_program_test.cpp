// Tests of the springboard program as a child process: its exit status, its output and the root that it creates.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/support/temporary_folder.hpp"

namespace {

using Json = nlohmann::ordered_json;

struct Outcome {
  int status = -1;
  std::string output;
  std::string errors;
};

std::string contentsOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class SpringboardProgram : public testing::Test {
 protected:
  // Runs the program with these arguments on a new root. The program can read `script` from its standard input and from
  // the file "script" in its working folder.
  Outcome run(const std::string& arguments, const std::string& script = "") { return runIn("root", arguments, script); }

  // Passes the root's name to the shell as an environment variable, because the shell would interpret special
  // characters in a command.
  Outcome runIn(const std::string& root, const std::string& arguments, const std::string& script) {
    std::ofstream(folder.path() / "script") << script;
    setenv("ROOT", root.c_str(), 1);
    const std::string changeFolder = "cd " + folder.path().string() + " && ";
    const int status =
        std::system((changeFolder + SPRINGBOARD + " --root \"$ROOT\" <script >out 2>err " + arguments).c_str());
    return {WEXITSTATUS(status), contentsOf(folder.path() / "out"), contentsOf(folder.path() / "err")};
  }

  static std::vector<Json> answers(const std::string& output) {
    std::vector<Json> lines;
    std::istringstream stream(output);
    for (std::string line; std::getline(stream, line);) lines.push_back(Json::parse(line));
    return lines;
  }

  test::TemporaryFolder folder;
};

TEST_F(SpringboardProgram, WritesOneAnswerPerCommandAndNothingElse) {
  const Outcome outcome = run("--without-brim --script -", R"(
# comment
   
{"do":"present","section":"com.apple.MobileSMS","title":"Anna \ud83c\udf0a"}
{"do":"log"})");
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  const std::vector<Json> lines = answers(outcome.output);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0], Json({{"ok", true}, {"controller", 1}}));
}

TEST_F(SpringboardProgram, ContinuesAfterAFailedCommandAndExitsWithOne) {
  const Outcome outcome = run("--without-brim --script script", "nonsense\r\n{\"do\":\"log\"}\r\n\xff\n");
  EXPECT_EQ(outcome.status, 1);
  const std::vector<Json> lines = answers(outcome.output);
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_FALSE(lines[0].at("ok").get<bool>());
  EXPECT_TRUE(lines[1].at("ok").get<bool>());
  EXPECT_FALSE(lines[2].at("ok").get<bool>());
}

// A phone that has not used contacts, the network or recordings must not load the libraries for them.
TEST_F(SpringboardProgram, DoesNotLoadLibrariesOfUnusedFeatures) {
  const test::TemporaryFolder temporaryFolder;
  const std::string script = R"({"do":"present","section":"com.apple.mobilemail"})"
                             "\n"
                             R"({"do":"wait","seconds":1})"
                             "\n";
  std::ofstream(temporaryFolder.path() / "script") << script;
  const std::string command = "LD_DEBUG=files " SPRINGBOARD " --root " + (temporaryFolder.path() / "root").string() +
                              " --script " + (temporaryFolder.path() / "script").string() + " >/dev/null 2>" +
                              (temporaryFolder.path() / "files").string();
  ASSERT_EQ(std::system(command.c_str()), 0);
  const std::string files = contentsOf(temporaryFolder.path() / "files");
  ASSERT_NE(files.find("Brim.dylib"), std::string::npos);
  for (const char* library : {"libcurl.so", "libebook-contacts", "libmicrohttpd", "libwebp"})
    EXPECT_EQ(files.find(library), std::string::npos) << library;
}

TEST_F(SpringboardProgram, CreatesItsRootWithDefaults) {
  ASSERT_EQ(run("--without-brim --script -").status, 0);
  const auto libraries = folder.path() / "root/Library/MobileSubstrate/DynamicLibraries";
  EXPECT_NE(contentsOf(libraries / "Brim.plist").find("com.apple.springboard"), std::string::npos);
  EXPECT_TRUE(std::filesystem::is_symlink(libraries / "Brim.dylib"));
  EXPECT_TRUE(std::filesystem::is_directory(folder.path() / "root/var/mobile/Containers/Shared/AppGroup"));
}

TEST_F(SpringboardProgram, KeepsExistingFilesOfItsRoot) {
  const auto filter = folder.path() / "root/Library/MobileSubstrate/DynamicLibraries/Brim.plist";
  std::filesystem::create_directories(filter.parent_path());
  std::ofstream(filter) << "{ Filter = { Bundles = (); }; }";
  const Outcome outcome = run("--script -", R"({"do":"hooks"})");
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(contentsOf(filter), "{ Filter = { Bundles = (); }; }");
  EXPECT_EQ(answers(outcome.output).front().at("rows"), Json::array());
}

TEST_F(SpringboardProgram, CopiesTheAssetBundleButKeepsEditedEndpoints) {
  const auto bundle = folder.path() / "root/Library/Application Support/Brim/Assets.bundle";
  std::filesystem::create_directories(bundle);
  std::ofstream(bundle / "endpoints.plist") << "{}";
  ASSERT_EQ(run("--without-brim --script -").status, 0);
  EXPECT_EQ(contentsOf(bundle / "endpoints.plist"), "{}");
  EXPECT_TRUE(std::filesystem::exists(bundle / "glyphs/black/slack.png"));
  std::filesystem::remove(bundle / "endpoints.plist");
  ASSERT_EQ(run("--without-brim --script -").status, 0);
  EXPECT_NE(contentsOf(bundle / "endpoints.plist").find("slackAvatars"), std::string::npos);
  EXPECT_FALSE(std::filesystem::is_symlink(bundle / "endpoints.plist"));
}

TEST_F(SpringboardProgram, ReplacesALinkedAssetBundleWithACopy) {
  const auto bundle = folder.path() / "root/Library/Application Support/Brim/Assets.bundle";
  const auto elsewhere = folder.path() / "elsewhere";
  std::filesystem::create_directories(bundle.parent_path());
  std::filesystem::create_directories(elsewhere);
  std::filesystem::create_directory_symlink(elsewhere, bundle);
  ASSERT_EQ(run("--without-brim --script -").status, 0);
  EXPECT_FALSE(std::filesystem::is_symlink(bundle));
  EXPECT_TRUE(std::filesystem::exists(bundle / "endpoints.plist"));
  EXPECT_TRUE(std::filesystem::is_empty(elsewhere));
}

TEST_F(SpringboardProgram, AcceptsAnyNameForItsRoot) {
  for (const std::string name :
       {"My Phone", "tab\there", "back\\slash", "a=b", "# one", "x \"y\" 'z'", "\u65e5\u672c \U0001F600", "end "}) {
    const std::string script = R"({"do":"set","key":"timeToDismiss","value":7}
{"do":"settings"}
{"do":"present","section":"com.apple.MobileSMS","title":"Anna"})";
    const Outcome outcome = runIn(name, "--script -", script);
    EXPECT_EQ(outcome.status, 0) << name << ": " << outcome.errors;
    EXPECT_EQ(answers(outcome.output).at(1).at("settings").at("timeToDismiss"), 7) << name;
    EXPECT_TRUE(std::filesystem::is_directory(folder.path() / name / "var/mobile/Library/GNUstep/Defaults")) << name;
  }
}

TEST_F(SpringboardProgram, ExitsWithOneIfItsOutputCannotBeWritten) {
  const Outcome outcome = run("--without-brim --script - >/dev/full", R"({"do":"log"}
{"do":"screenshot","path":"picture.png"})");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.errors.find("cannot write to standard output"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "picture.png"));
}

// A file that the program opens must not receive the descriptor number of standard output.
TEST_F(SpringboardProgram, WritesNoAnswersIntoItsFilesIfStandardOutputIsClosed) {
  const Outcome outcome = run("--without-brim --script script <&- >&-", R"({"do":"log"})");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.errors.find("cannot write to standard output"), std::string::npos) << outcome.errors;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path() / "root")) {
    if (!entry.is_regular_file() || entry.is_symlink()) continue;
    EXPECT_EQ(contentsOf(entry.path()).find("\"ok\""), std::string::npos) << entry.path();
  }
}

TEST_F(SpringboardProgram, ExitsWithOneIfStandardInputCannotBeRead) {
  for (const char* input : {"<&-", "<."}) {
    const Outcome outcome = run(std::string("--without-brim --script - ") + input);
    EXPECT_EQ(outcome.status, 1) << input;
    EXPECT_NE(outcome.errors.find("cannot read the script"), std::string::npos) << input << outcome.errors;
  }
}

TEST_F(SpringboardProgram, ExitsWithOneIfItCannotOpenEnoughFiles) {
  const std::string command = "cd " + folder.path().string() +
                              " && ulimit -n 12 && " SPRINGBOARD " --without-brim --root root --script /dev/null 2>err";
  EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 1);
  EXPECT_NE(contentsOf(folder.path() / "err").find("ulimit -n"), std::string::npos);
}

TEST_F(SpringboardProgram, ErrorNamesTheRootThatCannotBeUsed) {
  std::filesystem::create_directory(folder.path() / "root");
  std::ofstream(folder.path() / "root/var") << "a file";
  const Outcome outcome = run("--without-brim --script -");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_NE(outcome.errors.find("the folder root cannot be used as the root"), std::string::npos) << outcome.errors;
  EXPECT_NE(outcome.errors.find("--root"), std::string::npos) << outcome.errors;
  EXPECT_NE(outcome.errors.find((folder.path() / "root/var").string()), std::string::npos) << outcome.errors;
}

TEST_F(SpringboardProgram, HelpThatCannotBePrintedExitsWithOne) {
  for (const char* option : {"--help", "--version"}) {
    const Outcome outcome = run(std::string(option) + " >/dev/full");
    EXPECT_EQ(outcome.status, 1) << option;
    EXPECT_NE(outcome.errors.find("cannot write to standard output"), std::string::npos) << outcome.errors;
  }
}

TEST_F(SpringboardProgram, HelpExitsWithZero) {
  const Outcome outcome = run("--help");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.output.find("--without-brim"), std::string::npos);
  EXPECT_NE(outcome.output.find("screenshot path [scale] [crop]"), std::string::npos);
}

TEST_F(SpringboardProgram, ExitsWithTwoOnAnInvalidOption) {
  const Outcome outcome = run("--device iphone-5");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_TRUE(outcome.output.empty());
  EXPECT_NE(outcome.errors.find("iphone-se"), std::string::npos);
}

TEST_F(SpringboardProgram, NamesTheMissingScriptOption) {
  const Outcome outcome = run("--without-brim");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_NE(outcome.errors.find("--script"), std::string::npos);
}

TEST_F(SpringboardProgram, ExitsWithTwoIfTheScriptCannotBeRead) {
  EXPECT_EQ(run("--without-brim --script nowhere").status, 2);
  EXPECT_EQ(run("--without-brim --script .").status, 2);
  EXPECT_EQ(run("--without-brim --script " + std::string(5000, 'x')).status, 2);
}

TEST_F(SpringboardProgram, ExitsWithTwoIfTheRootCannotBeCreated) {
  std::ofstream(folder.path() / "root") << "a file";
  const Outcome outcome = run("--without-brim --script -");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_NE(outcome.errors.find("root"), std::string::npos);
}

TEST_F(SpringboardProgram, DemonstrationWritesPicturesAndPrintsTheirPaths) {
  const Outcome outcome = run("--without-brim --demonstration pictures");
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  std::istringstream stream(outcome.output);
  int count = 0;
  for (std::string path; std::getline(stream, path); ++count)
    EXPECT_TRUE(std::filesystem::exists(folder.path() / path)) << path;
  EXPECT_EQ(count, 28);
}

}  // namespace
