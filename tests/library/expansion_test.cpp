// Tests of what a banner shows after it was expanded, and when it reports its conversation as read.
#include <gtest/gtest.h>

#include "tests/library/controllers.hpp"
#include "tests/library/drags.hpp"

namespace {

using test::containerOf;
using test::drag;
using test::eventsOf;
using test::Phone;
using test::presentThreeLines;

// The drag has already faded the reply field in, so the field opens without an animation.
TEST(Expansion, OpensTheReplyFieldImmediatelyIfThereAreNoButtons) {
  Phone phone;
  const int controller = presentThreeLines(phone);
  phone.run(drag(100));
  phone.wait(0.001);
  EXPECT_TRUE(containerOf(controller)->reply()->isFirstResponder());
}

TEST(Expansion, DoesNotOpenTheReplyFieldIfThereAreButtons) {
  Phone phone({.options = {}, .settings = {{"showButtons", true}}});
  const int controller = presentThreeLines(phone);
  phone.run(drag(100));
  phone.wait(1);
  EXPECT_FALSE(containerOf(controller)->reply()->isFirstResponder());
}

TEST(Expansion, ShowsTheTextsHiddenByPrivacy) {
  Phone phone({.options = {}, .settings = {{"hide_unless_expanded", true}}});
  const int controller = presentThreeLines(phone);
  ASSERT_EQ(phone.view(controller, "headerLabel").at("text"), "Content hidden");
  phone.run(drag(12));
  EXPECT_EQ(phone.view(controller, "headerLabel").at("text"), "Anna");
  EXPECT_EQ(phone.view(controller, "bodyLabel").at("text"), "Hello\nAnna\nhere");
}

TEST(Expansion, UpwardDragDoesNotShowTheHiddenTexts) {
  Phone phone({.options = {}, .settings = {{"hide_unless_expanded", true}}});
  const int controller = presentThreeLines(phone);
  phone.run(drag(-12));
  EXPECT_EQ(phone.view(controller, "headerLabel").at("text"), "Content hidden");
}

struct ReadCase {
  const char* name;
  const char* section;
  int mode;
  std::size_t posts;
};

std::ostream& operator<<(std::ostream& out, const ReadCase& each) { return out << each.name; }

class ReadOnExpansion : public testing::TestWithParam<ReadCase> {};

TEST_P(ReadOnExpansion, DependsOnApplicationAndMode) {
  Phone phone({.options = {}, .settings = {{"messagesAutoReadMode", GetParam().mode}}});
  presentThreeLines(phone, {{"section", GetParam().section}, {"thread", "+491234567"}});
  phone.log();
  phone.run(drag(12));
  EXPECT_EQ(eventsOf(phone.log(), "distributed").size(), GetParam().posts);
}

INSTANTIATE_TEST_SUITE_P(Modes, ReadOnExpansion,
                         testing::Values(ReadCase{"MessagesOnExpansion", "com.apple.MobileSMS", 1, 1},
                                         ReadCase{"MessagesOnReply", "com.apple.MobileSMS", 2, 0},
                                         ReadCase{"MessagesNever", "com.apple.MobileSMS", 0, 0},
                                         ReadCase{"Mail", "com.apple.mobilemail", 1, 0}),
                         [](const auto& each) { return each.param.name; });

}  // namespace
