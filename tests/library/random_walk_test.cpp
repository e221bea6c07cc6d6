// Random walks: long sequences of random commands. BRIM_WALK_STEPS is the number of commands of a walk, BRIM_WALK_SEED
// the seed of the first walk. A walk that fails prints its seed and the commands since the screen was last empty.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <cstring>

#include "simulator/uikit/rendering/renderer.hpp"
#include "tests/library/banner_invariants.hpp"
#include "tests/library/live_objects.hpp"
#include "tests/library/random_commands.hpp"

namespace {

using test::Json;
using test::Phone;

constexpr std::size_t defaultSteps = 5000;
constexpr std::size_t comparedPictures = 150;
constexpr std::size_t stepsBetweenResets = 200;
// Objects are counted after this number of resets, because pictures, fonts and formatters are loaded at their first
// use.
constexpr std::size_t warmUpResets = 5;
// The settings retain a few objects, which do not belong to a banner.
constexpr std::size_t maxNewObjects = 40;
// Foundation occasionally retains a string, at most one for each group of this many banners.
constexpr std::size_t bannersPerRetainedString = 40;

// Error messages that are expected, because a random command can be impossible in the current state.
constexpr const char* expectedErrors[] = {"there is no controller",
                                          "no longer on screen",
                                          "was dismissed and no longer exists",
                                          "no banner is on screen",
                                          "no view has the text",
                                          "is outside the screen",
                                          "banner has no content",
                                          "no view has the keyboard focus",
                                          "finger of the last drag is still on the screen"};

std::size_t environmentNumber(const char* variable, std::size_t defaultNumber) {
  const char* text = getenv(variable);
  return text == nullptr ? defaultNumber : std::strtoull(text, nullptr, 10);
}

bool isExpected(const std::string& error) {
  return std::ranges::any_of(expectedErrors, [&](const char* part) { return error.find(part) != std::string::npos; });
}

const unsigned char* row(const drawing::Canvas& canvas, int y) {
  return cairo_image_surface_get_data(canvas.surface()) +
         static_cast<std::ptrdiff_t>(y) * cairo_image_surface_get_stride(canvas.surface());
}

// Compares two pictures of the same size. Returns a description of the first pixel that differs, empty if the pictures
// are equal.
std::string differenceBetween(const drawing::Canvas& left, const drawing::Canvas& right) {
  const auto bytes = static_cast<std::size_t>(right.pixelWidth()) * 4;
  for (int y = 0; y < right.pixelHeight(); ++y) {
    if (std::memcmp(row(left, y), row(right, y), bytes) == 0) continue;
    int x = 0;
    while (left.pixel(x, y) == right.pixel(x, y)) ++x;
    char text[80];
    std::snprintf(text, sizeof text, "pixel (%d, %d) is %08x, not %08x", x, y, left.pixel(x, y), right.pixel(x, y));
    return text;
  }
  return "";
}

class Walk {
 public:
  explicit Walk(std::uint64_t seed) : seed_(seed), commands_(seed, phone_.root()) {}

  void run(std::size_t steps) {
    openKeyboardAndSettings();
    for (std::size_t step = 1; step <= steps && !HasFailure(); ++step) {
      execute(commands_.next(invariants_.bannerCount()));
      if (step % stepsBetweenResets == 0 && !HasFailure()) reset();
    }
    if (!HasFailure()) reset();
  }

 private:
  static bool HasFailure() { return testing::Test::HasFailure(); }

  void execute(const Json& command) {
    executed_.push_back(command.dump());
    if (command.at("do") == "drag") invariants_.expectDrag();
    const Json answer = phone_.runUnchecked(command);
    if (!answer.at("ok") && !isExpected(answer.at("error"))) return fail(answer.dump());
    if (const std::string problem = invariants_.violation(phone_.log()); !problem.empty()) fail(problem);
  }

