// Generates randomized script commands. The same seed gives the same commands. All commands that need no second process
// occur, with each of their fields.
#pragma once

#include <cstdint>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <random>
#include <string>
#include <vector>

namespace test {

class RandomCommands {
 public:
  // The commands write their screenshots to `screenshotFolder`.
  RandomCommands(std::uint64_t seed, std::filesystem::path screenshotFolder);

  // Returns the next command. `controllers` is the number of notifications that were presented so far.
  nlohmann::ordered_json next(std::size_t controllers);

 private:
  using Json = nlohmann::ordered_json;

  // Returns a number from 0 to count - 1.
  std::size_t below(std::size_t count);
  // Returns true with the probability 1 / count.
  bool oneIn(std::size_t count) { return below(count) == 0; }
  double between(double low, double high);
  template <class Value, std::size_t count>
  const Value& oneOf(const Value (&values)[count]) {
    return values[below(count)];
  }
  std::size_t controller(std::size_t controllers);

  Json present();
  Json wait();
  Json drag(std::size_t controllers);
  Json tap(std::size_t controllers);
  Json keyboard();
  Json set();
  Json platformEvent(std::size_t controllers);
  Json inspection(std::size_t controllers);
  Json texts();

  std::mt19937_64 generator_;
  std::filesystem::path screenshotFolder_;
};

}  // namespace test
