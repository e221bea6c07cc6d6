// The input is the web page of an account. The Twitter provider searches it for the address of the picture.
#include "fuzz/fuzzer_phone.hpp"

#include <nlohmann/json.hpp>

#include "objc/autorelease_pool.hpp"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  fuzz::startPhone();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const objc::AutoreleasePool pool;
  fuzz::setPageResponse(fuzz::dataOf(bytes, size));
  fuzz::findPicture(BrimTwitterContactPhotoProvider::classObject(), fuzz::requestWith({{"D", "a"}}));
  return 0;
}
