// The command-line options of the program `soak`.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace soak {

struct Options {
  std::size_t notifications = 100'000;
  double seconds = 120;
  // The random seed, which determines the notifications and their outcomes. Without a value, the program chooses one.
  std::optional<std::uint64_t> seed = {};
  // Whether the program retains resources after the first measurement, to test that it detects this.
  bool grows = false;
  bool showsHelp = false;
};

// Parses the arguments, which do not include the program's name. Returns no value if an argument is not valid.
std::optional<Options> parseOptions(std::span<const char* const> arguments);

// The text of --help.
extern const char* const helpText;

}  // namespace soak
