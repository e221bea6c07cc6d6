// Tests of the commands that record the screen. The recordings are decoded with the decoder of the WebP library.
#include <sys/resource.h>
#include <sys/stat.h>
#include <webp/demux.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <memory>

#include "simulator/drawing/image.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "tests/support/plain_phone.hpp"

namespace {

namespace fs = std::filesystem;
using test::Json;
using test::PlainPhone;

std::string contentsOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

struct Frame {
  int end = 0;                     // the time in milliseconds at which the frame ends
  std::vector<std::uint8_t> rgba;  // the pixels from left to right and from top to bottom
};

struct Animation {
  int width = 0;
  int height = 0;
  std::uint32_t loops = 1;  // 0 means endless
  std::vector<Frame> frames;

  std::vector<int> ends() const {
    std::vector<int> times;
    for (const Frame& frame : frames) times.push_back(frame.end);
    return times;
  }
  // Returns the frame that is visible at this time.
  const Frame& frameAt(int milliseconds) const {
    const auto found = std::find_if(frames.begin(), frames.end(),
                                    [milliseconds](const Frame& frame) { return frame.end > milliseconds; });
    return found == frames.end() ? throw std::runtime_error("the animation is too short") : *found;
  }
};

Animation decode(const fs::path& path) {
  const std::string bytes = contentsOf(path);
  const WebPData data = {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()};
  const std::unique_ptr<WebPAnimDecoder, decltype(&WebPAnimDecoderDelete)> decoder(WebPAnimDecoderNew(&data, nullptr),
                                                                                   &WebPAnimDecoderDelete);
  if (decoder == nullptr) throw std::runtime_error(path.string() + " is not a WebP file");
  WebPAnimInfo info;
  WebPAnimDecoderGetInfo(decoder.get(), &info);
  Animation animation = {
      static_cast<int>(info.canvas_width), static_cast<int>(info.canvas_height), info.loop_count, {}};
  while (WebPAnimDecoderHasMoreFrames(decoder.get()) != 0) {
    std::uint8_t* pixels = nullptr;
    int end = 0;
    if (WebPAnimDecoderGetNext(decoder.get(), &pixels, &end) == 0) throw std::runtime_error("a frame is damaged");
    animation.frames.push_back({end, {pixels, pixels + std::size_t{4} * info.canvas_width * info.canvas_height}});
  }
  return animation;
}

// Returns the mean difference of the color components, from 0 to 255.
double difference(const Frame& frame, const drawing::Image& picture) {
  double sum = 0;
  std::size_t index = 0;
  for (int y = 0; y < picture.pixelHeight(); ++y) {
    for (int x = 0; x < picture.pixelWidth(); ++x, index += 4) {
      const std::uint32_t pixel = picture.pixel(x, y);
      for (unsigned component = 0; component < 3; ++component)
        sum += std::abs(static_cast<int>(pixel >> (16 - 8 * component) & 0xFF) - frame.rgba[index + component]);
    }
  }
  return sum / 3 / picture.pixelWidth() / picture.pixelHeight();
}

std::vector<std::string> filesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename());
  return names;
}

// A phone, and an empty folder for its recordings.
class Recording : public testing::Test {
 protected:
  explicit Recording(runner::Options options = {}) : phone(std::move(options)) { fs::create_directory(folder()); }

  fs::path folder() const { return phone.folder() / "recordings"; }
  fs::path path(const char* name = "a.webp") const { return folder() / name; }
  void start(const Json& fields = Json::object()) {
    Json command = {{"do", "startrecording"}, {"path", path().string()}};
    command.update(fields);
    phone.run(command);
  }
  Json stop() { return phone.run("stoprecording"); }
  std::string errorOf(const Json& command) { return phone.answer(command).value("error", ""); }
  std::shared_ptr<const drawing::Image> screenshot() {
    const fs::path file = phone.folder() / "screenshot.png";
    phone.run("screenshot", {{"path", file.string()}, {"scale", 1}});
    return drawing::loadImage(file);
  }

  PlainPhone phone;
};

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

