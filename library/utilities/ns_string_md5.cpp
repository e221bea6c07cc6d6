#include "library/utilities/ns_string_md5.hpp"

#include "objc/class_definition.hpp"
#include "platform/common_crypto.hpp"

namespace {

// Callers compare digests case-sensitively.
constexpr char upperCaseDigits[] = "0123456789ABCDEF";
constexpr char lowerCaseDigits[] = "0123456789abcdef";

NSString* digestOf(const void* bytes, NSUInteger length, const char* hexadecimalDigits) {
  unsigned char digest[CC_MD5_DIGEST_LENGTH];
  CC_MD5(bytes, static_cast<std::uint32_t>(length), digest);
  char written[CC_MD5_DIGEST_LENGTH * 2 + 1] = {};
  for (std::size_t index = 0; index < CC_MD5_DIGEST_LENGTH; ++index) {
    written[index * 2] = hexadecimalDigits[digest[index] >> 4];
    written[index * 2 + 1] = hexadecimalDigits[digest[index] & 0xf];
  }
  return NSString::stringWithUTF8String(written);
}

// Returns the digest of the string's UTF-8 bytes before the first zero byte.
NSString* MD5String(NSString* self) {
  const char* text = self->UTF8String();
  return text == nullptr ? nullptr : digestOf(text, __builtin_strlen(text), upperCaseDigits);
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

NSString* md5Of(NSData* data) {
  if (data == nullptr || respondsTo<"ic_md5">(data)) return data->md5();
  return digestOf(data->bytes(), data->length(), lowerCaseDigits);
}

void registerStringUtilities() { objc::addCategory(NSString::classObject(), methods); }
