// Tests that the values of the lists have the effects that their titles describe.
#include <gtest/gtest.h>

#include "library/settings/settings.hpp"
#include "library/view/brim_colors.hpp"
#include "tests/settings_pane/opened_pane.hpp"

namespace {

using test::Json;
using test::OpenedPane;

// Returns the value with this title in the list. The title is a key of the strings table.
long valueOf(const std::string& key, const std::string& title) {
  for (const Json& item : test::paneSettings()) {
    if (item.at("key") != key) continue;
    for (std::size_t index = 0; index < item.at("validTitles").size(); ++index)
      if (item.at("validTitles")[index] == title) return item.at("validValues")[index];
  }
  ADD_FAILURE() << key << " has no title " << title;
  return -1;
}

TEST(PaneChoices, ColorsAreTheModesOfTheColorSet) {
  EXPECT_EQ(valueOf("containerColor", "COLOR_AUTOMATIC"), 0);
  EXPECT_EQ(valueOf("containerColor", "COLOR_DARK"), darkMode);
  EXPECT_EQ(valueOf("containerColor", "COLOR_LIGHT"), lightMode);
  EXPECT_EQ(valueOf("containerColor", "COLOR_BLACK"), blackMode);
}

TEST(PaneChoices, ReadModesAreThoseOfTheLibrary) {
  using settings::AutoReadMode;
  EXPECT_EQ(valueOf("messagesAutoReadMode", "AUTO_READ_WHEN_EXPANDED"), static_cast<long>(AutoReadMode::WhenExpanded));
  EXPECT_EQ(valueOf("messagesAutoReadMode", "AUTO_READ_AFTER_REPLY"), static_cast<long>(AutoReadMode::AfterReply));
  const long never = valueOf("messagesAutoReadMode", "AUTO_READ_NEVER");
  for (const AutoReadMode mode : {AutoReadMode::WhenExpanded, AutoReadMode::AfterReply})
    EXPECT_NE(never, static_cast<long>(mode));
}

// Selects the value in the pane and presents a notification. Returns its controller.
int presentWith(OpenedPane& pane, const std::string& key, long value) {
  settings_application::change(pane.setting(key), base::objectOf(Json(value)));
  const int controller = pane.phone.present({{"title", "Title"}, {"message", "Message"}});
  pane.phone.wait(1);
  return controller;
}

TEST(PaneChoices, AlignmentsAreThoseOfTheTexts) {
  OpenedPane pane;
  const auto alignment = [&](const char* title) {
    const int controller = presentWith(pane, "textAlignment", valueOf("textAlignment", title));
    return pane.phone.view(controller, "headerLabel").at("alignment");
  };
  EXPECT_EQ(alignment("ALIGNMENT_AUTOMATIC"), "natural");
  EXPECT_EQ(alignment("ALIGNMENT_LEFT"), "left");
  EXPECT_EQ(alignment("ALIGNMENT_CENTER"), "center");
  EXPECT_EQ(alignment("ALIGNMENT_RIGHT"), "right");
}

TEST(PaneChoices, BadgesAreThoseOfTheBanner) {
  OpenedPane pane;
  const auto badge = [&](const char* title) {
    const int controller = presentWith(pane, "appIconPfp", valueOf("appIconPfp", title));
    return pane.phone.view(controller, "_appDetailImage");
  };
  EXPECT_TRUE(badge("BADGE_NONE").is_null());
  // A glyph is drawn larger than an icon.
  EXPECT_GT(badge("BADGE_GLYPH").at("frame").at(2), badge("BADGE_ICON").at("frame").at(2));
}

}  // namespace
