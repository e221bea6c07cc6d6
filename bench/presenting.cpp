#include "bench/presenting.hpp"

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

// The picture in which a banner has arrived, with nothing known of the screen or with the one before.
enum class Picture { Whole, Changes };

// A banner from the platform's call to its picture.
double presentToPicture(runner::Session& session, std::size_t round, Picture picture) {
  const double start = processorTime();
  present(session, round);
  session.run({{"do", "wait"}, {"seconds", 1}});
  (picture == Picture::Whole ? uikit::paintScreen : uikit::renderScreen)(uikit::environment().device.scale);
  return processorTime() - start;
}

// The time of every round, then the memory after the early rounds and after all.
Figures presentMany(process::LibraryUse library, Picture picture) {
  const std::filesystem::path folder = makeFolder();
  Figures figures;
  {
    runner::Options options;
    options.root = folder / "root";
    options.library = library;
    runner::Session session(options);
    double early = 0;
    for (std::size_t round = 0; round < rounds; ++round) {
      figures.push_back(presentToPicture(session, round, picture));
      session.run({{"do", "wait"}, {"seconds", 6}});
      session.run({{"do", "log"}});
      if (round + 1 == earlyRounds) early = residentMemory();
    }
    figures.push_back(early);
    figures.push_back(residentMemory());
  }
  std::filesystem::remove_all(folder);
  return figures;
}

Figures slice(const Figures& figures, std::size_t from, std::size_t count) {
  const auto begin = figures.begin() + static_cast<std::ptrdiff_t>(from);
  return {begin, begin + static_cast<std::ptrdiff_t>(count)};
}

// With the library and without.
std::pair<Figures, Figures> presentBoth(Picture picture) {
  return {inProcessOfItsOwn([picture] { return presentMany(process::LibraryUse::Mapped, picture); }),
          inProcessOfItsOwn([picture] { return presentMany(process::LibraryUse::Absent, picture); })};
}

double ratio(const std::pair<Figures, Figures>& both) {
  return median(slice(both.first, 0, rounds)) / median(slice(both.second, 0, rounds));
}

}  // namespace

void measurePresenting() {
  report("presenting with Brim / without, painting the screen", ratio(presentBoth(Picture::Whole)), 1.5);
  const std::pair<Figures, Figures> both = presentBoth(Picture::Changes);
  const Figures& with = both.first;
  report("presenting with Brim / without, painting what changed", ratio(both), 1.5);
  // The very first round of a process also loads fonts and pictures, so the early ones are taken together.
  report("the last ten banners / the first ten",
         median(slice(with, rounds - earlyRounds, earlyRounds)) / median(slice(with, 0, earlyRounds)), 1.0);
  report("memory after 1,000 banners / after 10", with[rounds + 1] / with[rounds], 1.05);
}

}  // namespace bench
