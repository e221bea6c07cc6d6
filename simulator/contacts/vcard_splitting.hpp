// Splits a vCard file into the texts of its cards. Any thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace contacts {

// Returns each card from its BEGIN line to its END line. Each property is one line, which ends with CRLF: folded lines
// are joined, and the soft line breaks of quoted-printable values are removed. A property is truncated before its
// 1001st semicolon or comma. The result omits a card without an END line and a card of more than 32 MiB. It also omits
// a card inside another card, because that card describes another person.
std::vector<std::string> splitCards(std::string_view text);

}  // namespace contacts
