#include "simulator/foundation/digest.hpp"

#include <cstring>
#include <string>

#include "objc/autorelease_pool.hpp"
#include "objc/class_definition.hpp"
#include "platform/common_crypto.hpp"
#include "platform/ns_data.hpp"

namespace foundation {

namespace {

NSString* hexadecimalDigest(NSData* self) {
  constexpr char digits[] = "0123456789abcdef";
  const auto* const digest = static_cast<const unsigned char*>(objc::send<NSData*, "md5Digest">(self)->bytes());
  std::string text;
  for (int index = 0; index < CC_MD5_DIGEST_LENGTH; ++index) {
    text += digits[digest[index] >> 4];
    text += digits[digest[index] & 0xf];
  }
  return NSString::stringWithUTF8String(text.c_str());
}

constexpr objc::MethodEntry methods[] = {objc::method<"ic_md5", &hexadecimalDigest>()};

}  // namespace

void installDigests() { objc::addCategory(NSData::classObject(), methods); }

}  // namespace foundation

extern "C" unsigned char* CC_MD5(const void* data, std::uint32_t length, unsigned char* digest) {
  const objc::AutoreleasePool pool;
  const NSData* const computed = objc::send<NSData*, "md5Digest">(NSData::dataWithBytes(data, length));
  std::memcpy(digest, computed->bytes(), CC_MD5_DIGEST_LENGTH);
  return digest;
}
