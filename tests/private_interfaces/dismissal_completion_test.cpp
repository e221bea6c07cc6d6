// Tests of the completion of the platform's dismissal. Some system versions call it without an argument, so its
// parameter has an arbitrary value.
#include <gtest/gtest.h>

#include "objc/block.hpp"
#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"
#include "tests/private_interfaces/withheld.hpp"

namespace {

using test::controllerOf;
using test::Phone;

class DismissalCompletion : public testing::TestWithParam<unsigned> {};

TEST_P(DismissalCompletion, CountsAsUnfinishedWithoutAnArgument) {
  test::completeDismissalsWith(GetParam());
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}});
  phone.wait(1);
  phone.run({{"do", "lock"}});
  EXPECT_FALSE(controllerOf(controller)->hasDismissed());
  EXPECT_FALSE(controllerOf(controller)->isDismissing());
  EXPECT_TRUE(phone.state(phone.present({{"title", "Bert"}})).at("brim"));
}

INSTANTIATE_TEST_SUITE_P(RandomValues, DismissalCompletion, testing::Values(0U, 2U, 0x40U, 0xffU));

TEST(DismissalCompletion, CountsAsFinishedIfItsArgumentIsTrue) {
  test::completeDismissalsWith(1);
  Phone phone;
  const int controller = phone.present({{"title", "Anna"}});
  phone.wait(1);
  phone.run({{"do", "lock"}});
  EXPECT_TRUE(controllerOf(controller)->hasDismissed());
}

}  // namespace
