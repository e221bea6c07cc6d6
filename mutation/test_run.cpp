#include "mutation/test_run.hpp"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstring>
#include <fstream>
#include <nlohmann/json.hpp>
#include <regex>
#include <stdexcept>
#include <thread>

#include "mutation/files.hpp"
#include "mutation/worker_processes.hpp"

namespace mutation {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds pollingInterval(3);

double secondsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

[[noreturn]] void execute(const Test& test, const RunLimits& limits, const fs::path& output) {
  setpgid(0, 0);
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
  const int written = test.passExpressions.empty()
                          ? open("/dev/null", O_WRONLY)
                          : open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND, 0644);
  for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) dup2(written, stream);
  for (const std::string& variable : test.environment) putenv(const_cast<char*>(variable.c_str()));
  const auto seconds = static_cast<rlim_t>(std::ceil(limits.processorSeconds));
  const rlimit processor = {seconds, seconds + 1};
  const rlimit cores = {0, 0};
  setrlimit(RLIMIT_CPU, &processor);
  setrlimit(RLIMIT_CORE, &cores);
  std::vector<char*> arguments;
  for (const std::string& argument : test.command) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  if (chdir(test.folder.c_str()) == 0) execv(arguments[0], arguments.data());
  _exit(127);
}

bool isPassed(const Test& test, int status, const fs::path& output) {
  if (test.passExpressions.empty()) return WIFEXITED(status) && WEXITSTATUS(status) == 0;
  const std::string text = readFile(output);
  return std::ranges::any_of(test.passExpressions, [&](const std::string& expression) {
    return std::regex_search(text, std::regex(expression, std::regex::extended));
  });
}

}  // namespace

std::vector<Test> listTests(const fs::path& configured) {
  const CommandResult listed = runCommand("cd '" + configured.string() + "' && ctest --show-only=json-v1");
  if (listed.status != 0) throw std::runtime_error("CTest cannot list the tests:\n" + listed.output);
  std::vector<Test> tests;
  const auto json = nlohmann::json::parse(listed.output);
  for (const auto& entry : json.at("tests")) {
    if (!entry.contains("command"))
      throw std::runtime_error("a test is not built: " + entry.at("name").get<std::string>());
    Test test = {entry.at("name"), entry.at("command"), configured.string()};
    bool isDisabled = false;
    for (const auto& property : entry.at("properties")) {
      if (property.at("name") == "WORKING_DIRECTORY") test.folder = property.at("value");
      if (property.at("name") == "DISABLED") isDisabled = property.at("value");
      if (property.at("name") == "ENVIRONMENT") test.environment = property.at("value");
      if (property.at("name") == "PASS_REGULAR_EXPRESSION") test.passExpressions = property.at("value");
    }
    if (!isDisabled) tests.push_back(std::move(test));
  }
  return tests;
}

TestFolder::TestFolder(const fs::path& configured, fs::path folder, fs::path temporary)
    : folder_(std::move(folder)), temporary_(std::move(temporary)) {
  fs::create_directories(folder_ / "lib/brim");
  fs::create_directories(temporary_);
  const auto addLink = [](const fs::path& target, const fs::path& link) {
    fs::remove(link);
    fs::create_symlink(target, link);
  };
  for (const char* name : {"bin", "share"}) addLink(configured / name, folder_ / name);
  for (const auto& entry : fs::directory_iterator(configured / "lib/brim"))
    if (entry.path().filename() != "libBrim.so") addLink(entry.path(), folder_ / "lib/brim" / entry.path().filename());
}

void TestFolder::useLibrary(const fs::path& library) const {
  const fs::path link = folder_ / "lib/brim/libBrim.so";
  fs::remove(link);
  fs::create_symlink(library, link);
}

TestRun TestFolder::run(const Test& test, unsigned selected, std::size_t count, const RunLimits& limits) const {
  adoptOrphans();
  const fs::path reach = folder_ / "reach";
  {
    std::string text(2 * sizeof(std::uint64_t) + count, '\0');
    std::memcpy(text.data() + sizeof(std::uint64_t), &limits.calls, sizeof(std::uint64_t));
    std::ofstream(reach, std::ios::binary) << text;
  }
  setenv("BRIM_MUTANT", std::to_string(selected).c_str(), 1);
  setenv("BRIM_MUTANT_REACH", reach.c_str(), 1);
  setenv("LD_LIBRARY_PATH", (folder_ / "lib/brim").c_str(), 1);
  setenv("TMPDIR", temporary_.c_str(), 1);
  const Clock::time_point start = Clock::now();
  const fs::path output = folder_ / "output";
  const pid_t process = fork();
  if (process < 0) throw std::runtime_error("a test cannot be started");
  if (process == 0) execute(test, limits, output);
  const auto elapsed = [&] { return std::chrono::duration<double>(Clock::now() - start).count(); };
  TestRun result;
  int status = 0;
  rusage usage = {};
  while (wait4(process, &status, WNOHANG, &usage) == 0) {
    if (elapsed() > limits.seconds) {
      result.outcome = Outcome::TooLong;
      kill(process, SIGKILL);
      wait4(process, &status, 0, &usage);
      break;
    }
    std::this_thread::sleep_for(pollingInterval);
  }
  result.seconds = elapsed();
  result.processorSeconds = secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime);
  endChildren();
  for (const auto& entry : fs::directory_iterator(temporary_)) {
    std::error_code ignored;
    fs::remove_all(entry.path(), ignored);
  }
  const std::string text = readFile(reach);
  std::memcpy(&result.calls, text.data(), sizeof(std::uint64_t));
  result.reached.resize(count);
  for (std::size_t number = 0; number < count; ++number)
    result.reached[number] = text[2 * sizeof(std::uint64_t) + number] != 0;
  if (isPassed(test, status, output)) {
    result.outcome = Outcome::Passed;
  } else if (result.calls > limits.calls) {
    result.outcome = Outcome::TooManyCalls;
  } else if (WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU) {
    result.outcome = Outcome::TooLong;
  }
  return result;
}

}  // namespace mutation
