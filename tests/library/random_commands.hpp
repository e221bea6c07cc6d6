// Commands of the script by chance: every command that needs no other process, with every field it takes.
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
  // Pictures are written into the folder.
  RandomCommands(std::uint64_t seed, std::filesystem::path folder);

  // Controllers are chosen among those presented so far.
  nlohmann::ordered_json next(std::size_t controllers);

 private:
  using Json = nlohmann::ordered_json;

  std::size_t below(std::size_t count);
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
  Json platform(std::size_t controllers);
  Json look(std::size_t controllers);
  Json texts();

  std::mt19937_64 generator;
  std::filesystem::path pictures;
};

}  // namespace test