TEST_F(Recording, EqualFramesExtendTheFirstOfThem) {
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

TEST_F(Recording, OfAScreenThatDoesNotChangeIsAPicture) {
  phone.run("record", {{"path", path().string()}, {"seconds", 2}, {"quality", 100}});
  const Animation animation = decode(path());
  ASSERT_EQ(animation.frames.size(), 1U);
  EXPECT_EQ(difference(animation.frames[0], *screenshot()), 0);
}

TEST_F(Recording, IsExactWithTheMaximumQuality) {
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

TEST_F(Recording, IsCloseToTheScreenWithTheDefaultQuality) {
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

TEST_F(Recording, ShowsTheCommandsThatRunDuringIt) {
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

struct Refusal {
  Json command;
  const char* reason;
};

TEST_F(Recording, ErrorsNameTheReason) {
  const std::string folderPath = folder().string();
  const std::string pipe = (phone.folder() / "pipe").string();
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const Refusal refusals[] = {
      {{{"do", "record"}}, "record requires \"path\""},
      {{{"do", "startrecording"}}, "startrecording requires \"path\""},
      {{{"do", "startrecording"}, {"path", ""}}, "not empty"},
      {{{"do", "startrecording"}, {"path", path().string()}, {"seconds", 1}}, "has no field \"seconds\""},
      {{{"do", "record"}, {"path", path().string()}, {"seconds", 0}}, "above 0, at most 60"},
      {{{"do", "record"}, {"path", path().string()}, {"seconds", 60.1}}, "above 0, at most 60"},
      {{{"do", "record"}, {"path", path().string()}, {"seconds", "1"}}, "above 0, at most 60"},
      {{{"do", "record"}, {"path", path().string()}, {"scale", 0}}, "above 0, at most 3"},
      {{{"do", "record"}, {"path", path().string()}, {"scale", 3.1}}, "above 0, at most 3"},
      {{{"do", "record"}, {"path", path().string()}, {"quality", 0}}, "an integer from 1 to 100"},
      {{{"do", "record"}, {"path", path().string()}, {"quality", 101}}, "an integer from 1 to 100"},
      {{{"do", "record"}, {"path", path().string()}, {"quality", 50.5}}, "an integer from 1 to 100"},
      {{{"do", "record"}, {"path", folderPath}}, "it is a folder"},
      {{{"do", "record"}, {"path", pipe}}, "it is not a regular file"},
      {{{"do", "record"}, {"path", folderPath + "/missing/a.webp"}}, "No such file or directory"},
      {{{"do", "startrecording"}, {"path", folderPath + "/missing/a.webp"}}, "No such file or directory"},
      {{{"do", "stoprecording"}}, "no recording is running; start one with the command startrecording"},
  };
  const double before = foundation::now();
  for (const Refusal& refusal : refusals) {
    const std::string error = errorOf(refusal.command);
    EXPECT_NE(error.find(refusal.reason), std::string::npos) << refusal.command << " was answered with " << error;
  }
  EXPECT_TRUE(fs::is_fifo(pipe));
  EXPECT_TRUE(filesIn(folder()).empty());
  EXPECT_EQ(foundation::now(), before);
}

TEST_F(Recording, OnlyOneRunsAtATime) {
  start();
  const std::string error = errorOf({{"do", "startrecording"}, {"path", path("b.webp").string()}});
  EXPECT_NE(error.find(path().string() + " is running; only one recording"), std::string::npos) << error;
  EXPECT_NE(errorOf({{"do", "record"}, {"path", path("b.webp").string()}}).find("is running"), std::string::npos);
  phone.wait(0.1);
  stop();
  EXPECT_EQ(filesIn(folder()), std::vector<std::string>{"a.webp"});
  EXPECT_NE(errorOf({{"do", "stoprecording"}}).find("no recording is running"), std::string::npos);
}

// On a live phone, other clients' commands are executed during `record`.
TEST_F(Recording, OfRecordIsEndedOnlyByRecord) {
  std::string error;
  foundation::onMainThreadAfter(0.5, [&] { error = errorOf({{"do", "stoprecording"}}); });
  const Json answer = phone.run("record", {{"path", path().string()}, {"seconds", 1}});
  EXPECT_NE(error.find("was started by the command record, which ends it"), std::string::npos) << error;
  EXPECT_DOUBLE_EQ(answer.at("seconds").get<double>(), 1);
}

TEST_F(Recording, CanLastAMinute) {
  start();
  phone.wait(60);
  EXPECT_DOUBLE_EQ(stop().at("seconds").get<double>(), 60);
}

TEST_F(Recording, ThatLastsLongerIsNotWritten) {
  std::ofstream(path()) << "old";
  start();
  phone.wait(60.1);
  const std::string error = errorOf({{"do", "stoprecording"}});
  EXPECT_NE(error.find("maximum of 60 seconds"), std::string::npos) << error;
  EXPECT_EQ(contentsOf(path()), "old");
  EXPECT_EQ(filesIn(folder()).size(), 1U);
  start();
  phone.wait(0.1);
  stop();
  EXPECT_NE(contentsOf(path()), "old");
}

TEST_F(Recording, FullDiskKeepsTheOldFile) {
  std::ofstream(path()) << "old";
  start();
  phone.wait(0.1);
  rlimit previous{};
  getrlimit(RLIMIT_FSIZE, &previous);
  const rlimit limit = {100, previous.rlim_max};
  std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &limit);
  const std::string error = errorOf({{"do", "stoprecording"}});
  setrlimit(RLIMIT_FSIZE, &previous);
  EXPECT_NE(error.find(path().string() + " was not written: cannot write"), std::string::npos) << error;
  EXPECT_EQ(contentsOf(path()), "old");
  EXPECT_EQ(filesIn(folder()).size(), 1U);
}

TEST_F(Recording, FolderThatIsRemovedIsAnError) {
  start();
  phone.wait(0.1);
  fs::remove(folder());
  const std::string error = errorOf({{"do", "stoprecording"}});
  EXPECT_NE(error.find("No such file or directory"), std::string::npos) << error;
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
