// The letters of the on-screen keyboard, by language.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace uikit {

// Each row as one text, its letters in the order in which their keys stand, from the left in every language.
using LetterRows = std::array<std::string_view, 3>;

struct LetterSet {
  std::string_view language;
  LetterRows small;
  LetterRows capital;
  // What is written on the key that leads to them.
  std::string_view name;

  // A script without capitals needs no shift.
  bool hasCapitals() const { return small != capital; }
};

// Those of the locale's language, such as de of de_DE; English letters for a language that is not known.
const LetterSet& lettersOf(std::string_view locale);

// The row's letters one by one.
std::vector<std::string> lettersIn(std::string_view row);

}  // namespace uikit
