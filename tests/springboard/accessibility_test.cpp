// Tests of the elements that the home screen describes to assistive technologies, without the library.
#include <algorithm>

#include "simulator/runner/accessible_actions.hpp"
#include "simulator/uikit/accessibility/screen_elements.hpp"
#include "tests/springboard/long_look_fixture.hpp"

namespace {

using test::PlainPhone;
using uikit::AccessibleElement;
using uikit::AccessibleRole;

std::vector<AccessibleElement> elementsWithRole(AccessibleRole role) {
  std::vector<AccessibleElement> elements = uikit::accessibleElements();
  std::erase_if(elements, [role](const AccessibleElement& element) { return element.role != role; });
  return elements;
}

std::vector<std::string> labelsOf(AccessibleRole role) {
  std::vector<std::string> labels;
  for (const AccessibleElement& element : elementsWithRole(role)) labels.push_back(element.label);
  return labels;
}

const AccessibleElement& elementNamed(const std::vector<AccessibleElement>& elements, const std::string& label) {
  return *std::ranges::find(elements, label, &AccessibleElement::label);
}

TEST(Accessibility, IconsHaveTheNamesOfTheirApplications) {
  PlainPhone phone;
  const std::vector<std::string> labels = labelsOf(AccessibleRole::Icon);
  EXPECT_TRUE(std::ranges::find(labels, "Telegram") != labels.end());
  EXPECT_TRUE(std::ranges::find(labels, "Messages") != labels.end());
}

TEST(Accessibility, BannerHasANameAndActions) {
  PlainPhone phone;
  EXPECT_TRUE(labelsOf(AccessibleRole::Notification).empty());
  phone.present({{"subtitle", "Today"}});
  const auto banners = elementsWithRole(AccessibleRole::Notification);
  ASSERT_EQ(banners.size(), 1U);
  EXPECT_EQ(banners[0].label, "Messages, Anna, Today, Hello");
  ASSERT_EQ(banners[0].actions.size(), 3U);
  EXPECT_EQ(banners[0].actions[1].name, "expand");
}

TEST(Accessibility, WindowsInFrontComeFirst) {
  PlainPhone phone;
  phone.present();
  EXPECT_EQ(uikit::accessibleElements().front().role, AccessibleRole::Notification);
}

TEST(Accessibility, LockScreenHidesTheHomeScreen) {
  PlainPhone phone;
  phone.present({{"message", "Lunch?"}});
  phone.run("lock");
  phone.wait(1);
  EXPECT_TRUE(labelsOf(AccessibleRole::Icon).empty());
  const auto elements = uikit::accessibleElements();
  const auto cells = elementsWithRole(AccessibleRole::ListItem);
  ASSERT_EQ(cells.size(), 1U);
  EXPECT_NE(cells[0].label.find("Lunch?"), std::string::npos);
  ASSERT_LT(cells[0].parent, elements.size());
  EXPECT_EQ(elements[cells[0].parent].role, AccessibleRole::List);
}

TEST(Accessibility, ViewKeepsItsIdentifier) {
  PlainPhone phone;
  EXPECT_EQ(uikit::accessibleElements(), uikit::accessibleElements());
}

TEST(Accessibility, HomeIndicatorClosesThePageOfAnApplication) {
  PlainPhone phone;
  const auto icons = elementsWithRole(AccessibleRole::Icon);
  EXPECT_TRUE(runner::performAction(elementNamed(icons, "Slack").identifier, 0));
  phone.wait(1);
  EXPECT_TRUE(labelsOf(AccessibleRole::Icon).empty());
  const auto buttons = elementsWithRole(AccessibleRole::Button);
  ASSERT_EQ(buttons.size(), 1U);
  EXPECT_EQ(buttons[0].label, "Home");
  EXPECT_TRUE(runner::performAction(buttons[0].identifier, 0));
  phone.wait(1);
  EXPECT_EQ(labelsOf(AccessibleRole::Icon).size(), icons.size());
}

TEST(Accessibility, RemovedElementHasNoActions) {
  PlainPhone phone;
  phone.present();
  const auto banners = elementsWithRole(AccessibleRole::Notification);
  ASSERT_EQ(banners.size(), 1U);
  EXPECT_FALSE(runner::performAction(banners[0].identifier, banners[0].actions.size()));
  EXPECT_TRUE(runner::performAction(banners[0].identifier, 2));
  phone.wait(1);
  EXPECT_FALSE(runner::performAction(banners[0].identifier, 0));
}

class AccessibleLongLook : public test::LongLook {};

TEST_F(AccessibleLongLook, HasACloseButtonAndActions) {
  openWithActions();
  EXPECT_EQ(labelsOf(AccessibleRole::Button), (std::vector<std::string>{"Close", "Archive", "nameless"}));
  EXPECT_TRUE(labelsOf(AccessibleRole::Icon).empty());
  EXPECT_TRUE(labelsOf(AccessibleRole::Notification).empty());
}

TEST_F(AccessibleLongLook, ReplyFieldAndKeysAreElements) {
  open({{"actions", {{{"key", "a"}, {"identifier", "reply"}, {"title", "Reply"}, {"textInput", true}}}}});
  EXPECT_TRUE(labelsOf(AccessibleRole::Key).empty());
  const auto buttons = elementsWithRole(AccessibleRole::Button);
  EXPECT_TRUE(runner::performAction(elementNamed(buttons, "Reply").identifier, 0));
  phone.wait(1);
  const auto fields = elementsWithRole(AccessibleRole::TextField);
  ASSERT_EQ(fields.size(), 1U);
  EXPECT_TRUE(fields[0].isFirstResponder);
  const auto keys = elementsWithRole(AccessibleRole::Key);
  EXPECT_TRUE(runner::performAction(elementNamed(keys, "H").identifier, 0));
  EXPECT_EQ(elementsWithRole(AccessibleRole::TextField)[0].value, "H");
  EXPECT_EQ(elementsWithRole(AccessibleRole::TextField)[0].caret, 1U);
  EXPECT_TRUE(runner::setText(fields[0].identifier, "Yes"));
  EXPECT_EQ(elementsWithRole(AccessibleRole::TextField)[0].value, "Yes");
}

TEST_F(AccessibleLongLook, GoingBackHidesTheKeyboardThenClosesTheLongLookAndThenThePage) {
  runner::performAction(elementNamed(elementsWithRole(AccessibleRole::Icon), "Slack").identifier, 0);
  open({{"actions", {{{"key", "a"}, {"identifier", "reply"}, {"title", "Reply"}, {"textInput", true}}}}});
  phone.run("tap", {{"label", "Reply"}});
  phone.wait(1);
  ASSERT_FALSE(labelsOf(AccessibleRole::Key).empty());
  runner::goBack();
  phone.wait(1);
  EXPECT_TRUE(labelsOf(AccessibleRole::Key).empty());
  ASSERT_TRUE(isOpen());
  runner::goBack();
  phone.wait(1);
  EXPECT_FALSE(isOpen());
  ASSERT_TRUE(labelsOf(AccessibleRole::Icon).empty());
  runner::goBack();
  phone.wait(1);
  EXPECT_FALSE(labelsOf(AccessibleRole::Icon).empty());
}

}  // namespace
