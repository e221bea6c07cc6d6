// Presents banners, dismisses each one in a different way, and checks for leaks. Foundation counts the objects that
// were created and not released; the leak sanitizer reports unreachable memory of any kind. Two options test these
// checks: "--leak" makes an object unreachable, and "--retain" retains an object.
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

// Objects are not counted in the first rounds, because pictures, fonts and formatters are loaded at their first use.
constexpr int warmUpRounds = 3;
constexpr int countedRounds = 3;

constexpr const char* script = R"(
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

bool runScript(runner::Session& session) {
  std::string_view lines = script;
  for (std::size_t end = lines.find('\n'); end != std::string_view::npos; end = lines.find('\n')) {
    const std::string_view line = lines.substr(0, end);
    lines.remove_prefix(end + 1);
    if (line.empty()) continue;
    const nlohmann::ordered_json answer = session.runLine(line);
    if (answer.at("ok")) continue;
    std::cerr << line << " failed: " << answer << "\n";
    return false;
  }
  return true;
}

bool runRounds(runner::Session& session, int rounds) {
  for (int round = 0; round < rounds; ++round)
    if (!runScript(session)) return false;
  return true;
}

[[gnu::noinline]] void leakUnreachableObject() {
  const objc::AutoreleasePool pool;
  objc::make<UIView>().leak();
}

bool areAllObjectsReleased() {
  const std::ptrdiff_t count = test::liveObjectCount();
  if (count > 0) std::cerr << count << " objects are not released\n";
  return count <= 0;
}

}  // namespace

int main(int count, char** arguments) try {
  std::string pattern = (std::filesystem::temp_directory_path() / "brim-leaks-XXXXXX").string();
  const std::filesystem::path folder = mkdtemp(pattern.data());
  const std::string_view fault = count > 1 ? arguments[1] : "";
  bool succeeded = true;
  {
    runner::Options options;
    options.root = folder / "root";
    runner::Session session(options);
    succeeded = runRounds(session, warmUpRounds);
    test::startCountingLiveObjects();
    objc::Ref<UIView> retained;
    if (fault == "--retain") retained = objc::make<UIView>();
    succeeded = succeeded && runRounds(session, countedRounds) && areAllObjectsReleased();
    if (fault == "--leak") leakUnreachableObject();
  }
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
  return succeeded ? 0 : 1;
} catch (const std::exception& error) {
  std::cerr << error.what() << "\n";
  return 1;
}
