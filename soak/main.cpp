// The soak test: presents many notifications on one home screen, and checks that they leave no resource in use. See
// docs/soak.md.
#include <fcntl.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <thread>
#include <vector>

#include "objc/autorelease_pool.hpp"
#include "platform/ui_view.hpp"
#include "simulator/runner/session.hpp"
#include "soak/options.hpp"
#include "soak/phone_resources.hpp"
#include "soak/random_notifications.hpp"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

// The resources are measured for the first time after at most this number of notifications. A short run measures them
// after a third of its notifications.
constexpr std::size_t maxFirstNotifications = 1000;
// The noise of the memory is the range of this number of measurements, with a few notifications between them.
constexpr std::size_t noiseMeasurements = 10;
constexpr std::size_t realTimeNoiseMeasurements = 3;
constexpr std::size_t notificationsBetweenMeasurements = 20;
constexpr double memoryToleranceInNoise = 3;
// The noise that was measured in runs with 150 notifications is between 12 and 310 KiB. The tolerance has a minimum,
// because a run whose noise happens to be low must not fail for this reason.
constexpr double minMemoryTolerance = 512 * 1024;
// The phone stores the last state of each of the latest 100,000 banners, in this number of bytes.
constexpr double bytesOfLastState = 16;
// In real time, the resources are measured for the first time after the first fraction of the duration, and then at
// intervals of the second fraction.
constexpr double firstPartOfDuration = 0.4;
constexpr double partBetweenMeasurements = 0.1;

