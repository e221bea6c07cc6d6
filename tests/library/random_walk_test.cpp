// Walks through the commands by chance. BRIM_WALK_STEPS makes the walks longer, BRIM_WALK_SEED begins them elsewhere;
// a walk that fails prints its seed and the commands since the screen was last empty.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <cstring>

#include "simulator/uikit/rendering/renderer.hpp"
#include "tests/library/banner_rules.hpp"
#include "tests/library/live_objects.hpp"
#include "tests/library/random_commands.hpp"

namespace {

using test::Json;
using test::Phone;

constexpr std::size_t defaultSteps = 5000;
constexpr std::size_t comparedPictures = 150;
constexpr std::size_t stepsBetweenRests = 200;
// Until then pictures, fonts and formatters are loaded for the first time; settings keep a few values of their own.
constexpr std::size_t restsUntilAllIsLoaded = 5;
constexpr std::size_t objectsThatMayStay = 40;
// Foundation keeps a string now and then.
constexpr std::size_t bannersToAStringThatStays = 40;

// What a command that came by chance may be refused for.
constexpr const char* reasons[] = {"there is no controller",
                                   "no longer on screen",
                                   "was dismissed and is gone",
                                   "no banner is on screen",
                                   "no view has the text",
                                   "is outside the screen",
                                   "banner has no content",
                                   "no view has the keyboard focus",
                                   "finger of the last drag is still on the screen"};

std::size_t number(const char* variable, std::size_t otherwise) {
  const char* text = getenv(variable);
  return text == nullptr ? otherwise : std::strtoull(text, nullptr, 10);
}

bool isExpected(const std::string& refusal) {
  return std::ranges::any_of(reasons, [&](const char* reason) { return refusal.find(reason) != std::string::npos; });
}

const unsigned char* row(const drawing::Canvas& canvas, int y) {
  return cairo_image_surface_get_data(canvas.surface()) +
         static_cast<std::ptrdiff_t>(y) * cairo_image_surface_get_stride(canvas.surface());
}

// Where two pictures of one size first differ, and how; empty where they do not.
std::string differenceBetween(const drawing::Canvas& left, const drawing::Canvas& right) {
  const auto bytes = static_cast<std::size_t>(right.pixelWidth()) * 4;
  for (int y = 0; y < right.pixelHeight(); ++y) {
    if (std::memcmp(row(left, y), row(right, y), bytes) == 0) continue;
    int x = 0;
    while (left.pixel(x, y) == right.pixel(x, y)) ++x;
    char text[80];
    std::snprintf(text, sizeof text, "%d,%d is %08x, not %08x", x, y, left.pixel(x, y), right.pixel(x, y));
    return text;
  }
  return "";
}

class Walk {
 public:
  explicit Walk(std::uint64_t start) : seed(start), commands(start, phone.root()) {}

  void run(std::size_t steps) {
    openKeyboardOnce();
    for (std::size_t step = 1; step <= steps && !HasFailure(); ++step) {
      take(commands.next(rules.count()));
      if (step % stepsBetweenRests == 0 && !HasFailure()) rest();
    }
    if (!HasFailure()) rest();
  }

 private:
  static bool HasFailure() { return testing::Test::HasFailure(); }

  void take(const Json& command) {
    taken.push_back(command.dump());
    if (command.at("do") == "drag") rules.expectDrag();
    const Json answer = phone.answer(command);
    if (!answer.at("ok") && !isExpected(answer.at("error"))) return fail(answer.dump());
    if (const std::string problem = rules.broken(phone.log()); !problem.empty()) fail(problem);
  }

  // It stays for the next field, and is no banner's.
  void openKeyboardOnce() {
    take({{"do", "present"}, {"section", "com.apple.MobileSMS"}, {"title", "Anna"}});
    take({{"do", "wait"}, {"seconds", 1}});
    take({{"do", "drag"}, {"by", {0, 200}}});
    take({{"do", "wait"}, {"seconds", 1}});
    rest();
  }

  // Everything is sent away, and nothing may be left.
  void rest() {
    take({{"do", "drag"}, {"at", {5, 800}}, {"by", {0, 0}}, {"end", "cancel"}});
    take({{"do", "lock"}});
    take({{"do", "press"}, {"type", 101}, {"force", 0}});
    take({{"do", "withdraw"}});
    take({{"do", "set"}, {"key", "timeToDismiss"}, {"value", nullptr}});
    take({{"do", "wait"}, {"seconds", 60}});
    if (HasFailure()) return;
    if (const std::string problem = rules.brokenAtRest(); !problem.empty()) return fail(problem);
    compareLiveObjects();
    taken.clear();
  }

  void compareLiveObjects() {
    if (++rests == restsUntilAllIsLoaded) {
      test::countLiveObjects();
      return;
    }
    const std::ptrdiff_t held = rests < restsUntilAllIsLoaded ? 0 : test::liveObjects();
    const auto allowed = static_cast<std::ptrdiff_t>(objectsThatMayStay + rules.count() / bannersToAStringThatStays);
    if (held > allowed) fail(std::to_string(held) + " objects are held that were not before");
  }

  void fail(const std::string& problem) {
    std::string report = problem + "\nseed " + std::to_string(seed) + "; the commands since the last rest:\n";
    for (const std::string& command : taken) report += command + "\n";
    ADD_FAILURE() << report;
  }

  std::uint64_t seed;
  Phone phone;
  test::RandomCommands commands;
  test::BannerRules rules;
  std::vector<std::string> taken;
  std::size_t rests = 0;
};

class RandomWalk : public testing::TestWithParam<std::uint64_t> {};

TEST_P(RandomWalk, BreaksNoRuleOfABannersLife) {
  const std::uint64_t seed = number("BRIM_WALK_SEED", 1) + GetParam();
  RecordProperty("seed", std::to_string(seed));
  std::printf("seed %llu\n", static_cast<unsigned long long>(seed));
  Walk(seed).run(number("BRIM_WALK_STEPS", defaultSteps));
}

// Pictures paint only what changed since the last one.
TEST_P(RandomWalk, PaintsWhatAScreenPaintedFromNothingShows) {
  const std::uint64_t seed = number("BRIM_WALK_SEED", 1) + GetParam();
  test::Setup setup;
  setup.options.library = GetParam() % 2 == 0 ? process::LibraryUse::Mapped : process::LibraryUse::Absent;
  Phone phone(setup);
  test::RandomCommands commands(seed, phone.root());
  const double scale = GetParam() == 0 ? 3 : 1;
  for (std::size_t step = 0; step < comparedPictures; ++step) {
    const Json command = commands.next(springboard::bannerCount());
    phone.answer(command);
    const std::string difference = differenceBetween(*uikit::renderScreen(scale), *uikit::paintScreen(scale));
    ASSERT_EQ(difference, "") << "after step " << step << ", " << command.dump() << "; seed " << seed;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWalk, testing::Range<std::uint64_t>(0, 4));

}  // namespace
