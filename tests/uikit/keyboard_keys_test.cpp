// The keys of the on-screen keyboard: where they lie, and which letters each language has.
#include <algorithm>
#include <set>

#include "simulator/uikit/keyboard/keyboard_key.hpp"
#include "tests/uikit/content.hpp"

namespace test {

namespace {

using uikit::KeyRole;

using KeyboardKeys = Stage;

bool areApart(const CGRect& a, const CGRect& b) {
  return a.origin.x + a.size.width <= b.origin.x || b.origin.x + b.size.width <= a.origin.x ||
         a.origin.y + a.size.height <= b.origin.y || b.origin.y + b.size.height <= a.origin.y;
}

void expectInsideAndApart(const std::vector<uikit::Key>& keys, const uikit::KeyboardSize& size) {
  for (std::size_t first = 0; first < keys.size(); ++first) {
    const CGRect& frame = keys[first].frame;
    EXPECT_GE(frame.origin.x, 0);
    EXPECT_LE(frame.origin.x + frame.size.width, size.width);
    EXPECT_LE(frame.origin.y + frame.size.height, size.height());
    for (std::size_t second = first + 1; second < keys.size(); ++second)
      EXPECT_TRUE(areApart(frame, keys[second].frame)) << keys[first].label << " and " << keys[second].label;
  }
}

constexpr const char* locales[] = {"en_US", "de_DE", "fr_FR", "es_ES", "pt_BR", "sv_SE", "fi_FI", "da_DK", "nb_NO",
                                   "pl_PL", "tr_TR", "ru_RU", "uk_UA", "ar_EG", "he_IL", "ja_JP", "ko_KR", "zh_CN"};

std::vector<uikit::Key> keysFor(const char* locale, const uikit::KeyboardSize& size,
                                uikit::Shift shift = uikit::Shift::Off,
                                uikit::KeyboardPlane plane = uikit::KeyboardPlane::Letters) {
  return uikit::keysOf(size, {plane, shift, uikit::lettersOf(locale), "send"});
}

std::size_t count(const std::vector<uikit::Key>& keys, KeyRole role) {
  return static_cast<std::size_t>(std::ranges::count(keys, role, &uikit::Key::role));
}

// The letters row by row.
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

constexpr uikit::KeyboardSize usualSize = {375, 34};

TEST_F(KeyboardKeys, LieInsideAndApart) {
  using enum uikit::KeyboardPlane;
  for (const char* locale : locales) {
    for (const uikit::KeyboardSize size : {uikit::KeyboardSize{320, 0}, usualSize, {414, 34}})
      for (const auto plane : {Letters, Numbers, Symbols})
        expectInsideAndApart(keysFor(locale, size, uikit::Shift::On, plane), size);
  }
}

TEST_F(KeyboardKeys, AreWideEnoughForAFinger) {
  for (const char* locale : locales)
    for (const uikit::Key& key : keysFor(locale, {320, 0})) EXPECT_GT(key.frame.size.width, 15) << locale;
}

struct Letters {
  const char* locale;
  const char* small;
  const char* capital;
};

TEST_F(KeyboardKeys, LettersAreThoseOfTheLanguage) {
  for (const Letters& wanted : {
           Letters{"en_US", "qwertyuiop asdfghjkl zxcvbnm", "QWERTYUIOP ASDFGHJKL ZXCVBNM"},
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
    EXPECT_EQ(lettersOn(keysFor(wanted.locale, usualSize, uikit::Shift::Off)), wanted.small) << wanted.locale;
    EXPECT_EQ(lettersOn(keysFor(wanted.locale, usualSize, uikit::Shift::On)), wanted.capital) << wanted.locale;
  }
}

// The letter itself where its script has no capitals.
std::string capitalOf(const std::string& letter, const char* locale) {
  if (letter == "i" && std::string(locale).starts_with("tr")) return "İ";
  return text(objc::send<NSString*, "uppercaseString">(NSString::stringWithUTF8String(letter.c_str())));
}

TEST_F(KeyboardKeys, NoLanguageHasALetterTwiceOrALetterWithoutItsCapital) {
  for (const char* locale : locales) {
    const auto small = keysFor(locale, usualSize, uikit::Shift::Off);
    const auto capital = keysFor(locale, usualSize, uikit::Shift::On);
    ASSERT_EQ(small.size(), capital.size()) << locale;
    std::set<std::string> letters;
    for (std::size_t index = 0; index < small.size(); ++index) {
      if (small[index].role != KeyRole::Character) continue;
      letters.insert(small[index].label);
      EXPECT_EQ(capital[index].label, capitalOf(small[index].label, locale)) << locale;
    }
    EXPECT_EQ(letters.size(), count(small, KeyRole::Character)) << locale;
  }
}

TEST_F(KeyboardKeys, ScriptsWithoutCapitalsHaveNoShift) {
  for (const char* locale : {"ar_EG", "he_IL"}) {
    EXPECT_EQ(count(keysFor(locale, usualSize), KeyRole::Shift), 0U) << locale;
    EXPECT_EQ(count(keysFor(locale, usualSize), KeyRole::Backspace), 1U) << locale;
  }
  EXPECT_EQ(count(keysFor("uk_UA", usualSize), KeyRole::Shift), 1U);
}

}  // namespace

}  // namespace test
