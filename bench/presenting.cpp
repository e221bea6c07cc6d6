#include "bench/benchmarks.hpp"

#include <stdlib.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

#include "bench/measurement.hpp"
#include "simulator/runner/session.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/rendering/renderer.hpp"

namespace bench {

namespace {

constexpr std::size_t rounds = 1000;
constexpr std::size_t earlyRounds = 10;

std::filesystem::path makeFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "brim-bench-XXXXXX").string();
  return mkdtemp(pattern.data());
}

void present(runner::Session& session, std::size_t round) {
  session.run({{"do", "present"},
               {"section", "com.apple.MobileSMS"},
               {"title", "Anna Weber"},
               {"message", "Message number " + std::to_string(round) + ": are we still on for lunch today?"}});
}

// The part of the screen that is painted: the whole screen, or only the changes since the last picture.
enum class Painting { Complete, Changes };

// Returns the time, in seconds, from the presentation of a notification until a picture with its banner is painted.
double timeToPicture(runner::Session& session, std::size_t round, Painting painting) {
  const double start = processorTime();
  present(session, round);
  session.run({{"do", "wait"}, {"seconds", 1}});
  (painting == Painting::Complete ? uikit::paintScreen : uikit::renderScreen)(uikit::environment().device.scale);
  return processorTime() - start;
}

// Presents a notification in each round. Returns the time of each round in seconds, followed by the memory use in bytes
// after the early rounds and after all rounds.
Figures presentMany(process::LibraryUse library, Painting painting) {
  const std::filesystem::path folder = makeFolder();
  Figures figures;
  {
    runner::Options options;
    options.root = folder / "root";
    options.library = library;
    runner::Session session(options);
    double earlyMemory = 0;
    for (std::size_t round = 0; round < rounds; ++round) {
      figures.push_back(timeToPicture(session, round, painting));
      session.run({{"do", "wait"}, {"seconds", 6}});
      session.run({{"do", "log"}});
      if (round + 1 == earlyRounds) earlyMemory = residentMemory();
    }
    figures.push_back(earlyMemory);
    figures.push_back(residentMemory());
  }
  std::filesystem::remove_all(folder);
  return figures;
}

Figures slice(const Figures& figures, std::size_t from, std::size_t count) {
  const auto begin = figures.begin() + static_cast<std::ptrdiff_t>(from);
  return {begin, begin + static_cast<std::ptrdiff_t>(count)};
}

// Returns the figures of presentMany() with the library and without it.
std::pair<Figures, Figures> presentBoth(Painting painting) {
  return {inChildProcess([painting] { return presentMany(process::LibraryUse::Loaded, painting); }),
          inChildProcess([painting] { return presentMany(process::LibraryUse::Absent, painting); })};
}

double ratio(const std::pair<Figures, Figures>& both) {
  return median(slice(both.first, 0, rounds)) / median(slice(both.second, 0, rounds));
}

}  // namespace

void measurePresenting() {
  report("presenting with Brim / without, painting the screen", ratio(presentBoth(Painting::Complete)), 1.5);
  const std::pair<Figures, Figures> both = presentBoth(Painting::Changes);
  const Figures& with = both.first;
  report("presenting with Brim / without, painting changes", ratio(both), 1.5);
  // The first round also loads fonts and pictures, so the median of several early rounds is used.
  report("time of the last 10 banners / the first 10",
         median(slice(with, rounds - earlyRounds, earlyRounds)) / median(slice(with, 0, earlyRounds)), 1.0);
  report("memory after 1,000 banners / after 10", with[rounds + 1] / with[rounds], 1.05);
}

}  // namespace bench
