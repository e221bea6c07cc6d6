#include "library/photos/folder_finder.hpp"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <iterator>

#include "tests/library/phone.hpp"
#include "tests/photos/application_data.hpp"

namespace {

namespace fs = std::filesystem;
using test::makeContainer;
using test::metadata;
using test::metadataName;
using test::Phone;
using test::writeFile;

constexpr const char* group = "group.org.example.shared";

std::string textOf(NSString* string) { return string == nullptr ? "(nil)" : string->UTF8String(); }
NSString* text(const std::string& value) { return NSString::stringWithUTF8String(value.c_str()); }

std::string found(const std::string& identifier) { return textOf(FolderFinder::findSharedFolder(text(identifier))); }

enum class Encoding { Ascii, Utf16 };

// Returns a string object of a binary property list: its type, its length and its characters.
std::string binaryString(const std::string& text, Encoding encoding) {
  std::string object = {encoding == Encoding::Ascii ? '\x5f' : '\x6f', '\x10', static_cast<char>(text.size())};
  for (const char letter : text) {
    if (encoding == Encoding::Utf16) object += '\0';
    object += letter;
  }
  return object;
}

// Returns metadata in the binary format that phones use.
std::string binaryMetadata(const std::string& identifier, Encoding encoding) {
  const std::string key = binaryString("MCMMetadataIdentifier", Encoding::Ascii);
  std::string list = "bplist00\xd1\x01\x02" + key;
  const auto value = static_cast<char>(list.size());
  list += binaryString(identifier, encoding);
  const auto offsetTable = static_cast<char>(list.size());
  list += {'\x08', '\x0b', value};
  list += std::string(6, '\0') + "\x01\x01" + std::string(7, '\0') + '\x03' + std::string(8, '\0');
  return list + std::string(7, '\0') + offsetTable;
}

struct FolderFinderTest : testing::Test {
  Phone phone;
  fs::path containers = test::sharedContainers(phone.root());
};

TEST_F(FolderFinderTest, FindsEachKindOfContainerInItsFolder) {
  makeContainer(containers, "A1", group);
  makeContainer(test::dataContainers(phone.root()), "D1", "org.example.application");
  EXPECT_EQ(found(group), "/var/mobile/Containers/Shared/AppGroup/A1");
  EXPECT_EQ(textOf(FolderFinder::findPrivateSharedFolder(text(group))),
            "/private/var/mobile/Containers/Shared/AppGroup/A1");
  EXPECT_EQ(textOf(FolderFinder::findDataFolder("org.example.application"_ns)),
            "/var/mobile/Containers/Data/Application/D1");
  EXPECT_EQ(textOf(FolderFinder::findDataFolder(text(group))), "(nil)");
}

TEST_F(FolderFinderTest, SearchesTheFolderItIsGiven) {
  makeContainer(phone.root() / "elsewhere", "E1", group);
  const std::string root = (phone.root() / "elsewhere").string() + "/";
  EXPECT_EQ(textOf(FolderFinder::findFolder(text(group), text(root))), root + "E1");
}

TEST_F(FolderFinderTest, IgnoresCase) {
  makeContainer(containers, "A1", "GROUP.org.Example.shared");
  EXPECT_EQ(found("group.ORG.example.SHARED"), "/var/mobile/Containers/Shared/AppGroup/A1");
}

TEST_F(FolderFinderTest, FindsIdentifiersInBinaryMetadata) {
  for (const Encoding encoding : {Encoding::Ascii, Encoding::Utf16}) {
    writeFile(containers / "A1" / metadataName, binaryMetadata("GROUP.org.example.other", encoding));
    EXPECT_EQ(found(group), "(nil)");
    writeFile(containers / "A1" / metadataName, binaryMetadata("GROUP.org.example.shared", encoding));
    EXPECT_EQ(found(group), "/var/mobile/Containers/Shared/AppGroup/A1");
  }
}

TEST_F(FolderFinderTest, ComparesWholeIdentifiers) {
  makeContainer(containers, "A1", "group.org.example.shared.more");
  EXPECT_EQ(found(group), "(nil)");
}

TEST_F(FolderFinderTest, ReturnsTheFirstListedContainerIfIdentifiersAreEqual) {
  for (const char* name : {"A1", "B2", "C3", "D4"}) makeContainer(containers, name, group);
  const std::string first = fs::directory_iterator(containers)->path().filename();
  EXPECT_EQ(found(group), "/var/mobile/Containers/Shared/AppGroup/" + first);
}

TEST_F(FolderFinderTest, FindsNothingInAMissingFolder) {
  EXPECT_EQ(textOf(FolderFinder::findFolder(text(group), "/nowhere/at/all/"_ns)), "(nil)");
  fs::remove_all(containers);
  EXPECT_EQ(found(group), "(nil)");
}

TEST_F(FolderFinderTest, MetadataFileNameCanContainMoreText) {
  writeFile(containers / "A1" / (std::string("before") + metadataName + "after"), metadata(group));
  EXPECT_EQ(found(group), "/var/mobile/Containers/Shared/AppGroup/A1");
}

TEST_F(FolderFinderTest, ReadsEveryMetadataFileOfAContainer) {
  writeFile(containers / "A1" / metadataName, metadata("another"));
  writeFile(containers / "A1" / (std::string(metadataName) + ".old"), metadata(group));
  EXPECT_EQ(found(group), "/var/mobile/Containers/Shared/AppGroup/A1");
}

TEST_F(FolderFinderTest, NilMatchesNothing) {
  makeContainer(containers, "A1", "(null)");
  EXPECT_EQ(FolderFinder::findSharedFolder(nullptr), nullptr);
  EXPECT_EQ(FolderFinder::findFolder(text(group), nullptr), nullptr);
}

TEST_F(FolderFinderTest, EveryCallSearchesAgain) {
  EXPECT_EQ(found(group), "(nil)");
  makeContainer(containers, "A1", group);
  EXPECT_EQ(found(group), "/var/mobile/Containers/Shared/AppGroup/A1");
  fs::remove_all(containers / "A1");
  EXPECT_EQ(found(group), "(nil)");
}

// The maximum resident memory of the process, in kilobytes.
long peakMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

// A container with invalid metadata. The search must skip it and still find a valid container.
struct InvalidContainer {
  const char* name;
  void (*make)(const fs::path& metadataFile);
};

constexpr std::uintmax_t hundredMegabytes = 100'000'000;

const InvalidContainer invalidContainers[] = {
    {"folder", [](const fs::path& file) { fs::create_directories(file / "inside"); }},
    {"symbolic link to itself", [](const fs::path& file) { fs::create_symlink(file, file); }},
    {"dangling symbolic link", [](const fs::path& file) { fs::create_symlink("/nowhere", file); }},
    {"pipe", [](const fs::path& file) { mkfifo(file.c_str(), 0600); }},
    {"link to a pipe",
     [](const fs::path& file) {
       mkfifo((file.parent_path() / "pipe").c_str(), 0600);
       fs::create_symlink("pipe", file);
     }},
    {"link to a folder", [](const fs::path& file) { fs::create_symlink("/", file); }},
    {"link to an endless device", [](const fs::path& file) { fs::create_symlink("/dev/zero", file); }},
    {"socket", [](const fs::path& file) { mknod(file.c_str(), S_IFSOCK | 0600, 0); }},
    {"empty", [](const fs::path& file) { writeFile(file, ""); }},
    {"truncated",
     [](const fs::path& file) {
       const std::string whole = metadata(group);
       writeFile(file, whole.substr(0, whole.size() - 20));
     }},
    {"not a property list", [](const fs::path& file) { writeFile(file, std::string("\x00\x01\xff\xfe", 4)); }},
    {"damaged binary property list",
     [](const fs::path& file) { writeFile(file, "bplist00" + std::string(64, '\xff')); }},
    {"array", [](const fs::path& file) { writeFile(file, "(group.org.example.shared)"); }},
    {"without identifier", [](const fs::path& file) { writeFile(file, "{ a = b; }"); }},
    {"identifier of another type", [](const fs::path& file) { writeFile(file, "{ MCMMetadataIdentifier = (a); }"); }},
    {"a hundred megabytes",
     [](const fs::path& file) {
       writeFile(file, metadata(group));
       fs::resize_file(file, hundredMegabytes);
     }},
};

TEST_F(FolderFinderTest, InvalidMetadataDoesNotMatchAndDoesNotEndTheSearch) {
  for (const InvalidContainer& invalid : invalidContainers) {
    SCOPED_TRACE(invalid.name);
    fs::create_directories(containers / "invalid");
    invalid.make(containers / "invalid" / metadataName);
    EXPECT_EQ(found(group), "(nil)");
    makeContainer(containers, "valid", group);
    EXPECT_EQ(found(group), "/var/mobile/Containers/Shared/AppGroup/valid");
    fs::remove_all(containers / "invalid");
    fs::remove_all(containers / "valid");
  }
}

TEST_F(FolderFinderTest, MetadataOfAHundredMegabytesIsNotRead) {
  fs::create_directories(containers / "invalid");
  invalidContainers[std::size(invalidContainers) - 1].make(containers / "invalid" / metadataName);
  const long before = peakMemory();
  EXPECT_EQ(found(group), "(nil)");
  EXPECT_LT(peakMemory() - before, 10'000) << "kilobytes of additional memory";
}

TEST_F(FolderFinderTest, MaxMetadataSizeIsOneMebibyte) {
  constexpr std::size_t maxSize = 1 << 20;
  std::string text = metadata(group);
  text.resize(maxSize, ' ');
  writeFile(containers / "A1" / metadataName, text);
  EXPECT_EQ(found(group), "/var/mobile/Containers/Shared/AppGroup/A1");
  writeFile(containers / "A1" / metadataName, text + " ");
  EXPECT_EQ(found(group), "(nil)");
}

std::ptrdiff_t openFiles() { return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()); }

TEST_F(FolderFinderTest, LeavesNoFileOpen) {
  makeContainer(containers, "valid", group);
  for (const InvalidContainer& invalid : invalidContainers) {
    fs::create_directories(containers / invalid.name);
    invalid.make(containers / invalid.name / metadataName);
  }
  const std::ptrdiff_t before = openFiles();
  EXPECT_EQ(found("unknown"), "(nil)");
  EXPECT_EQ(found(group), "/var/mobile/Containers/Shared/AppGroup/valid");
  EXPECT_EQ(openFiles(), before);
}

TEST_F(FolderFinderTest, UnreadableMetadataDoesNotMatch) {
  makeContainer(containers, "A1", group);
  fs::permissions(containers / "A1" / metadataName, fs::perms::none);
  // A privileged user can read the file regardless of its permissions.
  const bool isReadable = access((containers / "A1" / metadataName).c_str(), R_OK) == 0;
  EXPECT_EQ(found(group), isReadable ? "/var/mobile/Containers/Shared/AppGroup/A1" : "(nil)");
}

TEST_F(FolderFinderTest, LinkToMetadataIsFollowed) {
  writeFile(phone.root() / "target.plist", metadata(group));
  fs::create_directories(containers / "A1");
  fs::create_symlink(phone.root() / "target.plist", containers / "A1" / metadataName);
  EXPECT_EQ(found(group), "/var/mobile/Containers/Shared/AppGroup/A1");
}

TEST_F(FolderFinderTest, FileAmongTheContainersIsIgnored) {
  writeFile(containers / "file", metadata(group));
  EXPECT_EQ(found(group), "(nil)");
}

TEST_F(FolderFinderTest, ContainerNameCanHaveAnyCharacters) {
  makeContainer(containers, "a b 🙂 %@ \\ '\"", group);
  EXPECT_EQ(found(group), "/var/mobile/Containers/Shared/AppGroup/a b 🙂 %@ \\ '\"");
}

}  // namespace
