#include <gtest/gtest.h>

#include "tests/library/phone.hpp"
#include "tests/library/shown_banner.hpp"

namespace {

using test::container;
using test::Phone;
using test::Shown;
using test::text;

TEST(ContinuousUpdate, AppendsALine) {
  const Phone phone;
  const Shown shown(container("Anna"_ns, nullptr, "Hi"_ns));
  shown.banner->updateForContinuousNotification("How are you?"_ns);
  EXPECT_EQ(text(shown.banner->bodyLabel()), "Hi\nHow are you?");
}

TEST(ContinuousUpdate, RebuildsTheTinyLine) {
  const Phone phone;
  auto banner = container("Anna"_ns, nullptr, "Hi"_ns);
  banner->setTinyBanner(true);
  const Shown shown(banner);
  shown.banner->updateForContinuousNotification("Later"_ns);
  EXPECT_EQ(text(shown.banner->headerLabel()), "Anna: Hi\nLater");
}

TEST(ContinuousUpdate, KeepsTheTinyLinesHeaderBold) {
  Phone phone({.options = {}, .settings = {{"tinyBanner", true}}});
  const int controller = phone.present({{"title", "Anna"}, {"message", "Hi"}, {"dismissAutomatically", false}});
  phone.run({{"do", "update"}, {"controller", controller}, {"message", "Later"}});
  const test::Json runs = phone.view(controller, "headerLabel").at("runs");
  ASSERT_EQ(runs.size(), 2u);
  EXPECT_EQ(runs[0].at("text"), "Anna: ");
  EXPECT_EQ(runs[0].at("weight"), "bold");
  EXPECT_EQ(runs[1].at("text"), "Hi\nLater");
  EXPECT_EQ(runs[1].at("weight"), "regular");
}

TEST(ContinuousUpdate, WithoutABodyStartsFromTheWordForNothing) {
  const Phone phone;
  const Shown shown(container("Anna"_ns, nullptr, nullptr));
  shown.banner->updateForContinuousNotification("Later"_ns);
  EXPECT_EQ(text(shown.banner->bodyLabel()), "(null)\nLater");
}

TEST(ContinuousUpdate, BeforeTheLayoutIsShownByIt) {
  const Phone phone;
  auto banner = container("Anna"_ns, nullptr, "Hi"_ns);
  banner->setMaxLineCount(0);
  banner->updateForContinuousNotification("Later"_ns);
  const Shown shown(banner);
  EXPECT_EQ(text(shown.banner->bodyLabel()), "Hi\nLater");
}

TEST(ContinuousUpdate, ShowContentOfATinyBannerAddsItsHeader) {
  const Phone phone;
  auto banner = container("Anna"_ns, nullptr, "Hi"_ns);
  banner->setTinyBanner(true);
  banner->setEnablePrivacy(true);
  const Shown shown(banner);
  ASSERT_EQ(text(shown.banner->headerLabel()), "Content hidden");
  shown.banner->showContent();
  EXPECT_EQ(text(shown.banner->headerLabel()), "Anna: \nAnna");
}

TEST(ContinuousUpdate, ShowContentGivesBackWhatPrivacyHid) {
  const Phone phone;
  auto banner = container("Anna"_ns, "Sub"_ns, "Hello"_ns);
  banner->setEnablePrivacy(true);
  const Shown shown(banner);
  shown.banner->showContent();
  EXPECT_EQ(text(shown.banner->headerLabel()), "Anna");
  EXPECT_EQ(text(shown.banner->bodyLabel()), "Hello");
  EXPECT_EQ(shown.banner->subHeaderLabel(), nullptr);
}

}  // namespace
