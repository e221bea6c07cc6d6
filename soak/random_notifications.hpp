// Presents randomized notifications and gives each of them a randomized outcome. The same seed gives the same sequence.
#pragma once

#include <cstdint>
#include <map>
#include <nlohmann/json_fwd.hpp>
#include <random>
#include <span>
#include <string>

#include "simulator/runner/session.hpp"

namespace soak {

// The bundle identifiers of the applications whose notifications are presented.
std::span<const char* const> applications();

class RandomNotifications {
 public:
  RandomNotifications(runner::Session& session, std::uint64_t seed) : session_(session), generator_(seed) {}

  // Presents one notification for each application and outcome. Afterwards, the views, pictures and processes that are
  // created at first use and then retained exist.
  void completeEach(std::span<const char* const> applications);
  // Presents a notification and waits until its outcome has taken effect. For a stepped clock only. Throws
  // std::runtime_error if the phone rejects the notification.
  void presentAndComplete();
  // Presents a notification without waiting. Dismisses some of the earlier notifications.
  void presentOnly();
  // Dismisses all banners, clears the notification list and the log, and returns to the home screen.
  void reset();

  // The number of notifications with each outcome.
  const std::map<std::string, std::size_t>& outcomes() const { return outcomes_; }

 private:
  using Json = nlohmann::ordered_json;
  using Outcome = void (RandomNotifications::*)();
  struct NamedOutcome {
    const char* name;
    Outcome run;
  };
  static const NamedOutcome namedOutcomes[];

  std::size_t below(std::size_t count) { return static_cast<std::size_t>(generator_() % count); }
  template <class Value, std::size_t count>
  const Value& oneOf(const Value (&values)[count]) {
    return values[below(count)];
  }
  Json notification();
  void present(const Json& notification);
  // Executes a command and ignores its error, because some outcomes are impossible for some notifications. For example,
  // a notification without an action has no button.
  void attempt(const Json& command);
  void wait(double seconds);
  void expand();

  void tap();
  void swipeAway();
  void expandAndCollapse();
  void reply();
  void clear();
  void timeOut();
  void replace();
  void withdraw();
  void lock();
  void executeAction();

  runner::Session& session_;
  std::mt19937_64 generator_;
  std::map<std::string, std::size_t> outcomes_;
};

}  // namespace soak
