#include "simulator/uikit/keyboard/keyboard_layout.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace uikit {

namespace {

using Row = std::vector<std::string>;

constexpr double rowPitch = 54;
constexpr double rows = 4;
constexpr double keyHeight = 42;
constexpr double rowTop = 8;
constexpr double margin = 3;
constexpr double gap = 6;
constexpr std::size_t keysInRow = 10;
// Between the last row and the lower edge of a screen without a home button.
constexpr double barHeight = 41;

constexpr LetterRows numbers = {"1234567890", "-/:;()$&@\"", ".,?!'"};
constexpr LetterRows symbols = {"[]{}#%^*+=", "_\\|~<>€£¥•", ".,?!'"};

const LetterRows& charactersOf(const KeyboardFace& face) {
  switch (face.plane) {
    case KeyboardPlane::Letters:
      return face.shift == Shift::On ? face.letters.capital : face.letters.small;
    case KeyboardPlane::Numbers:
      return numbers;
    case KeyboardPlane::Symbols:
      return symbols;
  }
  return face.letters.small;
}

std::array<Row, 3> rowsOf(const KeyboardFace& face) {
  const LetterRows& characters = charactersOf(face);
  return {lettersIn(characters[0]), lettersIn(characters[1]), lettersIn(characters[2])};
}

double keyWidthFor(std::size_t keys, double keyboardWidth) {
  const auto count = static_cast<double>(keys);
  return (keyboardWidth - 2 * margin - (count - 1) * gap) / count;
}

double widthOf(const Row& row, double keyWidth) {
  const auto count = static_cast<double>(row.size());
  return count * keyWidth + (count - 1) * gap;
}

class Builder {
 public:
  Builder(const KeyboardSize& size, const KeyboardFace& shown)
      : keyboard(size), face(shown), characters(rowsOf(shown)), usualWidth(keyWidthFor(keysInRow, size.width)) {}

  std::vector<Key> build() {
    // Languages with more letters have narrower keys.
    const std::size_t longest = std::max({keysInRow, characters[0].size(), characters[1].size()});
    const double width = keyWidthFor(longest, keyboard.width);
    addCharacters(0, width);
    addCharacters(1, width);
    if (face.plane == KeyboardPlane::Letters) {
      addThirdRowOfLetters(width);
    } else {
      addThirdRowOfSigns();
    }
    addLastRow();
    if (keyboard.bottomInset > 0) addBar();
    return std::move(keys);
  }

 private:
  static double top(int row) { return rowTop + row * rowPitch; }

  void add(KeyRole role, std::string label, double x, int row, double width,
           KeyboardPlane leadsTo = KeyboardPlane::Letters) {
    keys.push_back({role, std::move(label), {{x, top(row)}, {width, keyHeight}}, leadsTo});
  }

  void addCharacters(int row, double width, double x) {
    for (const std::string& character : characters[static_cast<std::size_t>(row)]) {
      add(KeyRole::Character, character, x, row, width);
      x += width + gap;
    }
  }
  // In the middle of the keyboard.
  void addCharacters(int row, double width) {
    addCharacters(row, width, (keyboard.width - widthOf(characters[static_cast<std::size_t>(row)], width)) / 2);
  }

  void addBackspace(double width) { add(KeyRole::Backspace, "", keyboard.width - margin - width, 2, width); }

  // Without capitals there is no shift, and the letters begin in its place.
  void addThirdRowOfLetters(double width) {
    const double letters = widthOf(characters[2], width);
    const double room = keyboard.width - 2 * margin - letters;
    if (!face.letters.hasCapitals()) {
      addCharacters(2, width, margin);
      return addBackspace(std::min(widerWidth(), room - gap));
    }
    const double side = std::min(widerWidth(), room / 2 - gap);
    add(KeyRole::Shift, "", margin, 2, side);
    addCharacters(2, width);
    addBackspace(side);
  }

  // Fewer characters are wider, between a key that changes the plane and the one that erases.
  void addThirdRowOfSigns() {
    const bool inNumbers = face.plane == KeyboardPlane::Numbers;
    add(KeyRole::Plane, inNumbers ? "#+=" : "123", margin, 2, widerWidth(),
        inNumbers ? KeyboardPlane::Symbols : KeyboardPlane::Numbers);
    addCharacters(2, usualWidth * 1.4 + gap * 0.4);
    addBackspace(widerWidth());
  }

  double widerWidth() const { return usualWidth * 1.33; }

  void addLastRow() {
    const bool inLetters = face.plane == KeyboardPlane::Letters;
    const double side = widerWidth();
    const double returnWidth = 2 * side + gap;
    double x = margin;
    const auto next = [&](KeyRole role, std::string label, double width, KeyboardPlane leadsTo) {
      add(role, std::move(label), x, 3, width, leadsTo);
      x += width + gap;
    };
    next(KeyRole::Plane, inLetters ? "123" : std::string(face.letters.name), side,
         inLetters ? KeyboardPlane::Numbers : KeyboardPlane::Letters);
    if (keyboard.bottomInset > 0) {
      next(KeyRole::Emoji, "", side, KeyboardPlane::Letters);
    } else {
      next(KeyRole::Globe, "", usualWidth, KeyboardPlane::Letters);
      next(KeyRole::Microphone, "", usualWidth, KeyboardPlane::Letters);
    }
    next(KeyRole::Space, "space", keyboard.width - margin - returnWidth - gap - x, KeyboardPlane::Letters);
    add(KeyRole::Return, face.returnLabel, x, 3, returnWidth);
  }

  void addBar() {
    constexpr double side = 44;
    constexpr double inset = 17;
    const double y = rowTop + rows * rowPitch - 4;
    keys.push_back({KeyRole::Globe, "", {{inset, y}, {side, side}}});
    keys.push_back({KeyRole::Microphone, "", {{keyboard.width - inset - side, y}, {side, side}}});
  }

  const KeyboardSize keyboard;
  const KeyboardFace& face;
  const std::array<Row, 3> characters;
  const double usualWidth;
  std::vector<Key> keys;
};

}  // namespace

double KeyboardSize::height() const { return rows * rowPitch + (bottomInset > 0 ? bottomInset + barHeight : 0); }

std::vector<Key> keysOf(const KeyboardSize& size, const KeyboardFace& face) { return Builder(size, face).build(); }

}  // namespace uikit