double secondsSince(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

void retainResources() {
  const objc::AutoreleasePool pool;
  objc::make<UIView>().leak();
  constexpr std::size_t retainedBytes = 16 << 20;
  static const std::vector<char>& retained = *new std::vector<char>(retainedBytes, 'x');
  static_cast<void>(retained);
  if (open("/dev/null", O_RDONLY | O_CLOEXEC) < 0) throw std::runtime_error("cannot open /dev/null");
  std::thread([] { pause(); }).detach();
}

struct Baseline {
  soak::Resources resources;
  double memoryNoise = 0;
};

// Measures the resources several times. The baseline has the highest measured memory.
Baseline measureBaseline(std::size_t measurements, const std::function<void()>& presentFew) {
  Baseline baseline;
  double lowest = 0;
  for (std::size_t round = 0; round < measurements; ++round) {
    presentFew();
    soak::Resources measured = soak::measureResources();
    lowest = round == 0 ? measured.memory : std::min(lowest, measured.memory);
    measured.memory = std::max(measured.memory, baseline.resources.memory);
    for (auto& [name, count] : measured.objects) count = std::max(count, baseline.resources.objects[name]);
    baseline.resources = std::move(measured);
  }
  baseline.memoryNoise = baseline.resources.memory - lowest;
  return baseline;
}

// Returns whether no resource has increased. `notifications` is the number of notifications since the baseline.
bool isUnchanged(const Baseline& baseline, std::size_t notifications) {
  const soak::Resources last = soak::measureResources();
  const double tolerance = std::max(memoryToleranceInNoise * baseline.memoryNoise, minMemoryTolerance) +
                           bytesOfLastState * static_cast<double>(notifications);
  std::printf(
      "  memory %.0f KiB -> %.0f KiB, noise %.0f KiB, tolerance %.0f KiB; descriptors %zu -> %zu; threads %zu -> %zu\n",
      baseline.resources.memory / 1024, last.memory / 1024, baseline.memoryNoise / 1024, tolerance / 1024,
      baseline.resources.descriptors, last.descriptors, baseline.resources.threads, last.threads);
  const std::vector<std::string> increases = soak::increasesBetween(baseline.resources, last, tolerance);
  for (const std::string& increase : increases) std::printf("  increased: %s\n", increase.c_str());
  return increases.empty();
}

void prepare(runner::Session& session) {
  for (const char* line :
       {R"({"do":"set","key":"showButtons","value":true})", R"({"do":"contacts","path":")" SOAK_CONTACTS R"("})"}) {
    const nlohmann::ordered_json answer = session.runLine(line);
    if (!answer.at("ok")) throw std::runtime_error(answer.dump());
  }
}

bool soakOnSteppedClock(runner::Session& session, const soak::Options& options) {
  const auto start = Clock::now();
  soak::RandomNotifications phone(session, *options.seed);
  const std::size_t first = std::min(maxFirstNotifications, options.notifications / 3);
  std::size_t count = 0;
  const auto presentMany = [&](std::size_t notifications) {
    for (std::size_t index = 0; index < notifications; ++index, ++count) phone.presentAndComplete();
    phone.reset();
  };
  prepare(session);
  soak::startCountingObjects();
  phone.completeEach(soak::applications());
  presentMany(first);
  const Baseline baseline = measureBaseline(
      noiseMeasurements, [&] { presentMany(std::min(notificationsBetweenMeasurements, first / 10 + 1)); });
  const std::size_t measured = count;
  if (options.grows) retainResources();
  if (options.notifications > count) presentMany(options.notifications - count);
  std::printf("stepped clock: %zu notifications in %.0f s\n", count, secondsSince(start));
  for (const auto& [outcome, times] : phone.outcomes()) std::printf("  %s: %zu\n", outcome.c_str(), times);
  return isUnchanged(baseline, count - measured);
}

// Presents the next notification as soon as the phone has executed all work that was due. This is the highest rate at
// which no work accumulates.
bool soakInRealTime(runner::Session& session, const soak::Options& options) {
  soak::RandomNotifications phone(session, *options.seed);
  std::size_t count = 0;
  double presentingSeconds = 0;
  const auto presentFor = [&](double seconds) {
    const auto start = Clock::now();
    while (secondsSince(start) < seconds) {
      phone.presentOnly();
      session.run({{"do", "wait"}, {"seconds", 0}});
      ++count;
    }
    presentingSeconds += secondsSince(start);
    phone.reset();
  };
  prepare(session);
  soak::startCountingObjects();
  // Only one application is used, because on the real clock the outcomes for all applications would take minutes.
  phone.completeEach(soak::applications().first(1));
  presentFor(options.seconds * firstPartOfDuration);
  const Baseline baseline =
      measureBaseline(realTimeNoiseMeasurements, [&] { presentFor(options.seconds * partBetweenMeasurements); });
  const std::size_t measured = count;
  presentFor(options.seconds * (1 - firstPartOfDuration - partBetweenMeasurements * realTimeNoiseMeasurements));
  std::printf("real time: %zu notifications, %.0f per second\n", count, static_cast<double>(count) / presentingSeconds);
  return isUnchanged(baseline, count - measured);
}

using Run = bool (*)(runner::Session&, const soak::Options&);

// Runs in a child process, because a process can contain only one phone.
bool runWithPhone(foundation::ClockMode clock, Run run, const soak::Options& options) {
  std::fflush(stdout);
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("cannot create a process");
  if (child > 0) {
    int status = 0;
    waitpid(child, &status, 0);
    return status == 0;
  }
  std::string pattern = (fs::temp_directory_path() / "brim-soak-XXXXXX").string();
  const fs::path folder = mkdtemp(pattern.data());
  bool succeeded = false;
  try {
    runner::Options phone;
    phone.root = folder / "root";
    phone.clock = clock;
    runner::Session session(phone);
    succeeded = run(session, options);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "soak: %s\n", error.what());
  }
  std::error_code ignored;
  fs::remove_all(folder, ignored);
  std::fflush(stdout);
  _exit(succeeded ? 0 : 1);
}

}  // namespace

int main(int count, char** arguments) try {
  std::optional<soak::Options> options = soak::parseOptions({arguments + 1, static_cast<std::size_t>(count - 1)});
  if (!options) {
    std::fputs(soak::helpText, stderr);
    return 2;
  }
  if (options->showsHelp) {
    std::fputs(soak::helpText, stdout);
    return 0;
  }
  if (!options->seed) options->seed = std::random_device()();
  std::printf("seed %llu\n", static_cast<unsigned long long>(*options->seed));
  bool succeeded = runWithPhone(foundation::ClockMode::Stepped, &soakOnSteppedClock, *options);
  if (options->seconds > 0 && !runWithPhone(foundation::ClockMode::Real, &soakInRealTime, *options)) succeeded = false;
  std::puts(succeeded ? "no resource has increased" : "resources have increased");
  return succeeded ? 0 : 1;
} catch (const std::exception& error) {
  std::fprintf(stderr, "soak: %s\n", error.what());
  return 1;
}
