// The keys of the on-screen keyboard and their frames. Lengths are in points.
#pragma once

#include <string>
#include <vector>

#include "platform/core_graphics.hpp"
#include "simulator/uikit/keyboard/keyboard_characters.hpp"

namespace uikit {

enum class KeyRole { Character, Shift, Backspace, Plane, Emoji, Globe, Microphone, Space, Return };

// The set of characters that the keyboard shows.
enum class KeyboardPlane { Letters, Numbers, Symbols };

enum class Shift { Off, On };

struct Key {
  KeyRole role = KeyRole::Character;
  // The text on the key, which is also the text that a character key inserts. Empty for a key with an icon.
  std::string label;
  CGRect frame;                                  // in the coordinates of the keyboard
  KeyboardPlane plane = KeyboardPlane::Letters;  // the plane that a key with role Plane shows
};

// The size of the keyboard. A bottom inset greater than 0 means a device without a home button: the globe and
// microphone keys are below the last row. Otherwise, they are in the last row.
struct KeyboardSize {
  double width = 0;
  double bottomInset = 0;

  double height() const;
};

// The state of the keyboard that determines its keys.
struct KeyboardFace {
  KeyboardPlane plane = KeyboardPlane::Letters;
  Shift shift = Shift::On;
  const LetterSet& letters;
  std::string returnLabel;
};

// All keys of the keyboard, row by row.
std::vector<Key> keyboardKeys(const KeyboardSize& size, const KeyboardFace& face);

}  // namespace uikit
