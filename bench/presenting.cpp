#include "bench/presenting.hpp"

#include <stdlib.h>

#include <filesystem>
#include <string>

#include "bench/measurement.hpp"
#include "simulator/host/session.hpp"
#include "simulator/uikit/environment.hpp"
#include "simulator/uikit/renderer.hpp"

namespace bench {

namespace {

constexpr std::size_t rounds = 1000;
constexpr std::size_t earlyRounds = 10;

std::filesystem::path makeFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "brim-bench-XXXXXX").string();
  return mkdtemp(pattern.data());
}

void present(host::Session& session, std::size_t round) {
  session.run({{"do", "present"},
               {"section", "com.apple.MobileSMS"},
               {"title", "Anna Weber"},
               {"message", "Message number " + std::to_string(round) + ": are we still on for lunch today?"}});
}

// A banner from the platform's call to the first picture in which it has arrived.
double presentToPicture(host::Session& session, std::size_t round) {
  const double start = processorTime();
  present(session, round);
  session.run({{"do", "wait"}, {"seconds", 1}});
  uikit::renderScreen(uikit::environment().device.scale);
  return processorTime() - start;
}

// The time of every round, then the memory after the early rounds and after all.
Figures presentMany(host::LibraryUse library) {
  const std::filesystem::path folder = makeFolder();
  Figures figures;
  {
    host::Options options;
    options.root = folder / "root";
    options.library = library;
    host::Session session(options);
    double early = 0;
    for (std::size_t round = 0; round < rounds; ++round) {
      figures.push_back(presentToPicture(session, round));
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

}  // namespace

void measurePresenting() {
  const Figures with = inProcessOfItsOwn([] { return presentMany(host::LibraryUse::Mapped); });
  const Figures without = inProcessOfItsOwn([] { return presentMany(host::LibraryUse::Absent); });
  report("presenting with Brim / without", median(slice(with, 0, rounds)) / median(slice(without, 0, rounds)), 1.5);
  // The very first round of a process also loads fonts and pictures, so the early ones are taken together.
  report("the last ten banners / the first ten",
         median(slice(with, rounds - earlyRounds, earlyRounds)) / median(slice(with, 0, earlyRounds)), 1.0);
  report("memory after 1,000 banners / after 10", with[rounds + 1] / with[rounds], 1.05);
}

}  // namespace bench
