// Measures. Every figure is a ratio of two things measured in this run, so that it means the same on any machine.
// Without arguments all of it; with names of parts, those.
#include <algorithm>
#include <cstdio>
#include <string_view>
#include <vector>

#include "bench/banner_lifetime.hpp"
#include "bench/photos.hpp"
#include "bench/presenting.hpp"
#include "bench/replying.hpp"
#include "bench/text.hpp"

namespace {

struct Part {
  std::string_view name;
  void (*measure)();
};

constexpr Part parts[] = {
    {"presenting", &bench::measurePresenting},   {"dragging", &bench::measureDragging},
    {"lifetime", &bench::measureBannerLifetime}, {"text", &bench::measureText},
    {"photos", &bench::measurePhotos},           {"replying", &bench::measureReplying},
};

int refuse(std::string_view name) {
  std::fprintf(stderr, "bench: there is no part '%.*s'; there are", static_cast<int>(name.size()), name.data());
  for (const Part& part : parts) std::fprintf(stderr, " %.*s", static_cast<int>(part.name.size()), part.name.data());
  std::fprintf(stderr, "\n");
  return 2;
}

}  // namespace

int main(int count, char** arguments) {
  const std::vector<std::string_view> wanted(arguments + 1, arguments + count);
  for (const std::string_view name : wanted) {
    if (std::ranges::find(parts, name, &Part::name) == std::end(parts)) return refuse(name);
  }
  for (const Part& part : parts) {
    if (wanted.empty() || std::ranges::find(wanted, part.name) != wanted.end()) part.measure();
  }
  return 0;
}
