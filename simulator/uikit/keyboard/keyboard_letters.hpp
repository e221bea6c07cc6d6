// The letters of the on-screen keyboard for each language. Texts are UTF-8.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace uikit {

// The letters of each row, in the order of their keys from left to right in every language.
using LetterRows = std::array<std::string_view, 3>;

struct LetterSet {
  std::string_view language;
  LetterRows small;
  LetterRows capital;
  // The label of the key that shows the letters plane.
  std::string_view name;

  // False for a script without capital letters, whose keyboard has no shift key.
  bool hasCapitals() const { return small != capital; }
};

// The letters for the language of a locale such as de_DE. English letters if the language is unknown.
const LetterSet& lettersForLocale(std::string_view locale);

// Splits a row into its letters.
std::vector<std::string> splitLetters(std::string_view row);

}  // namespace uikit
