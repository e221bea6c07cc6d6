// Banners that come and go in every way. Foundation counts the objects that are held in the end and were not before;
// the sanitizer tells of other memory, and of objects that nothing points to. With --lose, or --keep, one is lost or
// held.
#include <stdlib.h>

#include <exception>
#include <filesystem>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "objc/autorelease_pool.hpp"
#include "platform/ui_view.hpp"
#include "simulator/runner/session.hpp"
#include "tests/library/live_objects.hpp"

namespace {

constexpr int roundsUntilAllIsLoaded = 3;
constexpr int rounds = 3;

constexpr const char* life = R"(
{"do":"set","key":"showButtons","value":true}
{"do":"present","section":"com.apple.mobilemail","title":"Maria","message":"Leaves by the timer"}
{"do":"wait","seconds":7}
{"do":"present","section":"com.apple.mobilemail","title":"Maria","message":"Dragged away"}
{"do":"wait","seconds":1}
{"do":"drag","by":[0,-80]}
{"do":"wait","seconds":2}
{"do":"present","section":"com.apple.mobilemail","title":"Maria","message":"Replaced"}
{"do":"wait","seconds":1}
{"do":"present","section":"com.apple.mobilemail","title":"Maria","message":"Cleared","thread":"one"}
{"do":"wait","seconds":2}
{"do":"drag","by":[0,200]}
{"do":"wait","seconds":1}
{"do":"tap","label":"Clear"}
{"do":"wait","seconds":2}
{"do":"present","section":"com.apple.mobilemail","title":"Maria","message":"Answered","actions":[{"key":"reply","identifier":"reply","title":"Reply","textInput":true}]}
{"do":"wait","seconds":1}
{"do":"drag","by":[0,200]}
{"do":"wait","seconds":1}
{"do":"tap","label":"Reply"}
{"do":"wait","seconds":1}
{"do":"type","text":"On my way"}
{"do":"key","name":"return"}
{"do":"wait","seconds":2}
{"do":"present","section":"com.apple.mobiletimer","title":"Alarm","close":true,"dismissAutomatically":false,"actions":[{"key":"snooze","identifier":"MTAlarmSnoozeAction","title":"Snooze"}]}
{"do":"wait","seconds":1}
{"do":"appearance","style":"dark"}
{"do":"wait","seconds":1}
{"do":"drag","by":[0,200]}
{"do":"wait","seconds":1}
{"do":"tap","label":"Stop"}
{"do":"wait","seconds":2}
{"do":"present","section":"com.apple.mobilemail","title":"Maria","message":"Locked away"}
{"do":"lock"}
{"do":"appearance","style":"light"}
{"do":"wait","seconds":2}
{"do":"withdraw"}
{"do":"press","type":101,"force":0}
{"do":"log"}
)";

bool live(runner::Session& session) {
  std::string_view lines = life;
  for (std::size_t end = lines.find('\n'); end != std::string_view::npos; end = lines.find('\n')) {
    const std::string_view line = lines.substr(0, end);
    lines.remove_prefix(end + 1);
    if (line.empty()) continue;
    const nlohmann::ordered_json answer = session.runLine(line);
    if (answer.at("ok")) continue;
    std::cerr << line << " was answered with " << answer << "\n";
    return false;
  }
  return true;
}

bool live(runner::Session& session, int times) {
  for (int round = 0; round < times; ++round)
    if (!live(session)) return false;
  return true;
}

[[gnu::noinline]] void lose() {
  const objc::AutoreleasePool pool;
  objc::make<UIView>().leak();
}

bool holdsNothing() {
  const std::ptrdiff_t held = test::liveObjects();
  if (held > 0) std::cerr << held << " objects are held that were not before\n";
  return held <= 0;
}

}  // namespace

int main(int count, char** arguments) try {
  std::string pattern = (std::filesystem::temp_directory_path() / "brim-lives-XXXXXX").string();
  const std::filesystem::path folder = mkdtemp(pattern.data());
  const std::string_view fault = count > 1 ? arguments[1] : "";
  bool isWell = true;
  {
    runner::Options options;
    options.root = folder / "root";
    runner::Session session(options);
    isWell = live(session, roundsUntilAllIsLoaded);
    test::countLiveObjects();
    objc::Ref<UIView> kept;
    if (fault == "--keep") kept = objc::make<UIView>();
    isWell = isWell && live(session, rounds) && holdsNothing();
    if (fault == "--lose") lose();
  }
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
  return isWell ? 0 : 1;
} catch (const std::exception& error) {
  std::cerr << error.what() << "\n";
  return 1;
}
