#include "simulator/contacts/address_book.hpp"

#include <sys/stat.h>

#include <utility>

#include "simulator/base/file_contents.hpp"
#include "simulator/contacts/vcard_plugin.hpp"
#include "simulator/contacts/vcard_splitting.hpp"
#include "simulator/foundation/plugin.hpp"
#include "simulator/foundation/root.hpp"

namespace contacts {

namespace {

namespace fs = std::filesystem;

constexpr const char* defaultPath = "/var/mobile/Library/AddressBook/Contacts.vcf";
constexpr std::size_t maxFileBytes = 256 << 20;

// Identifies one version of a file. A different value means that the file has changed.
struct FileVersion {
  dev_t device = 0;
  ino_t inode = 0;
  off_t size = 0;
  timespec modified = {};

  bool operator==(const FileVersion& other) const {
    return device == other.device && inode == other.inode && size == other.size &&
           modified.tv_sec == other.modified.tv_sec && modified.tv_nsec == other.modified.tv_nsec;
  }
};

// Returns nothing if the file does not exist.
std::optional<FileVersion> versionOf(const fs::path& file) {
  struct stat status = {};
  if (stat(file.c_str(), &status) != 0) return std::nullopt;
  return FileVersion{status.st_dev, status.st_ino, status.st_size, status.st_mtim};
}

struct AddressBook {
  fs::path file;
  std::optional<FileVersion> version;
  std::shared_ptr<const People> people;
};

AddressBook& addressBook() {
  static auto& book = *new AddressBook;
  return book;
}

// Returns null if the file cannot be read or the vCard plugin cannot be loaded.
std::shared_ptr<const People> readPeople(const fs::path& file) {
  const std::optional<std::string> text = base::readRegularFile(file, maxFileBytes);
  static const auto readCard =
      reinterpret_cast<decltype(&brim_read_card)>(foundation::pluginFunction("vcards.so", "brim_read_card"));
  if (!text || readCard == nullptr) return nullptr;
  auto people = std::make_shared<People>();
  for (const std::string& card : splitCards(*text)) readCard(card, people->emplace_back());
  return people;
}

fs::path currentFile() {
  const fs::path& file = addressBook().file;
  return file.empty() ? fs::path(foundation::pathUnderRoot(defaultPath)) : file;
}

}  // namespace

std::shared_ptr<const People> people() {
  AddressBook& book = addressBook();
  const fs::path file = currentFile();
  const std::optional<FileVersion> version = versionOf(file);
  if (book.people != nullptr && book.version == version) return book.people;
  book.version = version;
  book.people = version ? readPeople(file) : std::make_shared<const People>();
  return book.people;
}

std::optional<std::string> useAddressBook(const fs::path& file) {
  std::error_code error;
  if (!fs::exists(file, error)) return file.string() + " does not exist";
  AddressBook chosen = {fs::absolute(file), versionOf(file), readPeople(file)};
  if (chosen.people == nullptr) return file.string() + " cannot be read; it must be a file of at most 256 MiB";
  if (chosen.people->empty())
    return file.string() + " contains no vCard; a vCard begins with BEGIN:VCARD and ends with END:VCARD";
  addressBook() = std::move(chosen);
  return std::nullopt;
}

}  // namespace contacts
