// Tests of a burst of notifications: all of them are presented before the first banner is dismissed.
#include <gtest/gtest.h>

#include "simulator/uikit/views/view_hierarchy.hpp"
#include "simulator/uikit/views/window.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::Phone;
using Work = uikit::LayoutEngine::Work;

void presentMany(Phone& phone, int count) {
  for (int i = 0; i < count; ++i) phone.present({{"title", "Anna"}, {"message", "Are we still on for lunch today?"}});
}

// The total work of the layout engines of all visible windows since the phone started.
Work layoutWork() {
  Work sum;
  for (UIWindow* window : uikit::visibleWindows()) {
    uikit::visitTree(window, [&](UIView* view) {
      const auto* engine = uikit::record(view).engine.get();
      if (engine == nullptr) return;
      sum.constraints += engine->work().constraints;
      sum.pivots += engine->work().pivots;
    });
  }
  return sum;
}

TEST(Burst, LayoutWorkPerBannerDoesNotDependOnTheNumberOfBanners) {
  Phone phone;
  const Work before = layoutWork();
  presentMany(phone, 20);
  const Work few = layoutWork();
  presentMany(phone, 180);
  const Work many = layoutWork();
  ASSERT_FALSE(phone.state(1)["dismissed"]);
  constexpr std::size_t minWorkOfTwenty = 400;
  ASSERT_GT(few.constraints, before.constraints + minWorkOfTwenty);
  ASSERT_GT(few.pivots, before.pivots + minWorkOfTwenty);
  EXPECT_EQ(many.constraints - before.constraints, 10 * (few.constraints - before.constraints));
  EXPECT_EQ(many.pivots - before.pivots, 10 * (few.pivots - before.pivots));
}

TEST(Burst, OldestBannersAreRemovedIfThereAreTooMany) {
  Phone phone;
  presentMany(phone, 300);
  EXPECT_TRUE(phone.state(300 - 256)["dismissed"]);
  EXPECT_FALSE(phone.state(300 - 255)["dismissed"]);
  EXPECT_EQ(phone.run({{"do", "withdraw"}}).at("withdrawn"), 300);
  phone.wait(60);
  EXPECT_TRUE(phone.state(300)["dismissed"]);
}

}  // namespace
