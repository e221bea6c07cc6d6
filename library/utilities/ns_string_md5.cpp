#include "library/utilities/ns_string_md5.hpp"

#include "objc/class_definition.hpp"
#include "platform/common_crypto.hpp"

namespace {

// The digits are upper case, because callers compare digests case-sensitively.
constexpr char hexadecimalDigits[] = "0123456789ABCDEF";

// Returns the digest of the string's UTF-8 bytes before the first zero byte.
NSString* MD5String(NSString* self) {
  const char* text = self->UTF8String();
  if (text == nullptr) return nullptr;
  unsigned char digest[CC_MD5_DIGEST_LENGTH];
  CC_MD5(text, static_cast<std::uint32_t>(__builtin_strlen(text)), digest);
  char written[CC_MD5_DIGEST_LENGTH * 2 + 1] = {};
  for (std::size_t index = 0; index < CC_MD5_DIGEST_LENGTH; ++index) {
    written[index * 2] = hexadecimalDigits[digest[index] >> 4];
    written[index * 2 + 1] = hexadecimalDigits[digest[index] & 0xf];
  }
  return NSString::stringWithUTF8String(written);
}

NSMutableString* randomString(Class, int length) {
  NSMutableString* text = NSMutableString::stringWithCapacity(length > 0 ? static_cast<NSUInteger>(length) : 0);
  for (int count = 0; count < length; ++count) {
    const char letter[] = {static_cast<char>('a' + arc4random_uniform(26)), 0};
    text->appendString(NSString::stringWithUTF8String(letter));
  }
  return text;
}

constexpr objc::MethodEntry methods[] = {
    objc::method<"MD5String", &MD5String>(),
    objc::classMethod<"generateRandomString:", &randomString>(),
};

}  // namespace

void registerStringUtilities() { objc::addCategory(NSString::classObject(), methods); }
