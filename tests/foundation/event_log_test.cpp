// Tests of the event log.
#include "simulator/base/event_log.hpp"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::ordered_json;

void record(int first, int last) {
  for (int number = first; number <= last; ++number) base::recordEvent("step", {{"number", number}});
}

TEST(EventLog, StoresAllEventsByDefault) {
  record(1, 20'000);
  EXPECT_EQ(base::takeEvents().size(), 20'000U);
  EXPECT_EQ(base::takeEvents(), Json::array());
}

TEST(EventLog, StoresTheLatestEventsIfItIsLimited) {
  record(1, 4);
  base::limitEventLog(2);
  record(5, 5);
  EXPECT_EQ(base::takeEvents(), Json({{{"event", "discarded"}, {"count", 3}},
                                      {{"event", "step"}, {"number", 4}},
                                      {{"event", "step"}, {"number", 5}}}));
  EXPECT_EQ(base::eventCount("step"), 5U);
  record(6, 6);
  EXPECT_EQ(base::takeEvents(), Json({{{"event", "step"}, {"number", 6}}}));
}

}  // namespace
