// Tests of the keys of the on-screen keyboard: their frames, and the letters of each language.
#include <algorithm>
#include <array>
#include <iterator>
#include <ostream>
#include <set>

#include "simulator/drawing/text_layout.hpp"
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

constexpr const char* locales[] = {"en_US", "de_DE", "fr_FR", "es_ES", "pt_BR", "sv_SE", "fi_FI",
                                   "da_DK", "nb_NO", "pl_PL", "tr_TR", "ru_RU", "uk_UA", "ar_EG",
                                   "he_IL", "el_GR", "ja_JP", "ko_KR", "zh_CN"};

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

// Returns the keys with this role, from left to right in each row, from top to bottom.
std::vector<uikit::Key> keysOf(const std::vector<uikit::Key>& keys, KeyRole role) {
  std::vector<uikit::Key> found;
  std::ranges::copy_if(keys, std::back_inserter(found), [role](const auto& key) { return key.role == role; });
  return found;
}

double rightOf(const uikit::Key& key) { return key.frame.origin.x + key.frame.size.width; }

// The number of letters in each row, and the index of the row with the backspace key.
struct Geometry {
  const char* locale;
  std::array<std::size_t, 3> letters;
  std::size_t backspaceRow;
};

constexpr Geometry geometries[] = {
    {"en_US", {10, 9, 7}, 2},   {"de_DE", {11, 11, 7}, 2}, {"fr_FR", {10, 10, 6}, 2}, {"es_ES", {10, 10, 7}, 2},
    {"sv_SE", {11, 11, 7}, 2},  {"fi_FI", {11, 11, 7}, 2}, {"da_DK", {11, 11, 7}, 2}, {"nb_NO", {11, 11, 7}, 2},
    {"tr_TR", {12, 11, 9}, 2},  {"ru_RU", {11, 11, 9}, 2}, {"uk_UA", {12, 11, 9}, 2}, {"el_GR", {9, 9, 7}, 2},
    {"ar_EG", {11, 11, 10}, 2}, {"he_IL", {8, 10, 9}, 0},
};

void PrintTo(const Geometry& geometry, std::ostream* stream) { *stream << geometry.locale; }

class KeyboardGeometry : public UIKitTest, public testing::WithParamInterface<Geometry> {
 public:
  static constexpr uikit::KeyboardSize sizes[] = {{320, 0}, {375, 0}, {375, 34}, {414, 34}};
};

TEST_P(KeyboardGeometry, LettersHaveEqualWidthsAndDistances) {
  for (const uikit::KeyboardSize size : sizes) {
    const auto letters = keysOf(keysFor(GetParam().locale, size), KeyRole::Character);
    std::size_t first = 0;
    for (const std::size_t count : GetParam().letters) {
      ASSERT_LE(first + count, letters.size());
      const double distance = letters[first + 1].frame.origin.x - letters[first].frame.origin.x;
      for (std::size_t index = first; index < first + count; ++index) {
        const CGRect& frame = letters[index].frame;
        EXPECT_DOUBLE_EQ(frame.size.width, letters[0].frame.size.width) << letters[index].label;
        EXPECT_EQ(frame.origin.y, letters[first].frame.origin.y) << letters[index].label;
        EXPECT_NEAR(frame.origin.x, letters[first].frame.origin.x + static_cast<double>(index - first) * distance,
                    1e-9);
      }
      first += count;
    }
    EXPECT_EQ(first, letters.size());
  }
}

TEST_P(KeyboardGeometry, FunctionKeysAreAtTheEdges) {
  constexpr double margin = 3;
  constexpr double firstRow = 8;
  constexpr double rowPitch = 54;
  for (const uikit::KeyboardSize size : sizes) {
    const auto keys = keysFor(GetParam().locale, size);
    const auto backspace = keysOf(keys, KeyRole::Backspace);
    ASSERT_EQ(backspace.size(), 1U);
    EXPECT_DOUBLE_EQ(rightOf(backspace[0]), size.width - margin);
    EXPECT_DOUBLE_EQ(backspace[0].frame.origin.y, firstRow + rowPitch * static_cast<double>(GetParam().backspaceRow));
    const auto letters = keysOf(keys, KeyRole::Character);
    EXPECT_GE(backspace[0].frame.size.width, letters[0].frame.size.width - 1e-9);
    for (const uikit::Key& shift : keysOf(keys, KeyRole::Shift)) {
      EXPECT_DOUBLE_EQ(shift.frame.origin.x, margin);
      EXPECT_DOUBLE_EQ(shift.frame.origin.y, firstRow + 2 * rowPitch);
      EXPECT_DOUBLE_EQ(shift.frame.size.width, backspace[0].frame.size.width);
    }
    const auto returnKey = keysOf(keys, KeyRole::Return);
    ASSERT_EQ(returnKey.size(), 1U);
    EXPECT_DOUBLE_EQ(rightOf(returnKey[0]), size.width - margin);
    EXPECT_DOUBLE_EQ(returnKey[0].frame.origin.y, firstRow + 3 * rowPitch);
  }
}

// The width of the text at this font size.
double widthOf(const std::string& text, double fontSize) {
  drawing::Run run;
  run.text = text;
  run.font.size = fontSize;
  drawing::Paragraph paragraph;
  paragraph.runs = {std::move(run)};
  return drawing::TextLayout(std::move(paragraph), 2).measure(0).width;
}

TEST_P(KeyboardGeometry, LettersFitIntoTheirKeysAtOneFontSize) {
  for (const uikit::KeyboardSize size : sizes) {
    for (const auto shift : {uikit::Shift::Off, uikit::Shift::On}) {
      const auto keys = keysFor(GetParam().locale, size, shift);
      const double fontSize = uikit::characterSizeFor(keys);
      EXPECT_GT(fontSize, 13);
      for (const uikit::Key& key : keysOf(keys, KeyRole::Character))
        EXPECT_LE(widthOf(key.label, fontSize), key.frame.size.width) << key.label << " at " << fontSize;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Languages, KeyboardGeometry, testing::ValuesIn(geometries),
                         [](const auto& geometry) { return std::string(geometry.param.locale); });

TEST_F(KeyboardKeys, ScriptsWithoutUppercaseHaveNoShiftKey) {
  for (const char* locale : {"ar_EG", "he_IL"}) {
    EXPECT_EQ(count(keysFor(locale, defaultSize), KeyRole::Shift), 0U) << locale;
    EXPECT_EQ(count(keysFor(locale, defaultSize), KeyRole::Backspace), 1U) << locale;
  }
  EXPECT_EQ(count(keysFor("uk_UA", defaultSize), KeyRole::Shift), 1U);
}

}  // namespace

}  // namespace test
