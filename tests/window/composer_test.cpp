// Tests of the commands that the composer builds.
#include "simulator/plugins/phone_display/composer_commands.hpp"

#include <algorithm>

#include "tests/support/plain_phone.hpp"

namespace {

using phone_display::ComposerFields;
using phone_display::Json;
using phone_display::Persistence;
using phone_display::Preset;
using test::PlainPhone;

const Preset& presetNamed(const std::vector<Preset>& presets, const std::string& name) {
  return *std::ranges::find(presets, name, &Preset::name);
}

TEST(Composer, EachPresetPresentsItsBanner) {
  PlainPhone phone;
  for (const Preset& preset : phone_display::presets()) {
    for (const phone_display::PresetStep& step : preset.steps) {
      phone.run(step.command);
      const Json latest = phone.run("notifications").at("notifications").at(0);
      EXPECT_EQ(latest.at("section"), step.command.at("section")) << preset.name;
      EXPECT_EQ(latest.at("message"), step.command.at("message")) << preset.name;
    }
  }
}

TEST(Composer, SequencesHaveTheirLengthsAndOrder) {
  const std::vector<Preset> presets = phone_display::presets();
  const Preset& conversation = presetNamed(presets, "Conversation of five messages");
  EXPECT_EQ(conversation.steps.size(), 5U);
  EXPECT_EQ(presetNamed(presets, "Burst of twenty").steps.size(), 20U);
  for (std::size_t index = 1; index < conversation.steps.size(); ++index) {
    EXPECT_GT(conversation.steps[index].seconds, conversation.steps[index - 1].seconds);
    EXPECT_EQ(conversation.steps[index].command.at("thread"), conversation.steps[0].command.at("thread"));
  }
}

TEST(Composer, FieldsFilledFromAPresetSendTheSameNotification) {
  for (const Preset& preset : phone_display::presets()) {
    const Json& command = preset.steps.front().command;
    Json sent = phone_display::commandOf(phone_display::fieldsOf(command));
    EXPECT_EQ(sent.at("dismissAutomatically"), command.value("dismissAutomatically", true));
    if (!command.contains("dismissAutomatically")) sent.erase("dismissAutomatically");
    EXPECT_EQ(nlohmann::json(sent), nlohmann::json(command));
  }
}

TEST(Composer, FieldsBecomeMembersOfTheCommand) {
  PlainPhone phone;
  const ComposerFields fields = {.application = "ph.telegra.Telegraph",
                                 .title = "Kenji",
                                 .text = "Hello",
                                 .actions = " Archive ,, Answer… ",
                                 .persistence = Persistence::Persistent};
  const Json command = phone_display::commandOf(fields);
  phone.run(command);
  EXPECT_FALSE(command.contains("subtitle"));
  EXPECT_EQ(command.at("dismissAutomatically"), false);
  const Json& actions = command.at("actions");
  ASSERT_EQ(actions.size(), 2U);
  EXPECT_EQ(actions[0].at("title"), "Archive");
  EXPECT_EQ(actions[0].at("textInput"), false);
  EXPECT_EQ(actions[1].at("textInput"), true);
}

TEST(Composer, AnotherApplicationDoesNotReceiveTheUserInfoOfThePreset) {
  ComposerFields fields =
      phone_display::fieldsOf(presetNamed(phone_display::presets(), "Telegram").steps.front().command);
  ASSERT_TRUE(phone_display::commandOf(fields).contains("userInfo"));
  fields.application = "com.apple.mobilemail";
  EXPECT_FALSE(phone_display::commandOf(fields).contains("userInfo"));
}

TEST(Composer, UnreadablePictureIsAnError) {
  PlainPhone phone;
  const ComposerFields fields = {.application = "com.apple.mobilemail", .picture = "/missing.png"};
  EXPECT_EQ(phone.answer(phone_display::commandOf(fields)).at("ok"), false);
}

}  // namespace
