#include "objc/calling_convention.hpp"

#include <gtest/gtest.h>

#include "tests/hook_rows.hpp"

namespace {

using objc::callingConventionOf;
using objc::NarrowInteger;

TEST(CallingConvention, FindsNarrowArgumentsInTheirRegisters) {
  const objc::CallingConvention convention = callingConventionOf("v@:B@csS");
  EXPECT_EQ(convention.arguments[1], NarrowInteger::None);
  EXPECT_EQ(convention.arguments[2], NarrowInteger::UnsignedByte);
  EXPECT_EQ(convention.arguments[3], NarrowInteger::None);
  EXPECT_EQ(convention.arguments[4], NarrowInteger::SignedByte);
  EXPECT_EQ(convention.arguments[5], NarrowInteger::SignedHalf);
  EXPECT_EQ(convention.arguments[6], NarrowInteger::UnsignedHalf);
  EXPECT_TRUE(convention.hasNarrowArguments());
  EXPECT_FALSE(callingConventionOf("v@:@").hasNarrowArguments());
}

TEST(CallingConvention, FindsANarrowResult) {
  EXPECT_EQ(callingConventionOf("B@:").result, NarrowInteger::UnsignedByte);
  EXPECT_EQ(callingConventionOf("c@:").result, NarrowInteger::SignedByte);
  EXPECT_EQ(callingConventionOf("i@:").result, NarrowInteger::None);
  EXPECT_EQ(callingConventionOf("@@:B").result, NarrowInteger::None);
}

TEST(CallingConvention, SkipsQualifiersAndOffsets) {
  const objc::CallingConvention convention = callingConventionOf("Vv28@0:8r*16C24");
  EXPECT_EQ(convention.result, NarrowInteger::None);
  EXPECT_EQ(convention.arguments[3], NarrowInteger::UnsignedByte);
}

TEST(CallingConvention, BlockHasOneHiddenArgument) {
  EXPECT_EQ(callingConventionOf("v@?B").arguments[1], NarrowInteger::UnsignedByte);
}

TEST(CallingConvention, FloatingPointNumbersUseOtherRegisters) {
  EXPECT_EQ(callingConventionOf("v@:dB").arguments[2], NarrowInteger::UnsignedByte);
  EXPECT_EQ(callingConventionOf("v@:{CGRect={CGPoint=dd}{CGSize=dd}}B").arguments[2], NarrowInteger::UnsignedByte);
}

TEST(CallingConvention, SmallStructsUseOneRegisterForEachEightBytes) {
  EXPECT_EQ(callingConventionOf("v@:{_NSRange=QQ}B").arguments[4], NarrowInteger::UnsignedByte);
  EXPECT_EQ(callingConventionOf("v@:{Pair=ic}B").arguments[3], NarrowInteger::UnsignedByte);
}

TEST(CallingConvention, LargeStructsArePassedByReference) {
  EXPECT_EQ(callingConventionOf("v@:{CGAffineTransform=dddddd}B").arguments[3], NarrowInteger::UnsignedByte);
  EXPECT_EQ(callingConventionOf("v@:{Mixed=dqd}B").arguments[3], NarrowInteger::UnsignedByte);
}

TEST(CallingConvention, FindsArgumentsOnTheStack) {
  EXPECT_FALSE(callingConventionOf("v@:@@@@@@").usesStack);
  EXPECT_TRUE(callingConventionOf("v@:@@@@@@@").usesStack);
  EXPECT_FALSE(callingConventionOf("v@:@@@@@@@").packsStack);
  EXPECT_TRUE(callingConventionOf("v@:dddddddddd").usesStack);
}

TEST(CallingConvention, FindsPackedArgumentsOnTheStack) {
  for (const char* encoding : {"v@:@@@@@@B", "v@:@@@@@@i", "v@:@@@@@@@s", "v@:fffffffff"})
    EXPECT_TRUE(callingConventionOf(encoding).packsStack) << encoding;
  EXPECT_FALSE(callingConventionOf("v@:@@@@@B@d").packsStack);
}

TEST(CallingConvention, IsUnknownForAnUnknownType) {
  for (const char* encoding : {"v@:(Union=id)", "v@:b3", "v@:{Open=d", "v@:[4d]", "?"})
    EXPECT_FALSE(callingConventionOf(encoding).isKnown) << encoding;
  EXPECT_TRUE(callingConventionOf("v@:^?^{Open=d}@\"NSString\"").isKnown);
}

TEST(CallingConvention, ExtendsValuesToThirtyTwoBits) {
  EXPECT_EQ(objc::extended(0x1234567fff, NarrowInteger::UnsignedByte), 0xffU);
  EXPECT_EQ(objc::extended(0x1234567fff, NarrowInteger::SignedByte), 0xffffffffU);
  EXPECT_EQ(objc::extended(0x123456787f, NarrowInteger::SignedByte), 0x7fU);
  EXPECT_EQ(objc::extended(0x12345f8fff, NarrowInteger::UnsignedHalf), 0x8fffU);
  EXPECT_EQ(objc::extended(0x12345f8fff, NarrowInteger::SignedHalf), 0xffff8fffU);
  EXPECT_EQ(objc::extended(0x1234567fff, NarrowInteger::None), 0x34567fffU);
}

// The compiler checks the messages that the code sends and the methods and blocks that it implements; see the callers
// of isPassedAlike.
TEST(CallingConvention, IsTheSameOnThePhoneAndOnLinuxForEveryHookedAndAddedMethod) {
  for (const test::HookRow& row : test::hookRows) EXPECT_TRUE(objc::isPassedAlike(row.encoding)) << row.selector;
}

}  // namespace
