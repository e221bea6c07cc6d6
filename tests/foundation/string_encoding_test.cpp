#include <string>

#include "platform/ns_data.hpp"
#include "tests/objc/runtime_environment.hpp"

namespace {

using StringEncoding = RuntimeTest;

TEST_F(StringEncoding, UnicodeDataContainsTheWholeString) {
  for (const char* text : {"", "abc", "\U0001F30A", "by the river \U0001F30A", "a\U0001F30Ab"}) {
    NSData* data = NSString::stringWithUTF8String(text)->dataUsingEncoding(NSStringEncoding::Unicode);
    EXPECT_STREQ(NSString::decoded(data, NSStringEncoding::Unicode)->UTF8String(), text);
  }
}

TEST_F(StringEncoding, UnicodeDataBeginsWithTheByteOrderMark) {
  NSData* data = NSString::stringWithUTF8String("a")->dataUsingEncoding(NSStringEncoding::Unicode);
  EXPECT_EQ(std::string(static_cast<const char*>(data->bytes()), data->length()), std::string("\xff\xfe"
                                                                                              "a\0",
                                                                                              4));
}

TEST_F(StringEncoding, OtherEncodingsAreHandledByFoundation) {
  NSData* data = NSString::stringWithUTF8String("ä")->dataUsingEncoding(NSStringEncoding::UTF8);
  EXPECT_EQ(data->length(), 2U);
}

}  // namespace
