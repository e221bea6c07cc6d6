#include "simulator/contacts/cards.hpp"

#include <strings.h>

#include <algorithm>
#include <utility>

namespace contacts {

namespace {

constexpr std::size_t maxCard = 32 << 20;

std::string_view withoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool equalsIgnoringCase(std::string_view text, std::string_view other) {
  return text.size() == other.size() && strncasecmp(text.data(), other.data(), text.size()) == 0;
}

bool startsIgnoringCase(std::string_view text, std::string_view start) {
  return equalsIgnoringCase(text.substr(0, start.size()), start);
}

// The next line without its end, which may be any of the three that systems have used.
std::string_view takeLine(std::string_view& rest) {
  const std::size_t end = rest.find_first_of("\r\n");
  const std::string_view line = rest.substr(0, end);
  if (end == rest.npos) {
    rest = {};
  } else {
    const bool isPair = rest.substr(end, 2) == "\r\n";
    rest.remove_prefix(end + (isPair ? 2 : 1));
  }
  return line;
}

bool isQuotedPrintable(std::string_view line) {
  constexpr std::string_view encoding = "QUOTED-PRINTABLE";
  const std::string_view name = line.substr(0, line.find(':'));
  for (std::size_t index = 0; index + encoding.size() <= name.size(); ++index)
    if (startsIgnoringCase(name.substr(index), encoding)) return true;
  return false;
}

class Splitter {
 public:
  void add(std::string_view line) {
    const std::string_view words = withoutBlanks(line);
    if (equalsIgnoringCase(words, "BEGIN:VCARD")) {
      begin();
    } else if (depth == 0) {
      return;
    } else if (equalsIgnoringCase(words, "END:VCARD")) {
      end();
    } else if (depth == 1) {
      append(line);
    }
  }

  std::vector<std::string> take() { return std::move(cards); }

 private:
  // A card inside a card is announced by the property that it is the value of; any other begins instead of one that
  // was never finished.
  void begin() {
    if (depth > 0 && lastPropertyTakesCard) {
      ++depth;
    } else {
      depth = 1;
      card = "BEGIN:VCARD\r\n";
    }
    isJoining = false;
    lastPropertyTakesCard = false;
  }

  void end() {
    if (--depth > 0) return;
    if (card.size() <= maxCard) cards.push_back(std::move(card) + "END:VCARD\r\n");
    card.clear();
  }

  void append(std::string_view line) {
    if (card.size() > maxCard) return;
    if (!isJoining) isSoft = isQuotedPrintable(line);
    lastPropertyTakesCard = startsIgnoringCase(line, "AGENT") && withoutBlanks(line).ends_with(':');
    isJoining = isSoft && line.ends_with('=');
    if (isJoining) line.remove_suffix(1);
    card.append(line);
    // To its reader the end of the text.
    std::replace(card.end() - static_cast<std::ptrdiff_t>(line.size()), card.end(), '\0', ' ');
    if (!isJoining) card.append("\r\n");
  }

  std::vector<std::string> cards;
  std::string card;
  int depth = 0;
  bool isSoft = false;     // the present property is quoted-printable
  bool isJoining = false;  // and goes on in the next line
  bool lastPropertyTakesCard = false;
};

}  // namespace

std::vector<std::string> cardsIn(std::string_view text) {
  constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
  if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
  Splitter splitter;
  while (!text.empty()) splitter.add(takeLine(text));
  return splitter.take();
}

}  // namespace contacts
