#include <gtest/gtest.h>

#include "tests/library/banner_layout.hpp"

namespace {

using test::Json;
using test::Phone;
using test::phoneWith;
using test::sampleMessage;
using test::top;
using test::width;

// The text of a label. Bold parts are enclosed in asterisks.
std::string withBoldMarks(const Json& label) {
  std::string text;
  for (const Json& run : label.at("runs")) {
    const std::string piece = run.at("text");
    text += run.at("weight") == "bold" ? "*" + piece + "*" : piece;
  }
  return text;
}

struct TinyCase {
  const char* header;
  const char* body;
  const char* shown;
};

class TinyLine : public testing::TestWithParam<TinyCase> {};

TEST_P(TinyLine, JoinsHeaderAndBody) {
  Phone phone = phoneWith({{"tinyBanner", true}});
  Json fields = Json::object();
  if (GetParam().header != nullptr) fields["title"] = GetParam().header;
  if (GetParam().body != nullptr) fields["message"] = GetParam().body;
  const int controller = phone.present(fields);
  phone.wait(1);
  EXPECT_EQ(withBoldMarks(phone.view(controller, "headerLabel")), GetParam().shown);
  EXPECT_TRUE(phone.view(controller, "subHeaderLabel").is_null());
  EXPECT_EQ(phone.view(controller, "bodyLabel").value("text", ""), "");
  EXPECT_DOUBLE_EQ(width(phone.view(controller, "_appIV")), 20);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, TinyLine,
    testing::Values(TinyCase{"John", "Hello", "*John: *Hello"}, TinyCase{"John : ", "Hello", "*John: *Hello"},
                    TinyCase{"Mail: ", "Hello", "*Mail: *Hello"}, TinyCase{"Mail:", "Hello", "*Mail:*Hello"},
                    TinyCase{"Mail:   ", "Hello", "*Mail:   *Hello"}, TinyCase{"John  :: ", "Hello", "*John: *Hello"},
                    TinyCase{"12:30 x", "b", "*12:30 x*b"}, TinyCase{"a:b : c", "hi", "*a:b : c*hi"},
                    TinyCase{nullptr, "abc:", "*abc:*"}, TinyCase{"Jürgen : ", "Hallo", "*Jürgen : *Hallo"},
                    TinyCase{nullptr, "Alice\nHi there", "*Alice:* Hi there"},
                    TinyCase{nullptr, "Alice: one\ntwo", "*Alice:* one\ntwo"},
                    TinyCase{nullptr, "Hi there", "Hi there"}, TinyCase{"John", nullptr, "*John*"},
                    TinyCase{"😀", "👍🏽", "*😀: *👍🏽"}));

TEST(TinyBanner, IsEmptyWithoutTexts) {
  Phone phone = phoneWith({{"tinyBanner", true}});
  const int controller = phone.present();
  phone.wait(1);
  EXPECT_EQ(phone.view(controller, "headerLabel").value("text", ""), "");
}

TEST(TinyBanner, LineIsOnePointBelowTheTopOfTheIcon) {
  Phone phone = phoneWith({{"tinyBanner", true}});
  const int controller = phone.present(sampleMessage());
  phone.wait(1);
  EXPECT_DOUBLE_EQ(top(phone.view(controller, "headerLabel")), top(phone.view(controller, "_appIV")) + 1);
  EXPECT_TRUE(phone.view(controller, "_appDetailImage").is_null());
}

class Privacy : public testing::TestWithParam<bool> {};

TEST_P(Privacy, HidesEveryText) {
  Phone phone = phoneWith({{"hide_unless_expanded", true}, {"tinyBanner", GetParam()}});
  const int controller = phone.present({{"title", "Anna"}, {"subtitle", "Secret"}, {"message", "Hush"}});
  phone.wait(1);
  EXPECT_EQ(phone.view(controller, "headerLabel").at("text"), "Content hidden");
  EXPECT_EQ(phone.view(controller, "bodyLabel").value("text", ""), "");
  EXPECT_TRUE(phone.view(controller, "subHeaderLabel").is_null());
  const Json tree = phone.windows(controller);
  EXPECT_EQ(tree.dump().find("Anna"), std::string::npos);
  EXPECT_EQ(tree.dump().find("Hush"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(NormalAndTiny, Privacy, testing::Bool());

TEST(Privacy, PlaceholderIsLocalized) {
  Phone phone = phoneWith({{"hide_unless_expanded", true}}, [](runner::Options& options) { options.locale = "de_DE"; });
  const int controller = phone.present(sampleMessage());
  EXPECT_NE(phone.view(controller, "headerLabel").at("text"), "Content hidden");
}

class Alignment : public testing::TestWithParam<std::pair<int, const char*>> {};

TEST_P(Alignment, AppliesToAllTexts) {
  Phone phone = phoneWith({{"textAlignment", GetParam().first}});
  const int controller = phone.present({{"title", "A"}, {"subtitle", "B"}, {"message", "C"}});
  for (const char* label : {"headerLabel", "subHeaderLabel", "bodyLabel"})
    EXPECT_EQ(phone.view(controller, label).at("alignment"), GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(Settings, Alignment,
                         testing::Values(std::pair(0, "natural"), std::pair(1, "left"), std::pair(2, "center"),
                                         std::pair(3, "right"), std::pair(9, "natural"), std::pair(-1, "natural")));

}  // namespace
