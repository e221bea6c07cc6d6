// The input is the metadata file of an application's container. FolderFinder reads it.
#include "fuzz/fuzzer_phone.hpp"
#include "library/photos/folder_finder.hpp"
#include "objc/autorelease_pool.hpp"
#include "tests/photos/application_data.hpp"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  fuzz::startPhone();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const objc::AutoreleasePool pool;
  static const std::filesystem::path containers = fuzz::root() / "containers";
  static NSString* const folder =
      objc::retain(NSString::stringWithUTF8String((containers.string() + "/").c_str())).leak();
  fuzz::writeFile(containers / "A" / test::metadataName, bytes, size);
  FolderFinder::findFolder("group.org.example.shared"_ns, folder);
  return 0;
}
