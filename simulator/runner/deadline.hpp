// A deadline in real time, which the stepped clock does not affect.
#pragma once

#include <chrono>

namespace runner {

class Deadline {
 public:
  explicit Deadline(double secondsFromNow)
      : timePoint_(Clock::now() +
                   std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(secondsFromNow))) {}

  bool hasPassed() const { return Clock::now() >= timePoint_; }

 private:
  using Clock = std::chrono::steady_clock;
  Clock::time_point timePoint_;
};

}  // namespace runner
