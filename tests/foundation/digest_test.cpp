#include <string>

#include "platform/common_crypto.hpp"
#include "platform/ns_data.hpp"
#include "tests/objc/runtime_environment.hpp"

namespace {

using Digest = RuntimeTest;

std::string hexadecimal(const unsigned char* digest) {
  std::string text;
  for (int index = 0; index < CC_MD5_DIGEST_LENGTH; ++index) {
    constexpr char digits[] = "0123456789abcdef";
    text += digits[digest[index] >> 4];
    text += digits[digest[index] & 0xf];
  }
  return text;
}

TEST_F(Digest, Md5OfDataIsLowercaseHexadecimal) {
  EXPECT_STREQ(NSData::dataWithBytes("abc", 3)->md5()->UTF8String(), "900150983cd24fb0d6963f7d28e17f72");
  EXPECT_STREQ(NSData::dataWithBytes(nullptr, 0)->md5()->UTF8String(), "d41d8cd98f00b204e9800998ecf8427e");
}

TEST_F(Digest, Md5OfBytesIsWrittenAndReturned) {
  unsigned char digest[CC_MD5_DIGEST_LENGTH] = {};
  EXPECT_EQ(CC_MD5("abc", 3, digest), digest);
  EXPECT_EQ(hexadecimal(digest), "900150983cd24fb0d6963f7d28e17f72");
  const std::string million(1'000'000, 'a');
  CC_MD5(million.data(), static_cast<std::uint32_t>(million.size()), digest);
  EXPECT_EQ(hexadecimal(digest), "7707d6ae4e027c70eea2a935c2296f21");
}

TEST_F(Digest, RandomNumbersStayBelowTheirBound) {
  bool seen[26] = {};
  for (int draw = 0; draw < 5000; ++draw) {
    const std::uint32_t number = arc4random_uniform(26);
    ASSERT_LT(number, 26U);
    seen[number] = true;
  }
  for (const bool letter : seen) EXPECT_TRUE(letter);
}

}  // namespace
