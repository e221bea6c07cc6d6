// An address book in vCards, searched for a sender.
#include "fuzz/phone.hpp"
#include "objc/autorelease_pool.hpp"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  fuzz::startPhone();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const objc::AutoreleasePool pool;
  const std::filesystem::path book = fuzz::root() / "var/mobile/Library/AddressBook/Contacts.vcf";
  // Another file under the same name, lest the book be taken for the one that was read.
  fuzz::writeFile(book.native() + ".new", bytes, size);
  std::filesystem::rename(book.native() + ".new", book);
  static const auto byIdentifier = fuzz::requestWith({{"CKBBContextKeySenderPersonCentricID", "A-1"}});
  static const auto byText =
      fuzz::requestWith({{"AssistantContext", {{"msgSender", {{"displayText", "anna@example.org"}}}}}});
  for (const auto& request : {byIdentifier, byText})
    fuzz::findPicture(BrimMessagesContactPhotoProvider::classObject(), request);
  return 0;
}
