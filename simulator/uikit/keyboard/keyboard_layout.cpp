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
constexpr double firstRowTop = 8;
constexpr double margin = 3;
constexpr double gap = 6;
// The gap between the letters of a row with more keys than the standard row.
constexpr double narrowGap = 5;
constexpr std::size_t keysInRow = 10;
// The height, in points, of the bar below the last row on a device without a home button. The height does not include
// the safe area.
constexpr double barHeight = 41;

const CharacterRows& charactersOf(const KeyboardFace& face) {
  switch (face.plane) {
    case KeyboardPlane::Letters:
      return face.shift == Shift::On ? face.letters.capital : face.letters.small;
    case KeyboardPlane::Numbers:
      return numberRows;
    case KeyboardPlane::Symbols:
      return symbolRows;
  }
  return face.letters.small;
}

std::array<Row, 3> rowsOf(const KeyboardFace& face) {
  const CharacterRows& characters = charactersOf(face);
  return {splitCharacters(characters[0]), splitCharacters(characters[1]), splitCharacters(characters[2])};
}

double gapFor(std::size_t keys) { return keys > keysInRow ? narrowGap : gap; }

double keyWidthFor(std::size_t keys, double keyboardWidth) {
  const auto count = static_cast<double>(keys);
  return (keyboardWidth - 2 * margin - (count - 1) * gapFor(keys)) / count;
}

class KeyLayoutBuilder {
 public:
  KeyLayoutBuilder(const KeyboardSize& size, const KeyboardFace& shown)
      : keyboard_(size),
        face_(shown),
        characters_(rowsOf(shown)),
        columns_(std::max({keysInRow, characters_[0].size(), characters_[1].size()})),
        letterGap_(gapFor(columns_)),
        standardWidth_(keyWidthFor(keysInRow, size.width)) {}

  std::vector<Key> build() {
    // The keys are narrower if the rows of letters in this language are longer.
    const double width = keyWidthFor(columns_, keyboard_.width);
    if (hasBackspaceInFirstRow()) {
      addCharacters(0, width, margin);
      addBackspace(0, keyboard_.width - 2 * margin - widthOf(characters_[0], width) - letterGap_);
    } else {
      addCharacters(0, width);
    }
    addCharacters(1, width);
    if (face_.plane == KeyboardPlane::Letters) {
      addThirdRowOfLetters(width);
    } else {
      addThirdRowOfSymbols();
    }
    addLastRow();
    if (keyboard_.bottomInset > 0) addBottomBar();
    return std::move(keys_);
  }

 private:
  bool hasBackspaceInFirstRow() const {
    return face_.plane == KeyboardPlane::Letters && face_.letters.backspaceRow == BackspaceRow::First;
  }

  double widthOf(const Row& row, double keyWidth) const {
    const auto count = static_cast<double>(row.size());
    return count * keyWidth + (count - 1) * letterGap_;
  }

  static double top(int row) { return firstRowTop + row * rowPitch; }

  void add(KeyRole role, std::string label, double x, int row, double width,
           KeyboardPlane targetPlane = KeyboardPlane::Letters) {
    keys_.push_back({role, std::move(label), {{x, top(row)}, {width, keyHeight}}, targetPlane});
  }

  void addCharacters(int row, double width, double x) {
    for (const std::string& character : characters_[static_cast<std::size_t>(row)]) {
      add(KeyRole::Character, character, x, row, width);
      x += width + letterGap_;
    }
  }
  // Adds a row of character keys, horizontally centered.
  void addCharacters(int row, double width) {
    addCharacters(row, width, (keyboard_.width - widthOf(characters_[static_cast<std::size_t>(row)], width)) / 2);
  }

  void addBackspace(int row, double width) {
    add(KeyRole::Backspace, "", keyboard_.width - margin - width, row, width);
  }

  // Adds the third row of letters. The shift key is at its start. A script without capital letters has no shift key, so
  // the letters start at the left margin, or are centered if the backspace key is in the first row.
  void addThirdRowOfLetters(double width) {
    if (hasBackspaceInFirstRow()) return addCharacters(2, width);
    const double letters = widthOf(characters_[2], width);
    const double room = keyboard_.width - 2 * margin - letters;
    if (!face_.letters.hasCapitals()) {
      addCharacters(2, width, margin);
      return addBackspace(2, std::min(widerWidth(), room - letterGap_));
    }
    const double side = std::min(widerWidth(), room / 2 - letterGap_);
    add(KeyRole::Shift, "", margin, 2, side);
    addCharacters(2, width);
    addBackspace(2, side);
  }

  // Adds the third row of the numbers or symbols plane. The row has fewer characters than the other rows, so their keys
  // are wider. The character keys are between the key that changes the plane and the backspace key.
  void addThirdRowOfSymbols() {
    const bool isNumberPlane = face_.plane == KeyboardPlane::Numbers;
    add(KeyRole::Plane, isNumberPlane ? "#+=" : "123", margin, 2, widerWidth(),
        isNumberPlane ? KeyboardPlane::Symbols : KeyboardPlane::Numbers);
    addCharacters(2, standardWidth_ * 1.4 + gap * 0.4);
    addBackspace(2, widerWidth());
  }

  double widerWidth() const { return standardWidth_ * 1.33; }

  void addLastRow() {
    const bool isLetterPlane = face_.plane == KeyboardPlane::Letters;
    const double side = widerWidth();
    const double returnWidth = 2 * side + gap;
    double x = margin;
    const auto next = [&](KeyRole role, std::string label, double width, KeyboardPlane targetPlane) {
      add(role, std::move(label), x, 3, width, targetPlane);
      x += width + gap;
    };
    next(KeyRole::Plane, isLetterPlane ? "123" : std::string(face_.letters.name), side,
         isLetterPlane ? KeyboardPlane::Numbers : KeyboardPlane::Letters);
    if (keyboard_.bottomInset > 0) {
      next(KeyRole::Emoji, "", side, KeyboardPlane::Letters);
    } else {
      next(KeyRole::Globe, "", standardWidth_, KeyboardPlane::Letters);
      next(KeyRole::Microphone, "", standardWidth_, KeyboardPlane::Letters);
    }
    next(KeyRole::Space, "space", keyboard_.width - margin - returnWidth - gap - x, KeyboardPlane::Letters);
    add(KeyRole::Return, face_.returnLabel, x, 3, returnWidth);
  }

  void addBottomBar() {
    constexpr double side = 44;
    constexpr double inset = 17;
    const double y = firstRowTop + rows * rowPitch - 4;
    keys_.push_back({KeyRole::Globe, "", {{inset, y}, {side, side}}});
    keys_.push_back({KeyRole::Microphone, "", {{keyboard_.width - inset - side, y}, {side, side}}});
  }

  const KeyboardSize keyboard_;
  const KeyboardFace& face_;
  const std::array<Row, 3> characters_;
  const std::size_t columns_;  // the number of keys in the longest of the first two rows
  const double letterGap_;
  const double standardWidth_;
  std::vector<Key> keys_;
};

}  // namespace

double KeyboardSize::height() const { return rows * rowPitch + (bottomInset > 0 ? bottomInset + barHeight : 0); }

std::vector<Key> keyboardKeys(const KeyboardSize& size, const KeyboardFace& face) {
  return KeyLayoutBuilder(size, face).build();
}

}  // namespace uikit
