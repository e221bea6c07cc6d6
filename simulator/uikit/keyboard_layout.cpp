#include "simulator/uikit/keyboard_layout.hpp"

#include <array>
#include <cctype>
#include <string_view>
#include <utility>

namespace uikit {

namespace {

using Rows = std::array<std::vector<std::string_view>, 3>;

constexpr double rowPitch = 54;
constexpr double rows = 4;
constexpr double keyHeight = 42;
constexpr double rowTop = 8;
constexpr double margin = 3;
constexpr double gap = 6;
constexpr double keysInRow = 10;
// Between the last row and the lower edge of a screen without a home button.
constexpr double barHeight = 41;

const Rows& charactersOf(KeyboardPlane plane) {
  static const Rows letters = {{{"q", "w", "e", "r", "t", "y", "u", "i", "o", "p"},
                                {"a", "s", "d", "f", "g", "h", "j", "k", "l"},
                                {"z", "x", "c", "v", "b", "n", "m"}}};
  static const Rows numbers = {{{"1", "2", "3", "4", "5", "6", "7", "8", "9", "0"},
                                {"-", "/", ":", ";", "(", ")", "$", "&", "@", "\""},
                                {".", ",", "?", "!", "'"}}};
  static const Rows symbols = {{{"[", "]", "{", "}", "#", "%", "^", "*", "+", "="},
                                {"_", "\\", "|", "~", "<", ">", "€", "£", "¥", "•"},
                                {".", ",", "?", "!", "'"}}};
  switch (plane) {
    case KeyboardPlane::Letters:
      return letters;
    case KeyboardPlane::Numbers:
      return numbers;
    case KeyboardPlane::Symbols:
      return symbols;
  }
  return letters;
}

class Builder {
 public:
  Builder(const KeyboardSize& size, KeyboardPlane shown, Shift shiftState)
      : keyboard(size),
        plane(shown),
        shift(shiftState),
        keyWidth((size.width - 2 * margin - (keysInRow - 1) * gap) / keysInRow) {}

  std::vector<Key> build(const std::string& returnLabel) {
    addCharacters(0, keyWidth);
    addCharacters(1, keyWidth);
    addThirdRow();
    addLastRow(returnLabel);
    if (keyboard.bottomInset > 0) addBar();
    return std::move(keys);
  }

 private:
  static double top(int row) { return rowTop + row * rowPitch; }

  void add(KeyRole role, std::string label, double x, int row, double width,
           KeyboardPlane leadsTo = KeyboardPlane::Letters) {
    keys.push_back({role, std::move(label), {{x, top(row)}, {width, keyHeight}}, leadsTo});
  }

  std::string typed(std::string_view character) const {
    std::string label(character);
    if (shift == Shift::On && label.size() == 1)
      label[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(label[0])));
    return label;
  }

  // In the middle of the keyboard.
  void addCharacters(int row, double width) {
    const auto& characters = charactersOf(plane)[static_cast<std::size_t>(row)];
    const auto count = static_cast<double>(characters.size());
    double x = (keyboard.width - count * width - (count - 1) * gap) / 2;
    for (const std::string_view character : characters) {
      add(KeyRole::Character, typed(character), x, row, width);
      x += width + gap;
    }
  }

  // Fewer characters are wider, between a key that changes the plane and the one that erases.
  void addThirdRow() {
    const double sideWidth = keyWidth * 1.33;
    if (plane == KeyboardPlane::Letters) {
      add(KeyRole::Shift, "", margin, 2, sideWidth);
      addCharacters(2, keyWidth);
    } else {
      const bool inNumbers = plane == KeyboardPlane::Numbers;
      add(KeyRole::Plane, inNumbers ? "#+=" : "123", margin, 2, sideWidth,
          inNumbers ? KeyboardPlane::Symbols : KeyboardPlane::Numbers);
      addCharacters(2, keyWidth * 1.4 + gap * 0.4);
    }
    add(KeyRole::Backspace, "", keyboard.width - margin - sideWidth, 2, sideWidth);
  }

  void addLastRow(const std::string& returnLabel) {
    const bool inLetters = plane == KeyboardPlane::Letters;
    const double side = keyWidth * 1.33;
    const double returnWidth = 2 * side + gap;
    double x = margin;
    const auto next = [&](KeyRole role, const char* label, double width, KeyboardPlane leadsTo) {
      add(role, label, x, 3, width, leadsTo);
      x += width + gap;
    };
    next(KeyRole::Plane, inLetters ? "123" : "ABC", side, inLetters ? KeyboardPlane::Numbers : KeyboardPlane::Letters);
    if (keyboard.bottomInset > 0) {
      next(KeyRole::Emoji, "", side, KeyboardPlane::Letters);
    } else {
      next(KeyRole::Globe, "", keyWidth, KeyboardPlane::Letters);
      next(KeyRole::Microphone, "", keyWidth, KeyboardPlane::Letters);
    }
    next(KeyRole::Space, "space", keyboard.width - margin - returnWidth - gap - x, KeyboardPlane::Letters);
    add(KeyRole::Return, returnLabel, x, 3, returnWidth);
  }

  void addBar() {
    constexpr double side = 44;
    constexpr double inset = 17;
    const double y = rowTop + rows * rowPitch - 4;
    keys.push_back({KeyRole::Globe, "", {{inset, y}, {side, side}}});
    keys.push_back({KeyRole::Microphone, "", {{keyboard.width - inset - side, y}, {side, side}}});
  }

  const KeyboardSize keyboard;
  const KeyboardPlane plane;
  const Shift shift;
  const double keyWidth;
  std::vector<Key> keys;
};

}  // namespace

double KeyboardSize::height() const { return rows * rowPitch + (bottomInset > 0 ? bottomInset + barHeight : 0); }

std::vector<Key> keysOf(const KeyboardSize& size, KeyboardPlane plane, Shift shift, const std::string& returnLabel) {
  return Builder(size, plane, shift).build(returnLabel);
}

}  // namespace uikit
