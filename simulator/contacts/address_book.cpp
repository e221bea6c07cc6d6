#include "simulator/contacts/address_book.hpp"

#include <sys/stat.h>

#include <utility>

#include "simulator/base/file_contents.hpp"
#include "simulator/contacts/cards.hpp"
#include "simulator/contacts/vcard_plugin.hpp"
#include "simulator/foundation/plugin.hpp"
#include "simulator/foundation/root.hpp"

namespace contacts {

namespace {

namespace fs = std::filesystem;

constexpr const char* pathOfRootsOwn = "/var/mobile/Library/AddressBook/Contacts.vcf";
constexpr std::size_t maxFile = 256 << 20;

// Tells one state of a file from another.
struct Stamp {
  dev_t device = 0;
  ino_t file = 0;
  off_t size = 0;
  timespec changed = {};

  bool operator==(const Stamp& other) const {
    return device == other.device && file == other.file && size == other.size &&
           changed.tv_sec == other.changed.tv_sec && changed.tv_nsec == other.changed.tv_nsec;
  }
};

// Nothing where there is no such file.
std::optional<Stamp> stampOf(const fs::path& file) {
  struct stat status = {};
  if (stat(file.c_str(), &status) != 0) return std::nullopt;
  return Stamp{status.st_dev, status.st_ino, status.st_size, status.st_mtim};
}

struct AddressBook {
  fs::path file;
  std::optional<Stamp> stamp;
  std::shared_ptr<const People> people;
};

AddressBook& current() {
  static auto& book = *new AddressBook;
  return book;
}

std::shared_ptr<const People> read(const fs::path& file) {
  const std::optional<std::string> text = base::readRegularFile(file, maxFile);
  static const auto readCard =
      reinterpret_cast<decltype(&brim_read_card)>(foundation::pluginFunction("vcards.so", "brim_read_card"));
  if (!text || readCard == nullptr) return nullptr;
  auto read = std::make_shared<People>();
  for (const std::string& card : cardsIn(*text)) readCard(card, read->emplace_back());
  return read;
}

fs::path chosenFile() {
  const fs::path& file = current().file;
  return file.empty() ? fs::path(foundation::pathUnderRoot(pathOfRootsOwn)) : file;
}

}  // namespace

std::shared_ptr<const People> people() {
  AddressBook& book = current();
  const fs::path file = chosenFile();
  const std::optional<Stamp> stamp = stampOf(file);
  if (book.people != nullptr && book.stamp == stamp) return book.people;
  book.stamp = stamp;
  book.people = stamp ? read(file) : std::make_shared<const People>();
  return book.people;
}

std::optional<std::string> useAddressBook(const fs::path& file) {
  std::error_code error;
  if (!fs::exists(file, error)) return "there is no file " + file.string();
  AddressBook wanted = {fs::absolute(file), stampOf(file), read(file)};
  if (wanted.people == nullptr) return file.string() + " cannot be read as a file of at most 256 MiB";
  if (wanted.people->empty())
    return file.string() + " holds no vCard, which begins with BEGIN:VCARD and ends with END:VCARD";
  current() = std::move(wanted);
  return std::nullopt;
}

}  // namespace contacts
