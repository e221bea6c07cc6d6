#include "simulator/foundation/preference_value.hpp"

#include <cmath>
#include <limits>

#include "platform/ns_array.hpp"
#include "platform/ns_data.hpp"
#include "platform/ns_dictionary.hpp"
#include "platform/ns_number.hpp"
#include "platform/ns_string.hpp"
#include "tests/objc/runtime_environment.hpp"

namespace {

using foundation::booleanPreference;
using foundation::integerPreference;

using PreferenceValue = RuntimeTest;

NSString* text(const char* utf8) { return NSString::stringWithUTF8String(utf8); }
NSNumber* number(double value) { return NSNumber::numberWithDouble(value); }
NSNumber* integer(NSInteger value) {
  return objc::send<NSNumber*, "numberWithLongLong:">(NSNumber::classObject(), value);
}

TEST_F(PreferenceValue, BooleansAreReadFromBooleansNumbersAndWords) {
  for (const char* word : {"YES", "yes", "Yes", "true", "TRUE", "True", "1"})
    EXPECT_EQ(booleanPreference(text(word)), true) << word;
  for (const char* word : {"NO", "no", "false", "FALSE", "0"}) EXPECT_EQ(booleanPreference(text(word)), false) << word;
  EXPECT_EQ(booleanPreference(NSNumber::numberWithBool(true)), true);
  EXPECT_EQ(booleanPreference(NSNumber::numberWithBool(false)), false);
  EXPECT_EQ(booleanPreference(integer(1)), true);
  EXPECT_EQ(booleanPreference(number(0)), false);
}

TEST_F(PreferenceValue, OtherValuesAreNotBooleans) {
  for (const char* word : {"", " ", "YES ", "2", "-1", "abc", "yesterday", "-bool"})
    EXPECT_EQ(booleanPreference(text(word)), std::nullopt) << word;
  for (const double value : {2.0, -1.0, 0.5, std::nan("")})
    EXPECT_EQ(booleanPreference(number(value)), std::nullopt) << value;
  EXPECT_EQ(booleanPreference(nullptr), std::nullopt);
  EXPECT_EQ(booleanPreference(NSMutableArray::array()), std::nullopt);
  EXPECT_EQ(booleanPreference(NSDictionary::dictionary()), std::nullopt);
  EXPECT_EQ(booleanPreference(NSData::dataWithBytes("1", 1)), std::nullopt);
}

TEST_F(PreferenceValue, IntegersAreReadFromNumbersAndDecimalStrings) {
  EXPECT_EQ(integerPreference(text("3")), 3);
  EXPECT_EQ(integerPreference(text("-12")), -12);
  EXPECT_EQ(integerPreference(text("007")), 7);
  EXPECT_EQ(integerPreference(text("9223372036854775807")), std::numeric_limits<NSInteger>::max());
  EXPECT_EQ(integerPreference(text("-9223372036854775808")), std::numeric_limits<NSInteger>::min());
  EXPECT_EQ(integerPreference(integer(std::numeric_limits<NSInteger>::min())), std::numeric_limits<NSInteger>::min());
  EXPECT_EQ(integerPreference(integer(std::numeric_limits<NSInteger>::max())), std::numeric_limits<NSInteger>::max());
  EXPECT_EQ(integerPreference(NSNumber::numberWithBool(true)), 1);
}

TEST_F(PreferenceValue, FractionsAreTruncated) {
  EXPECT_EQ(integerPreference(number(2.9)), 2);
  EXPECT_EQ(integerPreference(number(-2.9)), -2);
}

TEST_F(PreferenceValue, OtherValuesAreNotIntegers) {
  for (const char* word :
       {"", " ", "3 ", " 3", "3.5", "0x10", "+3", "abc", "3abc", "YES", "1e3", "--1", "9223372036854775808"})
    EXPECT_EQ(integerPreference(text(word)), std::nullopt) << word;
  for (const double value : {1e19, -1e19, 9223372036854775808.0, std::nan(""), std::numeric_limits<double>::infinity()})
    EXPECT_EQ(integerPreference(number(value)), std::nullopt) << value;
  EXPECT_EQ(integerPreference(objc::send<NSNumber*, "numberWithUnsignedLongLong:">(
                NSNumber::classObject(), std::numeric_limits<NSUInteger>::max())),
            std::nullopt);
  EXPECT_EQ(integerPreference(nullptr), std::nullopt);
  EXPECT_EQ(integerPreference(NSMutableArray::array()), std::nullopt);
  EXPECT_EQ(integerPreference(NSData::dataWithBytes("1", 1)), std::nullopt);
}

}  // namespace
