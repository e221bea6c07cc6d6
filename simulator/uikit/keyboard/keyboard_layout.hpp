// Computes the keys of the on-screen keyboard and their frames. Lengths are in points.
#pragma once

#include <string>
#include <vector>

#include "platform/core_graphics.hpp"
#include "simulator/uikit/keyboard/keyboard_characters.hpp"

namespace uikit {

enum class KeyRole { Character, Shift, Backspace, Plane, Emoji, Globe, Microphone, Space, Return };

// The sets of characters that the keyboard can show.
enum class KeyboardPlane { Letters, Numbers, Symbols };

enum class Shift { Off, On };

struct Key {
  KeyRole role = KeyRole::Character;
  // The text on the key. A character key inserts this text. Empty for a key with an icon.
  std::string label;
  CGRect frame;                                  // in the coordinates of the keyboard
  KeyboardPlane plane = KeyboardPlane::Letters;  // the plane that a key with role Plane shows
};

// The size of the keyboard. If the bottom inset is greater than 0, the device has no home button, and the globe and
// microphone keys are below the last row. Otherwise, these keys are in the last row.
struct KeyboardSize {
  double width = 0;
  double bottomInset = 0;

  double height() const;
};

// The part of the keyboard's state that determines its keys.
struct KeyboardFace {
  KeyboardPlane plane = KeyboardPlane::Letters;
  Shift shift = Shift::On;
  const LetterSet& letters;
  std::string returnLabel;
};

// Returns all keys of the keyboard, row by row.
std::vector<Key> keyboardKeys(const KeyboardSize& size, const KeyboardFace& face);

}  // namespace uikit
