// Which keys the on-screen keyboard has, and where.
#pragma once

#include <string>
#include <vector>

#include "platform/core_graphics.hpp"
#include "simulator/uikit/keyboard/keyboard_letters.hpp"

namespace uikit {

enum class KeyRole { Character, Shift, Backspace, Plane, Emoji, Globe, Microphone, Space, Return };

// The set of characters that is shown.
enum class KeyboardPlane { Letters, Numbers, Symbols };

enum class Shift { Off, On };

struct Key {
  KeyRole role = KeyRole::Character;
  // What it types, or what it is called; empty where it bears a picture.
  std::string label;
  CGRect frame;                                  // in the keyboard
  KeyboardPlane plane = KeyboardPlane::Letters;  // where a plane's key leads
};

// Above the home indicator there is room for the globe and the microphone; a device with a home button has them in its
// last row.
struct KeyboardSize {
  double width = 0;
  double bottomInset = 0;

  double height() const;
};

// What a keyboard shows at a time.
struct KeyboardFace {
  KeyboardPlane plane = KeyboardPlane::Letters;
  Shift shift = Shift::On;
  const LetterSet& letters;
  std::string returnLabel;
};

std::vector<Key> keysOf(const KeyboardSize& size, const KeyboardFace& face);

}  // namespace uikit
