// The input is a picture file. It is decoded and shown in a banner.
#include "fuzz/fuzzer_phone.hpp"
#include "objc/autorelease_pool.hpp"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  fuzz::startPhone();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const objc::AutoreleasePool pool;
  const objc::Ref<UIImage> picture = UIImage::withData(fuzz::dataOf(bytes, size));
  if (picture != nullptr) fuzz::banner()->updateImage(picture);
  return 0;
}
