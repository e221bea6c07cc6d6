// Runs the benchmarks whose names are given as arguments, or all benchmarks if there are no arguments. Each printed
// figure is a ratio of two measurements in the same run, so figures from different machines can be compared.
#include <algorithm>
#include <cstdio>
#include <string_view>
#include <vector>

#include "bench/benchmarks.hpp"

namespace {

struct Benchmark {
  std::string_view name;
  void (*run)();
};

constexpr Benchmark benchmarks[] = {
    {"presenting", &bench::measurePresenting},   {"dragging", &bench::measureDragging},
    {"lifetime", &bench::measureBannerLifetime}, {"text", &bench::measureText},
    {"photos", &bench::measurePhotos},           {"replying", &bench::measureReplying},
};

int reportUnknownName(std::string_view name) {
  std::fprintf(stderr, "bench: there is no benchmark '%.*s'; the benchmarks are", static_cast<int>(name.size()),
               name.data());
  for (const Benchmark& benchmark : benchmarks)
    std::fprintf(stderr, " %.*s", static_cast<int>(benchmark.name.size()), benchmark.name.data());
  std::fprintf(stderr, "\n");
  return 2;
}

}  // namespace

int main(int count, char** arguments) {
  const std::vector<std::string_view> selected(arguments + 1, arguments + count);
  for (const std::string_view name : selected) {
    if (std::ranges::find(benchmarks, name, &Benchmark::name) == std::end(benchmarks)) return reportUnknownName(name);
  }
  for (const Benchmark& benchmark : benchmarks) {
    if (selected.empty() || std::ranges::find(selected, benchmark.name) != selected.end()) benchmark.run();
  }
  return 0;
}
