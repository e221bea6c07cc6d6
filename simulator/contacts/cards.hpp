// The cards of a vCard file, as text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace contacts {

// Each card from its BEGIN to its END, with lines ended by CRLF and the soft line breaks of quoted-printable values
// joined. A card that does not end before the next begins, or the file ends, is left out, and so is a card within a
// card: it is another person's. A larger card than a card can sensibly be is left out too.
std::vector<std::string> cardsIn(std::string_view text);

}  // namespace contacts
