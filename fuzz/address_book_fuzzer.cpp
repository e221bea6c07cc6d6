// The input is an address book of vCards. The Messages provider searches it for a sender.
#include "fuzz/fuzzer_phone.hpp"

#include <nlohmann/json.hpp>

#include "objc/autorelease_pool.hpp"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  fuzz::startPhone();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const objc::AutoreleasePool pool;
  const std::filesystem::path book = fuzz::root() / "var/mobile/Library/AddressBook/Contacts.vcf";
  // A new file replaces the address book, because the simulator reads the address book again only if the file changed.
  fuzz::writeFile(book.native() + ".new", bytes, size);
  std::filesystem::rename(book.native() + ".new", book);
  static const auto byIdentifier = fuzz::requestWith({{"CKBBContextKeySenderPersonCentricID", "A-1"}});
  static const auto byText =
      fuzz::requestWith({{"AssistantContext", {{"msgSender", {{"displayText", "anna@example.org"}}}}}});
  for (const auto& request : {byIdentifier, byText})
    fuzz::findPicture(BrimMessagesContactPhotoProvider::classObject(), request);
  return 0;
}
