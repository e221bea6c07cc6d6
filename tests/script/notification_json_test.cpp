// Tests of the conversion between notifications and the fields of the command "present".
#include "simulator/runner/notification_json.hpp"

#include "tests/support/plain_phone.hpp"

namespace {

using test::Json;
using test::PlainPhone;

TEST(StoredNotifications, ContainAllFieldsOfTheirCommands) {
  PlainPhone phone;
  Json fields = {{"section", "com.apple.MobileSMS"},
                 {"identifier", "first"},
                 {"thread", "anna"},
                 {"title", "Anna"},
                 {"subtitle", "Team"},
                 {"message", "Lunch?"},
                 {"summary", "Summary"},
                 {"userInfo", {{"list", {"a", 1}}}},
                 {"actions", {{{"textInput", true}, {"key", "a"}, {"identifier", "x"}, {"title", "Reply"}}}},
                 {"clear", false},
                 {"close", true},
                 {"silence", true},
                 {"dismissAutomatically", nullptr},
                 {"at", "2020-03-14T09:41:00.000Z"}};
  phone.present(fields);
  fields["at"] = 1584178860.0;
  EXPECT_EQ(runner::storedNotifications(), Json::array({fields}));
}

TEST(StoredNotifications, AreRestoredInTheirOrderWithoutBanners) {
  PlainPhone phone;
  for (const char* title : {"One", "Two", "Three"}) phone.present({{"title", title}});
  const Json exact = {{"title", "Exact"}, {"at", "2020-03-14T09:41:00.211Z"}};
  phone.present(exact);
  const Json listed = phone.run("notifications");
  const Json stored = runner::storedNotifications();
  phone.run("withdraw");
  runner::restoreNotifications(stored);
  EXPECT_EQ(phone.run("notifications"), listed);
  EXPECT_EQ(phone.run("present", {{"section", "a.b"}}).at("controller"), 5);
}

}  // namespace
