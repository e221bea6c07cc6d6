// Tests of type encodings, which objc/encoding.hpp computes from C++ signatures at compile time. Static assertions
// check the encodings; the tests check the comparison of two encodings.
#include "objc/encoding.hpp"

#include <gtest/gtest.h>

#include "objc/block.hpp"
#include "objc/encoding_check.hpp"
#include "objc/implementation.hpp"
#include "platform/core_graphics.hpp"
#include "platform/ns_string.hpp"

namespace {

using objc::FixedString;
using objc::MethodEncoding;
using objc::TypeEncoding;

static_assert(TypeEncoding<void>::value == FixedString("v"));
static_assert(TypeEncoding<bool>::value == FixedString("B"));
static_assert(TypeEncoding<char>::value == FixedString("c"));
static_assert(TypeEncoding<unsigned char>::value == FixedString("C"));
static_assert(TypeEncoding<short>::value == FixedString("s"));
static_assert(TypeEncoding<int>::value == FixedString("i"));
static_assert(TypeEncoding<unsigned int>::value == FixedString("I"));
static_assert(TypeEncoding<NSInteger>::value == FixedString("q"));
static_assert(TypeEncoding<NSUInteger>::value == FixedString("Q"));
static_assert(TypeEncoding<float>::value == FixedString("f"));
static_assert(TypeEncoding<double>::value == FixedString("d"));
static_assert(TypeEncoding<const char*>::value == FixedString("*"));
static_assert(TypeEncoding<void*>::value == FixedString("^v"));
static_assert(TypeEncoding<const void*>::value == FixedString("^v"));
static_assert(TypeEncoding<bool*>::value == FixedString("^B"));
static_assert(TypeEncoding<NSInteger*>::value == FixedString("^q"));
static_assert(TypeEncoding<id>::value == FixedString("@"));
static_assert(TypeEncoding<id*>::value == FixedString("^@"));
static_assert(TypeEncoding<NSString*>::value == FixedString("@"));
static_assert(TypeEncoding<const NSString*>::value == FixedString("@"));
static_assert(TypeEncoding<Class>::value == FixedString("#"));
static_assert(TypeEncoding<SEL>::value == FixedString(":"));
static_assert(TypeEncoding<objc::Block<void(bool)>*>::value == FixedString("@?"));
static_assert(TypeEncoding<NSStringEncoding>::value == FixedString("Q"));
static_assert(TypeEncoding<NSComparisonResult>::value == FixedString("q"));

static_assert(TypeEncoding<NSRange>::value == FixedString("{_NSRange=QQ}"));
static_assert(TypeEncoding<CGPoint>::value == FixedString("{CGPoint=dd}"));
static_assert(TypeEncoding<CGSize>::value == FixedString("{CGSize=dd}"));
static_assert(TypeEncoding<CGRect>::value == FixedString("{CGRect={CGPoint=dd}{CGSize=dd}}"));

static_assert(MethodEncoding<void>::value == FixedString("v@:"));
static_assert(MethodEncoding<bool>::value == FixedString("B@:"));
static_assert(MethodEncoding<void, NSString*, bool>::value == FixedString("v@:@B"));
static_assert(MethodEncoding<void, double, NSString*, bool, objc::Block<void(bool)>*>::value ==
              FixedString("v@:d@B@?"));
static_assert(MethodEncoding<NSString*, const NSInteger>::value == FixedString("@@:q"));

void takesRectangle(NSObject*, CGRect) {}
static_assert(objc::MethodOf<&takesRectangle>::encoding == FixedString("v@:{CGRect={CGPoint=dd}{CGSize=dd}}"));
static_assert(objc::MethodOf<&takesRectangle>::argumentCount == 1);

static_assert(objc::setterName<"hasDismissed">() == FixedString("setHasDismissed:"));
static_assert(objc::setterName<"URL">() == FixedString("setURL:"));
static_assert(FixedString("a:b:").count(':') == 2);
static_assert(FixedString("").count(':') == 0);
static_assert(!(FixedString("ab") == FixedString("abc")));

using objc::detail::sameCallingConvention;

TEST(EncodingCheck, ComparesArgumentRegistersAndIgnoresOffsets) {
  EXPECT_TRUE(sameCallingConvention("v@:@B", "v32@0:8@16c24"));
  EXPECT_TRUE(sameCallingConvention("@@:^@", "@24@0:8r^{_NSZone=^qQ}16"));
  EXPECT_FALSE(sameCallingConvention("v@:d", "v@:q"));
  EXPECT_FALSE(sameCallingConvention("v@:", "v@:@"));
  EXPECT_FALSE(sameCallingConvention("v@:{CGSize=dd}", "v@:d"));
}

TEST(EncodingCheck, AcceptsANarrowerIntegerForAnArgumentOnly) {
  EXPECT_TRUE(sameCallingConvention("@@:@Q", "@@:@I"));
  EXPECT_FALSE(sameCallingConvention("@@:@I", "@@:@Q"));
  EXPECT_FALSE(sameCallingConvention("Q@:", "I@:"));
}

}  // namespace
