// Tests of the keys of the on-screen keyboard: their frames, and the letters of each language.
#include <algorithm>
#include <set>

#include "simulator/uikit/keyboard/keyboard_key.hpp"
#include "tests/uikit/view_content.hpp"

namespace test {

namespace {

using uikit::KeyRole;

using KeyboardKeys = UIKitTest;

bool doNotOverlap(const CGRect& a, const CGRect& b) {
  return a.origin.x + a.size.width <= b.origin.x || b.origin.x + b.size.width <= a.origin.x ||
         a.origin.y + a.size.height <= b.origin.y || b.origin.y + b.size.height <= a.origin.y;
}

void expectInsideWithoutOverlap(const std::vector<uikit::Key>& keys, const uikit::KeyboardSize& size) {
  for (std::size_t first = 0; first < keys.size(); ++first) {
    const CGRect& frame = keys[first].frame;
    EXPECT_GE(frame.origin.x, 0);
    EXPECT_LE(frame.origin.x + frame.size.width, size.width);
    EXPECT_LE(frame.origin.y + frame.size.height, size.height());
    for (std::size_t second = first + 1; second < keys.size(); ++second)
      EXPECT_TRUE(doNotOverlap(frame, keys[second].frame)) << keys[first].label << " and " << keys[second].label;
  }
}

constexpr const char* locales[] = {"en_US", "de_DE", "fr_FR", "es_ES", "pt_BR", "sv_SE", "fi_FI", "da_DK", "nb_NO",
                                   "pl_PL", "tr_TR", "ru_RU", "uk_UA", "ar_EG", "he_IL", "ja_JP", "ko_KR", "zh_CN"};

std::vector<uikit::Key> keysFor(const char* locale, const uikit::KeyboardSize& size,
                                uikit::Shift shift = uikit::Shift::Off,
                                uikit::KeyboardPlane plane = uikit::KeyboardPlane::Letters) {
  return uikit::keyboardKeys(size, {plane, shift, uikit::lettersForLocale(locale), "send"});
}

std::size_t count(const std::vector<uikit::Key>& keys, KeyRole role) {
  return static_cast<std::size_t>(std::ranges::count(keys, role, &uikit::Key::role));
}

// The labels of the character keys. Rows are separated by spaces.
std::string lettersOn(const std::vector<uikit::Key>& keys) {
  std::string letters;
  double row = 0;
  for (const uikit::Key& key : keys) {
    if (key.role != KeyRole::Character) continue;
    if (!letters.empty() && key.frame.origin.y != row) letters += ' ';
    row = key.frame.origin.y;
    letters += key.label;
  }
  return letters;
}

constexpr uikit::KeyboardSize defaultSize = {375, 34};

TEST_F(KeyboardKeys, AreInsideTheKeyboardAndDoNotOverlap) {
  using enum uikit::KeyboardPlane;
  for (const char* locale : locales) {
    for (const uikit::KeyboardSize size : {uikit::KeyboardSize{320, 0}, defaultSize, {414, 34}})
      for (const auto plane : {Letters, Numbers, Symbols})
        expectInsideWithoutOverlap(keysFor(locale, size, uikit::Shift::On, plane), size);
  }
}

TEST_F(KeyboardKeys, AreWideEnoughForAFinger) {
  for (const char* locale : locales)
    for (const uikit::Key& key : keysFor(locale, {320, 0})) EXPECT_GT(key.frame.size.width, 15) << locale;
}

struct ExpectedLetters {
  const char* locale;
  const char* lowercase;
  const char* uppercase;
};

TEST_F(KeyboardKeys, LettersMatchTheLanguage) {
  for (const ExpectedLetters& expected : {
           ExpectedLetters{"en_US", "qwertyuiop asdfghjkl zxcvbnm", "QWERTYUIOP ASDFGHJKL ZXCVBNM"},
           {"de_AT", "qwertzuiopü asdfghjklöä yxcvbnm", "QWERTZUIOPÜ ASDFGHJKLÖÄ YXCVBNM"},
           {"fr_FR", "azertyuiop qsdfghjklm wxcvbn", "AZERTYUIOP QSDFGHJKLM WXCVBN"},
           {"es_MX", "qwertyuiop asdfghjklñ zxcvbnm", "QWERTYUIOP ASDFGHJKLÑ ZXCVBNM"},
           {"tr_TR", "qwertyuıopğü asdfghjklşi zxcvbnmöç", "QWERTYUIOPĞÜ ASDFGHJKLŞİ ZXCVBNMÖÇ"},
           {"ru_RU", "йцукенгшщзх фывапролджэ ячсмитьбю", "ЙЦУКЕНГШЩЗХ ФЫВАПРОЛДЖЭ ЯЧСМИТЬБЮ"},
           {"pl_PL", "qwertyuiop asdfghjkl zxcvbnm", "QWERTYUIOP ASDFGHJKL ZXCVBNM"},
           {"ja_JP", "qwertyuiop asdfghjkl zxcvbnm", "QWERTYUIOP ASDFGHJKL ZXCVBNM"},
           {"de", "qwertzuiopü asdfghjklöä yxcvbnm", "QWERTZUIOPÜ ASDFGHJKLÖÄ YXCVBNM"},
           {"", "qwertyuiop asdfghjkl zxcvbnm", "QWERTYUIOP ASDFGHJKL ZXCVBNM"},
       }) {
    EXPECT_EQ(lettersOn(keysFor(expected.locale, defaultSize, uikit::Shift::Off)), expected.lowercase)
        << expected.locale;
    EXPECT_EQ(lettersOn(keysFor(expected.locale, defaultSize, uikit::Shift::On)), expected.uppercase)
        << expected.locale;
  }
}

// Returns the uppercase form of the letter. Returns the letter itself if its script has no uppercase letters.
std::string uppercaseOf(const std::string& letter, const char* locale) {
  if (letter == "i" && std::string(locale).starts_with("tr")) return "İ";
  return text(objc::send<NSString*, "uppercaseString">(NSString::stringWithUTF8String(letter.c_str())));
}

TEST_F(KeyboardKeys, EachLanguageHasDistinctLettersWithTheirUppercase) {
  for (const char* locale : locales) {
    const auto lowercase = keysFor(locale, defaultSize, uikit::Shift::Off);
    const auto uppercase = keysFor(locale, defaultSize, uikit::Shift::On);
    ASSERT_EQ(lowercase.size(), uppercase.size()) << locale;
    std::set<std::string> letters;
    for (std::size_t index = 0; index < lowercase.size(); ++index) {
      if (lowercase[index].role != KeyRole::Character) continue;
      letters.insert(lowercase[index].label);
      EXPECT_EQ(uppercase[index].label, uppercaseOf(lowercase[index].label, locale)) << locale;
    }
    EXPECT_EQ(letters.size(), count(lowercase, KeyRole::Character)) << locale;
  }
}

TEST_F(KeyboardKeys, ScriptsWithoutUppercaseHaveNoShiftKey) {
  for (const char* locale : {"ar_EG", "he_IL"}) {
    EXPECT_EQ(count(keysFor(locale, defaultSize), KeyRole::Shift), 0U) << locale;
    EXPECT_EQ(count(keysFor(locale, defaultSize), KeyRole::Backspace), 1U) << locale;
  }
  EXPECT_EQ(count(keysFor("uk_UA", defaultSize), KeyRole::Shift), 1U);
}

}  // namespace

}  // namespace test
