// A moment of real time that is not waited for any longer.
#pragma once

#include <chrono>

namespace runner {

class Deadline {
 public:
  explicit Deadline(double secondsFromNow)
      : moment(Clock::now() +
               std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(secondsFromNow))) {}

  bool hasPassed() const { return Clock::now() >= moment; }

 private:
  using Clock = std::chrono::steady_clock;
  Clock::time_point moment;
};

}  // namespace runner
