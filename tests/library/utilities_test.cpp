#include <gtest/gtest.h>

#include <cstring>
#include <set>

#include "library/utilities/ns_string_md5.hpp"
#include "library/utilities/parent_view_controller.hpp"
#include "library/utilities/type_check_helper.hpp"
#include "platform/ns_data.hpp"
#include "platform/ns_dictionary.hpp"
#include "platform/ns_number.hpp"
#include "platform/ui_view_controller.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::Phone;

std::string digest(const char* text) {
  return objc::send<NSString*, "MD5String">(NSString::stringWithUTF8String(text))->UTF8String();
}

std::string typeOf(NSObject* object) { return TypeCheckHelper::getTypeOf(object)->UTF8String(); }

TEST(Digest, IsUppercaseHexadecimal) {
  const Phone phone;
  EXPECT_EQ(digest(""), "D41D8CD98F00B204E9800998ECF8427E");
  EXPECT_EQ(digest("abc"), "900150983CD24FB0D6963F7D28E17F72");
  EXPECT_EQ(digest("message digest"), "F96B697D7CB7938D525A2F31AAF161D0");
  EXPECT_EQ(digest("12345678901234567890123456789012345678901234567890123456789012345678901234567890"),
            "57EDF4A22BE3C955AC49DA2E2107B67A");
}

TEST(Digest, CoversTheBytesBeforeTheFirstZero) {
  const Phone phone;
  const char bytes[] = {'a', 'b', 'c', 0, 'd'};
  const auto text = NSString::decoded(NSData::dataWithBytes(bytes, sizeof bytes), NSStringEncoding::UTF8);
  ASSERT_EQ(text->length(), 5u);
  EXPECT_STREQ((objc::send<NSString*, "MD5String">(text.get())->UTF8String()), "900150983CD24FB0D6963F7D28E17F72");
}

TEST(Digest, IsNilForNil) {
  const Phone phone;
  EXPECT_EQ((objc::send<NSString*, "MD5String">(nullptr)), nullptr);
}

TEST(RandomString, HasTheGivenLengthAndOnlyLowercaseLetters) {
  const Phone phone;
  const std::string text = generateRandomString(8)->UTF8String();
  ASSERT_EQ(text.size(), 8u);
  for (const char letter : text) EXPECT_TRUE(letter >= 'a' && letter <= 'z') << text;
}

TEST(RandomString, IsEmptyForZeroOrNegativeLength) {
  const Phone phone;
  EXPECT_EQ(generateRandomString(0)->length(), 0u);
  EXPECT_EQ(generateRandomString(-5)->length(), 0u);
}

TEST(RandomString, ContainsEveryLetterAboutEquallyOften) {
  const Phone phone;
  constexpr int count = 26'000;
  std::array<int, 26> counts{};
  const std::string text = generateRandomString(count)->UTF8String();
  for (const char letter : text) ++counts.at(static_cast<std::size_t>(letter - 'a'));
  // The expected count is 1000, and 310 are ten standard deviations.
  for (const int occurrences : counts) EXPECT_NEAR(occurrences, 1000, 310);
}

TEST(RandomString, DiffersFromCallToCall) {
  const Phone phone;
  std::set<std::string> seen;
  for (int call = 0; call < 1000; ++call) seen.insert(generateRandomString(8)->UTF8String());
  EXPECT_EQ(seen.size(), 1000u);
}

TEST(ParentViewController, IsNilForAViewWithoutAController) {
  const Phone phone;
  const auto outer = UIView::withFrame<UIView>({});
  const auto inner = UIView::withFrame<UIView>({});
  outer->addSubview(inner);
  EXPECT_EQ(parentViewController(inner), nullptr);
}

TEST(ParentViewController, IsTheControllerOfTheNearestViewThatHasOne) {
  const Phone phone;
  const auto controller = objc::make<UIViewController>();
  const auto between = UIView::withFrame<UIView>({});
  const auto inner = UIView::withFrame<UIView>({});
  controller->view()->addSubview(between);
  between->addSubview(inner);
  EXPECT_EQ(parentViewController(inner), controller.get());
  EXPECT_EQ(parentViewController(controller->view()), controller.get());
}

TEST(TypeName, IsTheFirstMatchingKnownClass) {
  const Phone phone;
  EXPECT_EQ(typeOf("text"_ns), "NSString");
  EXPECT_EQ(typeOf(NSMutableString::stringWithCapacity(1)), "NSString");
  EXPECT_EQ(typeOf(NSMutableArray::array()), "NSArray");
  EXPECT_EQ(typeOf(NSMutableDictionary::dictionaryWithCapacity(1)), "NSMutableDictionary");
  EXPECT_EQ(typeOf(NSDictionary::dictionary()), "NSDictionary");
  EXPECT_EQ(typeOf(NSNumber::numberWithBool(true)), "NSNumber");
  EXPECT_EQ(typeOf(objc::send<NSObject*, "UUID">(objc::lookUpClass<"NSUUID">())), "NSUUID");
}

TEST(TypeName, IsMarkedAsUndefinedForAnUnknownClass) {
  const Phone phone;
  const auto view = UIView::withFrame<UIView>({});
  EXPECT_EQ(typeOf(view), "Undefined(UIView)");
  EXPECT_EQ(typeOf(nullptr), "Undefined((null))");
}

}  // namespace
