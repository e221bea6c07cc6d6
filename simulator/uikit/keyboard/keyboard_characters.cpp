#include "simulator/uikit/keyboard/keyboard_characters.hpp"

#include <algorithm>

namespace uikit {

namespace {

constexpr LetterSet english = {
    "en", {"qwertyuiop", "asdfghjkl", "zxcvbnm"}, {"QWERTYUIOP", "ASDFGHJKL", "ZXCVBNM"}, "ABC"};

constexpr CharacterRows arabic = {"ضصثقفغعهخحج", "شسيبلاتنمكط", "ذءؤرىةوزظد"};
constexpr CharacterRows hebrew = {"קראטוןםפ", "שדגכעיחלךף", "זסבהנמצתץ"};

constexpr LetterSet sets[] = {
    {"de", {"qwertzuiopü", "asdfghjklöä", "yxcvbnm"}, {"QWERTZUIOPÜ", "ASDFGHJKLÖÄ", "YXCVBNM"}, "ABC"},
    {"fr", {"azertyuiop", "qsdfghjklm", "wxcvbn"}, {"AZERTYUIOP", "QSDFGHJKLM", "WXCVBN"}, "ABC"},
    {"es", {"qwertyuiop", "asdfghjklñ", "zxcvbnm"}, {"QWERTYUIOP", "ASDFGHJKLÑ", "ZXCVBNM"}, "ABC"},
    {"sv", {"qwertyuiopå", "asdfghjklöä", "zxcvbnm"}, {"QWERTYUIOPÅ", "ASDFGHJKLÖÄ", "ZXCVBNM"}, "ABC"},
    {"fi", {"qwertyuiopå", "asdfghjklöä", "zxcvbnm"}, {"QWERTYUIOPÅ", "ASDFGHJKLÖÄ", "ZXCVBNM"}, "ABC"},
    {"da", {"qwertyuiopå", "asdfghjklæø", "zxcvbnm"}, {"QWERTYUIOPÅ", "ASDFGHJKLÆØ", "ZXCVBNM"}, "ABC"},
    {"nb", {"qwertyuiopå", "asdfghjkløæ", "zxcvbnm"}, {"QWERTYUIOPÅ", "ASDFGHJKLØÆ", "ZXCVBNM"}, "ABC"},
    {"tr", {"qwertyuıopğü", "asdfghjklşi", "zxcvbnmöç"}, {"QWERTYUIOPĞÜ", "ASDFGHJKLŞİ", "ZXCVBNMÖÇ"}, "ABC"},
    {"ru", {"йцукенгшщзх", "фывапролджэ", "ячсмитьбю"}, {"ЙЦУКЕНГШЩЗХ", "ФЫВАПРОЛДЖЭ", "ЯЧСМИТЬБЮ"}, "АБВ"},
    {"uk", {"йцукенгшщзхї", "фівапролджє", "ячсмитьбю"}, {"ЙЦУКЕНГШЩЗХЇ", "ФІВАПРОЛДЖЄ", "ЯЧСМИТЬБЮ"}, "АБВ"},
    {"el", {"ςερτυθιοπ", "ασδφγηξκλ", "ζχψωβνμ"}, {"ΣΕΡΤΥΘΙΟΠ", "ΑΣΔΦΓΗΞΚΛ", "ΖΧΨΩΒΝΜ"}, "ΑΒΓ"},
    {"ar", arabic, arabic, "أبج"},
    {"he", hebrew, hebrew, "אבג", BackspaceRow::First},
};

constexpr bool isLeadingByte(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

}  // namespace

const LetterSet& lettersForLocale(std::string_view locale) {
  const std::string_view language = locale.substr(0, locale.find_first_of("_-"));
  const auto* found = std::ranges::find(sets, language, &LetterSet::language);
  return found == std::end(sets) ? english : *found;
}

std::vector<std::string> splitCharacters(std::string_view row) {
  std::vector<std::string> characters;
  for (const char byte : row) {
    if (isLeadingByte(byte)) characters.emplace_back();
    characters.back() += byte;
  }
  return characters;
}

}  // namespace uikit
