// The page of an account, in which the address of its picture is looked for.
#include "fuzz/phone.hpp"
#include "objc/autorelease_pool.hpp"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  fuzz::startPhone();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const objc::AutoreleasePool pool;
  fuzz::answerPageWith(fuzz::dataOf(bytes, size));
  fuzz::findPicture(BrimTwitterContactPhotoProvider::classObject(), fuzz::requestWith({{"D", "a"}}));
  return 0;
}
