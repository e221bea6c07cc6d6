// Tests of the commands that record the screen. The recordings are decoded with the decoder of the WebP library.
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <map>

#include "simulator/foundation/main_queue.hpp"
#include "tests/script/recording_fixture.hpp"

namespace {

namespace fs = std::filesystem;
using test::Animation;
using test::contentsOf;
using test::decode;
using test::difference;
using test::filesIn;
using test::Json;
using test::Recording;

TEST_F(Recording, HasTheSizeOfTheScreenAndRepeats) {
  phone.present();
  phone.run("record", {{"path", path().string()}, {"seconds", 0.2}});
  phone.present();
  phone.run("record", {{"path", path("b.webp").string()}, {"seconds", 0.2}, {"scale", 2}});
  const Animation animation = decode(path());
  EXPECT_EQ(animation.width, 375);
  EXPECT_EQ(animation.height, 812);
  EXPECT_EQ(animation.loops, 0U);
  EXPECT_EQ(decode(path("b.webp")).width, 750);
}

TEST_F(Recording, LastsFiveSecondsByDefault) {
  phone.present();
  const double before = foundation::now();
  const Json answer = phone.run("record", {{"path", path().string()}});
  EXPECT_DOUBLE_EQ(foundation::now() - before, 5);
  EXPECT_DOUBLE_EQ(answer.at("seconds").get<double>(), 5);
  EXPECT_EQ(decode(path()).frames.back().end, 5000);
}

TEST_F(Recording, HasThirtyFramesASecondWhileTheScreenChanges) {
  const int controller = phone.present();
  phone.wait(1);
  start();
  phone.run("dismiss", {{"controller", controller}});
  phone.wait(0.2);
  const Json answer = stop();
  EXPECT_EQ(decode(path()).ends(), (std::vector<int>{33, 67, 100, 133, 167, 200}));
  EXPECT_EQ(answer.at("frames"), 6);
  EXPECT_DOUBLE_EQ(answer.at("seconds").get<double>(), 0.2);
}

TEST_F(Recording, EqualFramesExtendTheFirstOne) {
  start();
  phone.wait(0.5);
  phone.run("appearance", {{"style", "dark"}});
  phone.wait(0.5);
  phone.run("appearance", {{"style", "dark"}});
  phone.wait(0.5);
  EXPECT_EQ(stop().at("frames"), 2);
  // The change is visible in the next frame.
  EXPECT_EQ(decode(path()).ends(), (std::vector<int>{533, 1500}));
}

TEST_F(Recording, IsAStillPictureIfTheScreenDoesNotChange) {
  phone.run("record", {{"path", path().string()}, {"seconds", 2}, {"quality", 100}});
  const Animation animation = decode(path());
  ASSERT_EQ(animation.frames.size(), 1U);
  EXPECT_EQ(difference(animation.frames[0], *screenshot()), 0);
}

TEST_F(Recording, IsExactAtTheMaximumQuality) {
  std::map<int, std::shared_ptr<const drawing::Image>> screenshots;
  start({{"quality", 100}});
  phone.present();
  for (const int milliseconds : {100, 200, 300, 400}) {
    phone.wait(0.1);
    screenshots[milliseconds] = screenshot();
  }
  phone.wait(0.1);
  stop();
  const Animation animation = decode(path());
  for (const auto& [milliseconds, picture] : screenshots)
    EXPECT_EQ(difference(animation.frameAt(milliseconds), *picture), 0) << milliseconds;
  EXPECT_GT(difference(animation.frameAt(0), *screenshots[400]), 1);
}

TEST_F(Recording, ResemblesTheScreenAtTheDefaultQuality) {
  const int controller = phone.present();
  phone.wait(1);
  start();
  // The screen behind a long look is blurred slowly. The differences between two frames are small.
  phone.run("longlook", {{"controller", controller}});
  phone.wait(1);
  const auto picture = screenshot();
  phone.wait(0.1);
  stop();
  const double error = difference(decode(path()).frameAt(1000), *picture);
  EXPECT_GT(error, 0);
  EXPECT_LT(error, 1.5);
}

TEST_F(Recording, ShowsTheEffectsOfCommandsThatRunMeanwhile) {
  start({{"quality", 100}});
  const int controller = phone.present();
  phone.wait(1);
  phone.run("drag", {{"controller", controller}, {"by", {0, -100}}});
  phone.wait(1);
  stop();
  const Animation animation = decode(path());
  EXPECT_NE(animation.frameAt(900).rgba, animation.frameAt(0).rgba);
  EXPECT_EQ(animation.frameAt(1900).rgba, animation.frameAt(0).rgba);
}

class LiveRecording : public Recording {
 protected:
  LiveRecording() : Recording({.clock = foundation::ClockMode::Real}) {}
};

TEST_F(LiveRecording, LastsForTheRealTimeAndHandlesOtherWork) {
  foundation::onMainThreadAfter(0.1, [this] { phone.present(); });
  const auto before = std::chrono::steady_clock::now();
  const Json answer = phone.run("record", {{"path", path().string()}, {"seconds", 1.5}});
  EXPECT_GE(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(1500));
  EXPECT_DOUBLE_EQ(answer.at("seconds").get<double>(), 1.5);
  const Animation animation = decode(path());
  EXPECT_GT(animation.frames.size(), 1U);
  EXPECT_LT(animation.frames.size(), 60U);
  EXPECT_EQ(animation.frames.back().end, 1500);
  EXPECT_NE(animation.frames.back().rgba, animation.frames.front().rgba);
}

// Runs the program with this script on a new root in a folder. Returns its exit status.
int runProgram(const fs::path& folder, const std::string& script) {
  fs::create_directories(folder);
  std::ofstream(folder / "script") << script;
  return WEXITSTATUS(
      std::system(("cd '" + folder.string() +
                   "' && " SPRINGBOARD " --root root --without-brim --time 2020-03-14T09:41 --script script >out 2>err")
                      .c_str()));
}

TEST(RecordingProgram, WritesTheSameBytesInEveryRun) {
  const test::TemporaryFolder folder;
  const std::string script = R"({"do":"startrecording","path":"a.webp"}
{"do":"present","section":"com.apple.MobileSMS","title":"Anna"}
{"do":"wait","seconds":1}
{"do":"stoprecording"}
)";
  for (const char* run : {"first", "second"}) ASSERT_EQ(runProgram(folder.path() / run, script), 0);
  const std::string bytes = contentsOf(folder.path() / "first/a.webp");
  EXPECT_GT(bytes.size(), 1000U);
  EXPECT_EQ(bytes, contentsOf(folder.path() / "second/a.webp"));
}

TEST(RecordingProgram, ReportsARecordingThatWasNotEnded) {
  const test::TemporaryFolder folder;
  EXPECT_EQ(runProgram(folder.path(), R"({"do":"startrecording","path":"a.webp"})"), 1);
  const std::string errors = contentsOf(folder.path() / "err");
  EXPECT_NE(errors.find("the recording a.webp was not written"), std::string::npos) << errors;
  for (const std::string& name : filesIn(folder.path())) EXPECT_FALSE(name.starts_with("a.webp")) << name;
}

}  // namespace
