// Tests of comparing strings that contain long sequences of combining marks. Without the limits under test, each of
// these calls overflows the stack.
#include <string>

#include "platform/ns_dictionary.hpp"
#include "platform/ns_string.hpp"
#include "tests/objc/runtime_environment.hpp"

namespace {

using StringComparison = RuntimeTest;

constexpr std::size_t markCount = 300'000;

std::string withMarks(const std::string& end = "") {
  std::string text = "a";
  for (std::size_t count = 0; count < markCount; ++count) text += "\u0301";
  return text + end;
}

NSString* string(const std::string& text) { return NSString::stringWithUTF8String(text.c_str()); }

NSString* mutableCopy(NSString* original) {
  return objc::send<NSString*, "stringWithString:">(objc::lookUpClass<"NSMutableString">(), original);
}

TEST_F(StringComparison, DecomposedTextIsFoundInShortStrings) {
  EXPECT_TRUE(string("un caf\u00e9")->contains(string("e\u0301")));
}

TEST_F(StringComparison, FindsTextInLongStrings) {
  NSString* const text = string(withMarks("wanted"));
  EXPECT_EQ(text->rangeOfString(string("wanted")).location, markCount + 1);
  EXPECT_FALSE(text->contains(string("missing")));
  EXPECT_FALSE(string("short")->contains(text));
  EXPECT_FALSE(mutableCopy(text)->contains(string("missing")));
  EXPECT_TRUE((objc::send<bool, "hasSuffix:">(text, string("wanted"))));
  EXPECT_EQ(text->componentsSeparatedByString(string("want"))->count(), 2U);
}

TEST_F(StringComparison, ReplacesTextInLongStrings) {
  NSString* const text = string(withMarks("\n"));
  NSString* const replaced =
      objc::send<NSString*, "stringByReplacingOccurrencesOfString:withString:">(text, string("\n"), string(" end"));
  EXPECT_EQ(replaced->length(), markCount + 5);
}

TEST_F(StringComparison, ComparesLongStrings) {
  NSString* const text = string(withMarks());
  for (NSString* equal : {string(withMarks()), mutableCopy(text)}) {
    EXPECT_TRUE(text->isEqual(equal));
    EXPECT_TRUE(equal->isEqual(text));
    EXPECT_EQ((objc::send<NSInteger, "compare:">(text, equal)), 0);
  }
  NSString* const other = string(withMarks("x"));
  EXPECT_FALSE(text->isEqual(other));
  EXPECT_FALSE(mutableCopy(text)->isEqual(other));
  EXPECT_FALSE(string("short")->isEqual(other));
  EXPECT_FALSE(other->isEqual(string("short")));
  EXPECT_NE((objc::send<NSInteger, "compare:">(text, other)), 0);
  EXPECT_NE((objc::send<NSInteger, "compare:">(other, string("short"))), 0);
}

TEST_F(StringComparison, LongStringsAreKeysOfDictionaries) {
  auto* const dictionary = objc::send<NSDictionary*, "dictionaryWithObject:forKey:">(
      objc::lookUpClass<"NSMutableDictionary">(), string("value"), string(withMarks()));
  EXPECT_NE(dictionary->objectForKey(string(withMarks())), nullptr);
  EXPECT_EQ(dictionary->objectForKey(string(withMarks("x"))), nullptr);
}

}  // namespace