  // Creates the views of the keyboard and loads the settings pane before objects are counted. Both continue to exist
  // for later use.
  void openKeyboardAndSettings() {
    const auto settingsIcon = {231, 294};
    execute({{"do", "tap"}, {"at", settingsIcon}});
    execute({{"do", "wait"}, {"seconds", 1}});
    execute({{"do", "press"}, {"type", 101}, {"force", 0}});
    execute({{"do", "present"}, {"section", "com.apple.MobileSMS"}, {"title", "Anna"}});
    execute({{"do", "wait"}, {"seconds", 1}});
    execute({{"do", "drag"}, {"by", {0, 200}}});
    execute({{"do", "wait"}, {"seconds", 1}});
    reset();
  }

  // Dismisses every banner and empties the notification list. Then expects that all objects of banners are released.
  void reset() {
    execute({{"do", "drag"}, {"at", {5, 800}}, {"by", {0, 0}}, {"end", "cancel"}});
    execute({{"do", "lock"}});
    // The first press unlocks the phone. The second one closes the page of an application.
    for (int press = 0; press < 2; ++press) execute({{"do", "press"}, {"type", 101}, {"force", 0}});
    execute({{"do", "withdraw"}});
    execute({{"do", "set"}, {"key", "timeToDismiss"}, {"value", nullptr}});
    execute({{"do", "wait"}, {"seconds", 60}});
    if (HasFailure()) return;
    if (const std::string problem = invariants_.violationOnEmptyScreen(); !problem.empty()) return fail(problem);
    compareLiveObjects();
    executed_.clear();
  }

  void compareLiveObjects() {
    if (++resets_ == warmUpResets) {
      test::startCountingLiveObjects();
      return;
    }
    const std::ptrdiff_t liveObjects = resets_ < warmUpResets ? 0 : test::liveObjectCount();
    const auto allowed =
        static_cast<std::ptrdiff_t>(maxNewObjects + invariants_.bannerCount() / bannersPerRetainedString);
    if (liveObjects > allowed) fail(std::to_string(liveObjects) + " objects are alive that did not exist before");
  }

  void fail(const std::string& problem) {
    std::string report = problem + "\nseed " + std::to_string(seed_) + "; the commands since the last reset:\n";
    for (const std::string& command : executed_) report += command + "\n";
    ADD_FAILURE() << report;
  }

  std::uint64_t seed_;
  Phone phone_;
  test::RandomCommands commands_;
  test::BannerInvariants invariants_;
  std::vector<std::string> executed_;
  std::size_t resets_ = 0;
};

class RandomWalk : public testing::TestWithParam<std::uint64_t> {};

TEST_P(RandomWalk, KeepsTheInvariantsOfBanners) {
  const std::uint64_t seed = environmentNumber("BRIM_WALK_SEED", 1) + GetParam();
  RecordProperty("seed", std::to_string(seed));
  std::printf("seed %llu\n", static_cast<unsigned long long>(seed));
  Walk(seed).run(environmentNumber("BRIM_WALK_STEPS", defaultSteps));
}

// renderScreen() repaints only what has changed since its last picture; paintScreen() paints the whole screen.
TEST_P(RandomWalk, IncrementalRenderingEqualsFullRendering) {
  const std::uint64_t seed = environmentNumber("BRIM_WALK_SEED", 1) + GetParam();
  test::Setup setup;
  setup.options.library = GetParam() % 2 == 0 ? process::LibraryUse::Loaded : process::LibraryUse::Absent;
  Phone phone(setup);
  test::RandomCommands commands(seed, phone.root());
  const double scale = GetParam() == 0 ? 3 : 1;
  for (std::size_t step = 0; step < comparedPictures; ++step) {
    const Json command = commands.next(springboard::bannerCount());
    phone.runUnchecked(command);
    const std::string difference = differenceBetween(*uikit::renderScreen(scale), *uikit::paintScreen(scale));
    ASSERT_EQ(difference, "") << "after step " << step << ", " << command.dump() << "; seed " << seed;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWalk, testing::Range<std::uint64_t>(0, 4));

}  // namespace
