#include <gtest/gtest.h>

#include "tests/library/laid_out_banner.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::LaidOutBanner;
using test::makeBanner;
using test::Phone;
using test::text;

TEST(ContinuousUpdate, AppendsALine) {
  const Phone phone;
  const LaidOutBanner laidOut(makeBanner("Anna"_ns, nullptr, "Hi"_ns));
  laidOut.banner->updateForContinuousNotification("How are you?"_ns);
  EXPECT_EQ(text(laidOut.banner->bodyLabel()), "Hi\nHow are you?");
}

TEST(ContinuousUpdate, RebuildsTheTinyLine) {
  const Phone phone;
  auto banner = makeBanner("Anna"_ns, nullptr, "Hi"_ns);
  banner->setTinyBanner(true);
  const LaidOutBanner laidOut(banner);
  laidOut.banner->updateForContinuousNotification("Later"_ns);
  EXPECT_EQ(text(laidOut.banner->headerLabel()), "Anna: Hi\nLater");
}

TEST(ContinuousUpdate, KeepsTheHeaderOfTheTinyLineBold) {
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

TEST(ContinuousUpdate, BeginsWithTheWordNullIfThereIsNoBody) {
  const Phone phone;
  const LaidOutBanner laidOut(makeBanner("Anna"_ns, nullptr, nullptr));
  laidOut.banner->updateForContinuousNotification("Later"_ns);
  EXPECT_EQ(text(laidOut.banner->bodyLabel()), "(null)\nLater");
}

TEST(ContinuousUpdate, IsShownIfItPrecedesTheFirstLayout) {
  const Phone phone;
  auto banner = makeBanner("Anna"_ns, nullptr, "Hi"_ns);
  banner->setMaxLineCount(0);
  banner->updateForContinuousNotification("Later"_ns);
  const LaidOutBanner laidOut(banner);
  EXPECT_EQ(text(laidOut.banner->bodyLabel()), "Hi\nLater");
}

TEST(ContinuousUpdate, ShowContentOfATinyBannerAppendsItsHeader) {
  const Phone phone;
  auto banner = makeBanner("Anna"_ns, nullptr, "Hi"_ns);
  banner->setTinyBanner(true);
  banner->setEnablePrivacy(true);
  const LaidOutBanner laidOut(banner);
  ASSERT_EQ(text(laidOut.banner->headerLabel()), "Content hidden");
  laidOut.banner->showContent();
  EXPECT_EQ(text(laidOut.banner->headerLabel()), "Anna: \nAnna");
}

TEST(ContinuousUpdate, ShowContentRestoresTheTextsHiddenByPrivacy) {
  const Phone phone;
  auto banner = makeBanner("Anna"_ns, "Sub"_ns, "Hello"_ns);
  banner->setEnablePrivacy(true);
  const LaidOutBanner laidOut(banner);
  laidOut.banner->showContent();
  EXPECT_EQ(text(laidOut.banner->headerLabel()), "Anna");
  EXPECT_EQ(text(laidOut.banner->bodyLabel()), "Hello");
  EXPECT_EQ(laidOut.banner->subHeaderLabel(), nullptr);
}

}  // namespace
