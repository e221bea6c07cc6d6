#include "soak/options.hpp"

#include <charconv>
#include <string_view>

namespace soak {

namespace {

template <class Number>
bool parseNumber(std::string_view text, Number& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

bool setOption(Options& options, std::string_view name, std::string_view value) {
  if (name == "--notifications") return parseNumber(value, options.notifications) && options.notifications >= 30;
  if (name == "--seconds") return parseNumber(value, options.seconds) && options.seconds >= 0;
  if (name == "--seed") return parseNumber(value, options.seed.emplace());
  return false;
}

}  // namespace

const char* const helpText =
    "usage: soak [OPTIONS]\n"
    "\n"
    "Presents randomized notifications on one home screen and dismisses them in different ways, first on a stepped\n"
    "clock and then in real time. Exits with status 1 if the number of objects, file descriptors or threads, or the\n"
    "memory use, has increased since the first thousand notifications.\n"
    "\n"
    "  --notifications N   the number of notifications on the stepped clock, at least 30; default: 100000\n"
    "  --seconds N         the duration of the run in real time; 0 omits this run; default: 120\n"
    "  --seed N            repeats the notifications of the run that printed this seed; default: a random seed\n"
    "  --grow              retains an object, memory, a descriptor and a thread, to test that this is detected\n"
    "  --help              prints this text\n";

std::optional<Options> parseOptions(std::span<const char* const> arguments) {
  Options options;
  for (std::size_t index = 0; index < arguments.size(); ++index) {
    const std::string_view name = arguments[index];
    if (name == "--help") {
      options.showsHelp = true;
    } else if (name == "--grow") {
      options.grows = true;
    } else if (++index == arguments.size() || !setOption(options, name, arguments[index])) {
      return std::nullopt;
    }
  }
  return options;
}

}  // namespace soak
