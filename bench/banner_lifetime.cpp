#include "bench/benchmarks.hpp"

#include <malloc.h>
#include <stdlib.h>

#include <filesystem>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>

#include "bench/measurement.hpp"
#include "simulator/runner/session.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/rendering/renderer.hpp"

namespace bench {

namespace {

constexpr std::size_t moves = 200;
constexpr std::size_t rounds = 10000;
constexpr std::size_t thousand = 1000;

// Runs a measurement with a new phone, whose root is in a temporary folder.
Figures withPhone(const std::function<Figures(runner::Session&)>& measurement) {
  std::string pattern = (std::filesystem::temp_directory_path() / "brim-bench-XXXXXX").string();
  const std::filesystem::path folder = mkdtemp(pattern.data());
  Figures figures;
  {
    runner::Options options;
    options.root = folder / "root";
    runner::Session session(options);
    figures = measurement(session);
  }
  std::filesystem::remove_all(folder);
  return figures;
}

void present(runner::Session& session, const std::string& message) {
  session.run({{"do", "present"}, {"section", "com.apple.MobileSMS"}, {"title", "Anna Weber"}, {"message", message}});
}

void paint() { uikit::renderScreen(uikit::environment().device.scale); }

double timeOf(const std::function<void()>& work) {
  const double start = processorTime();
  work();
  return processorTime() - start;
}

// Drags a banner. Returns the median times, in seconds, of a move with repainting, of a move without repainting, and of
// painting the whole screen.
Figures dragMoves(runner::Session& session) {
  present(session, "Are we still on for lunch today?");
  session.run({{"do", "wait"}, {"seconds", 1}});
  session.run({{"do", "drag"}, {"by", {0, -12}}, {"steps", 1}, {"end", "hold"}});
  paint();
  Figures repainted;
  Figures alone;
  Figures whole;
  for (std::size_t move = 0; move < moves; ++move) {
    const auto step = [&] {
      session.run({{"do", "drag"}, {"by", {0, move % 2 == 0 ? -4 : 4}}, {"steps", 1}, {"end", "hold"}});
    };
    const double moved = timeOf(step);
    alone.push_back(moved);
    repainted.push_back(moved + timeOf(&paint));
    whole.push_back(timeOf([] { uikit::paintScreen(uikit::environment().device.scale); }));
  }
  return {median(repainted), median(alone), median(whole)};
}

// Presents one banner in each round. Returns the time of the first thousand rounds, of the rounds in between and of the
// last thousand rounds, in seconds. Each time is followed by the allocated memory in bytes.
Figures presentMany(runner::Session& session) {
  Figures figures;
  double start = processorTime();
  for (std::size_t round = 1; round <= rounds; ++round) {
    present(session, "Message number " + std::to_string(round));
    session.run({{"do", "wait"}, {"seconds", 7}});
    session.run({{"do", "log"}});
    if (round != thousand && round != rounds && round != rounds - thousand) continue;
    figures.push_back(processorTime() - start);
    figures.push_back(static_cast<double>(mallinfo2().uordblks));
    start = processorTime();
  }
  return figures;
}

}  // namespace

void measureDragging() {
  const Figures drag = inChildProcess([] { return withPhone(&dragMoves); });
  report("move of a drag with repainting / painting the screen", drag[0] / drag[2], 0.25);
  report("move of a drag without repainting / painting the screen", drag[1] / drag[2], 0.05);
}

void measureBannerLifetime() {
  const Figures figures = inChildProcess([] { return withPhone(&presentMany); });
  report("time of the last 1,000 of 10,000 banners / the first 1,000", figures[4] / figures[0], 1.0);
  report("memory after 10,000 banners / after 1,000", figures[5] / figures[1], 1.0);
}

}  // namespace bench
