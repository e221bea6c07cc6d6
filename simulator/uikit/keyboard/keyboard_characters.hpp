// The characters of the on-screen keyboard: the letters of each language, the numbers and the symbols. Texts are UTF-8.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace uikit {

// The characters of each row, in the order of their keys from left to right in every language.
using CharacterRows = std::array<std::string_view, 3>;

// The row that ends with the backspace key.
enum class BackspaceRow { First, Third };

struct LetterSet {
  std::string_view language;
  CharacterRows small;
  CharacterRows capital;
  // The text on the key that shows the letters plane.
  std::string_view name;
  BackspaceRow backspaceRow = BackspaceRow::Third;

  // Returns whether the script has capital letters. A keyboard without capital letters has no shift key.
  bool hasCapitals() const { return small != capital; }
};

// Returns the letters for the language of a locale such as de_DE. Returns the English letters if the language is
// unknown.
const LetterSet& lettersForLocale(std::string_view locale);

// The characters of the numbers plane and of the symbols plane.
inline constexpr CharacterRows numberRows = {"1234567890", "-/:;()$&@\"", ".,?!'"};
inline constexpr CharacterRows symbolRows = {"[]{}#%^*+=", "_\\|~<>€£¥•", ".,?!'"};

// Splits a row into its characters.
std::vector<std::string> splitCharacters(std::string_view row);

}  // namespace uikit
