// Tests of the errors and limits of the commands that record the screen.
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <fstream>

#include "simulator/foundation/main_queue.hpp"
#include "tests/script/recording_fixture.hpp"

namespace {

namespace fs = std::filesystem;
using test::contentsOf;
using test::filesIn;
using test::Json;
using test::Recording;

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
TEST_F(Recording, StartedByRecordIsNotEndedByStopRecording) {
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

TEST_F(Recording, IsNotWrittenIfItLastsLongerThanAMinute) {
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

TEST_F(Recording, RemovedFolderIsAnError) {
  start();
  phone.wait(0.1);
  fs::remove(folder());
  const std::string error = errorOf({{"do", "stoprecording"}});
  EXPECT_NE(error.find("No such file or directory"), std::string::npos) << error;
}

}  // namespace
