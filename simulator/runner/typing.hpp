// Simulates text input into the first responder, from a physical keyboard and from the input method that converts its
// key presses. Texts are UTF-8. Main thread.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/core_graphics.hpp"

namespace runner {

enum class Key { Return, Backspace };

// Specifies whether an object received the input. The input has no effect if no first responder accepts text.
enum class TypingResult { Received, NoReceiver };

// Replaces the marked text, or the selection if there is no marked text.
TypingResult typeText(const std::string& text);
TypingResult pressKey(Key key);

// Replaces the marked text, which is the unfinished text of the input method. `caret` is an offset in bytes in the
// text. An empty text removes the marked text.
TypingResult setMarkedText(const std::string& text, std::size_t caret);
bool hasMarkedText();

// The text of the first responder without the marked text. `caret` is an offset in bytes.
struct SurroundingText {
  std::string text;
  std::size_t caret = 0;
};
// Returns nothing if the first responder accepts no input method.
std::optional<SurroundingText> surroundingText();
// Deletes characters of the surrounding text. `offset` is the distance from the caret to the first of them, in
// characters. Any part of the range that is outside of the text is ignored.
void deleteSurroundingText(std::ptrdiff_t offset, std::size_t count);

// Returns the rectangle of the caret in points of the screen. Returns nothing if the first responder accepts no input
// method.
std::optional<CGRect> caretRectangle();

}  // namespace runner
