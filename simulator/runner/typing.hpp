// Simulates the input of a physical keyboard into the first responder. Main thread.
#pragma once

#include <string>

namespace runner {

enum class Key { Return, Backspace };

// Whether an object received the input. Without a first responder that accepts text, the input has no effect.
enum class TypingResult { Received, NoReceiver };

// Inserts UTF-8 text at the selection.
TypingResult typeText(const std::string& text);
TypingResult pressKey(Key key);

}  // namespace runner
