#include "objc/send.hpp"

#include "platform/core_graphics.hpp"
#include "platform/ns_array.hpp"
#include "platform/ns_number.hpp"
#include "platform/ns_string.hpp"
#include "tests/objc/counted.hpp"
#include "tests/objc/runtime_environment.hpp"

namespace {

using Message = RuntimeTest;

TEST_F(Message, ToNilReturnsZero) {
  const void* const null = nullptr;
  EXPECT_EQ((objc::send<double, "doubleValue">(null)), 0);
  EXPECT_FALSE((objc::send<bool, "boolValue">(null)));
  EXPECT_EQ((objc::send<NSObject*, "self">(null)), nullptr);
  EXPECT_EQ((objc::send<NSInteger, "integerValue">(null)), 0);
  const auto range = objc::send<NSRange, "range">(null);
  EXPECT_EQ(range.location, 0U);
  EXPECT_EQ(range.length, 0U);
  const auto rectangle = objc::send<CGRect, "frame">(null);
  EXPECT_EQ(rectangle.size.width, 0);
  objc::send<void, "release">(null);
}

TEST_F(Message, ThroughANullPlatformPointerReturnsZero) {
  const auto* const null = objc::as<NSNumber>("text"_ns);
  EXPECT_EQ(null->doubleValue(), 0);
  EXPECT_FALSE(null->boolValue());
}

TEST_F(Message, PassesArgumentsAndResultsOfDifferentTypes) {
  EXPECT_DOUBLE_EQ(NSNumber::numberWithDouble(2.5)->doubleValue(), 2.5);
  EXPECT_TRUE(NSNumber::numberWithBool(true)->boolValue());
  const NSRange found = "hello world"_ns->rangeOfString("world"_ns);
  EXPECT_EQ(found.location, 6U);
  EXPECT_EQ(found.length, 5U);
}

TEST_F(Message, NonzeroByteConvertsToTrue) {
  const auto answersTwo = +[](id, SEL) -> unsigned char { return 2; };
  Class counted = Counted::classObject();
  class_addMethod(counted, sel_registerName("answersTwo"), objc::toImplementation(answersTwo), "C@:");
  const auto object = objc::make<Counted>();
  const bool answer = objc::send<bool, "answersTwo">(object.get());
  EXPECT_EQ(static_cast<int>(answer), 1);
}

TEST_F(Message, ConstantStringIsCreatedOnce) {
  const auto constant = [] { return "one of a kind"_ns; };
  EXPECT_EQ(constant(), constant());
  EXPECT_STREQ(constant()->UTF8String(), "one of a kind");
}

TEST_F(Message, AsReturnsNullForAnotherType) {
  const NSObject* const text = "text"_ns;
  EXPECT_EQ(objc::as<NSString>(text), text);
  EXPECT_EQ(objc::as<NSNumber>(text), nullptr);
  EXPECT_EQ(objc::as<NSString>(nullptr), nullptr);
  EXPECT_NE(objc::as<NSArray>(NSMutableArray::array()), nullptr);
}

TEST_F(Message, LookUpOfAnUnknownClassReturnsNull) {
  EXPECT_EQ(objc::lookUpClass<"NoSuchClassAnywhere">(), nullptr);
  class Missing : public objc::Interface<"NoSuchClassAnywhere", NSObject> {};
  EXPECT_EQ(objc::as<Missing>("text"_ns), nullptr);
  EXPECT_EQ((objc::send<id, "alloc">(Missing::classObject())), nullptr);
}

TEST_F(Message, AnswersReportsWhetherAnObjectRespondsToASelector) {
  EXPECT_TRUE(respondsTo<"length">("text"_ns));
  EXPECT_FALSE(respondsTo<"subviews">("text"_ns));
  EXPECT_FALSE(respondsTo<"length">(nullptr));
}

}  // namespace
