// Tests of the tap and drag commands: where a touch begins, and how the next command continues a touch whose finger is
// not lifted.
#include "tests/support/plain_phone.hpp"

namespace {

using test::Json;
using test::PlainPhone;

TEST(TouchCommands, DragContinuesAHeldTouch) {
  PlainPhone phone;
  const int controller = phone.present({{"dismissAutomatically", false}});
  phone.wait(1);
  const auto top = [&] {
    return phone.view(controller, "NCNotificationViewControllerView").at("frame")[1].get<double>();
  };
  const double atRest = top();
  phone.run("drag", {{"by", {0, -15}}, {"end", "hold"}});
  EXPECT_LT(top(), atRest);
  phone.run("drag", {{"by", {0, 10}}, {"end", "cancel"}});
  phone.wait(1);
  EXPECT_EQ(top(), atRest);
  EXPECT_FALSE(phone.isDismissed(controller));
}

TEST(TouchCommands, TapIsRejectedWhileATouchIsHeld) {
  PlainPhone phone;
  const int controller = phone.present({{"dismissAutomatically", false}});
  phone.wait(1);
  phone.run("drag", {{"by", {0, -15}}, {"end", "hold"}});
  const Json refused = phone.answer({{"do", "tap"}, {"at", {100, 600}}});
  EXPECT_NE(refused.value("error", "").find("still on the screen"), std::string::npos);
  phone.run("drag", {{"by", {0, 15}}, {"end", "cancel"}});
  phone.run("tap", {{"at", {100, 600}}});
  phone.wait(1);
  EXPECT_FALSE(phone.isDismissed(controller));
}

TEST(TouchCommands, DragOfAHeldTouchStillChecksItsStart) {
  PlainPhone phone;
  const int controller = phone.present({{"dismissAutomatically", false}});
  phone.wait(1);
  const Json hold = {{"do", "drag"}, {"by", {0, -1}}, {"end", "hold"}, {"controller", controller}};
  phone.run(hold);
  phone.run(hold);
  Json invalid = hold;
  invalid["controller"] = 77;
  EXPECT_FALSE(phone.answer(invalid).at("ok").get<bool>());
  invalid.erase("controller");
  invalid["at"] = {5000, 5};
  EXPECT_FALSE(phone.answer(invalid).at("ok").get<bool>());
}

TEST(TouchCommands, TapFindsAViewByItsText) {
  PlainPhone phone;
  const int controller = phone.present({{"title", "Tap me"}});
  phone.wait(1);
  phone.run("tap", {{"label", "Tap me"}});
  phone.wait(1);
  EXPECT_TRUE(phone.isDismissed(controller));
}

}  // namespace
