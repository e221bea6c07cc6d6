// The messages that a page sends: JSON objects whose field `do` is the name of the message. They are untrusted input.
// Any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "simulator/plugins/phone_display/composer_commands.hpp"
#include "simulator/uikit/touch/touch.hpp"

namespace web_page {

// The maximum size of a message.
inline constexpr std::size_t maxMessageBytes = 64 << 10;
// The maximum size of a message that the server receives completely before it refuses the message.
inline constexpr std::size_t maxStoredBytes = 4 * maxMessageBytes;
// The maximum width and height of a page, in pixels.
inline constexpr int maxPageSide = 16'384;

// Reports the size of the page in pixels. The picture of the phone fills the page as far as possible.
struct ShowMessage {
  int width;
  int height;
};

// The page has shown a message of the server.
struct AcknowledgeMessage {};

// A position in the picture of the phone, as fractions of its width and height. Values outside of the range from 0 to 1
// are outside of the picture.
struct TouchMessage {
  UITouchPhase phase;
  double x;
  double y;
};

struct TypeMessage {
  std::string text;
};

enum class PageKey { Return, Backspace, Space, Escape, Next, Previous, Up, Down, Left, Right, VolumeUp, VolumeDown };

struct KeyMessage {
  PageKey key;
};

// Requests the accessible elements of the screen, now and after each change.
struct DescribeMessage {};

// Performs an action of an accessible element.
struct ActMessage {
  std::uint64_t element;
  std::size_t action;
};

// Gives the keyboard focus to an accessible element.
struct FocusMessage {
  std::uint64_t element;
};

// Plays a preset of the composer.
struct PlayMessage {
  std::size_t preset;
};

// Sends the contents of the composer, which were filled from a preset.
struct SendMessage {
  std::size_t preset;
  phone_display::ComposerFields fields;
};

using PageMessage = std::variant<ShowMessage, AcknowledgeMessage, TouchMessage, TypeMessage, KeyMessage,
                                 DescribeMessage, ActMessage, FocusMessage, PlayMessage, SendMessage>;

// Returns nothing if the text is not a valid message. Does not check whether the presets, elements and actions with the
// given numbers exist.
std::optional<PageMessage> parseMessage(std::string_view text);

}  // namespace web_page
