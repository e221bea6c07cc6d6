#include "simulator/contacts/vcard_splitting.hpp"

#include <strings.h>

#include <utility>

namespace contacts {

namespace {

constexpr std::size_t maxCardBytes = 32 << 20;
// The maximum number of components and parameters of a property. The time to parse a property grows with the square of
// this number.
constexpr std::size_t maxSeparators = 1000;

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

// Removes the next line from `rest` and returns it without its line end, which can be LF, CR or CRLF.
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

bool usesQuotedPrintable(std::string_view line) {
  constexpr std::string_view encoding = "QUOTED-PRINTABLE";
  const std::string_view name = line.substr(0, line.find(':'));
  for (std::size_t index = 0; index + encoding.size() <= name.size(); ++index)
    if (startsIgnoringCase(name.substr(index), encoding)) return true;
  return false;
}

class CardSplitter {
 public:
  void addLine(std::string_view line) {
    const std::string_view words = withoutBlanks(line);
    if (equalsIgnoringCase(words, "BEGIN:VCARD")) {
      begin();
    } else if (depth_ == 0) {
      return;
    } else if (equalsIgnoringCase(words, "END:VCARD")) {
      end();
    } else if (depth_ == 1) {
      append(line);
    }
  }

  std::vector<std::string> takeCards() { return std::move(cards_); }

 private:
  // Begins a new card. After a property such as AGENT whose value is another card, the new card is nested in the
  // current one and is ignored. In any other place, the new card replaces the current one, whose END line is missing.
  void begin() {
    if (depth_ > 0 && nextCardIsNested_) {
      ++depth_;
    } else {
      depth_ = 1;
      card_ = "BEGIN:VCARD\r\n";
    }
    continuesOnNextLine_ = false;
    nextCardIsNested_ = false;
  }

  void end() {
    if (--depth_ > 0) return;
    if (card_.size() <= maxCardBytes) cards_.push_back(std::move(card_) + "END:VCARD\r\n");
    card_.clear();
  }

  void append(std::string_view line) {
    if (card_.size() > maxCardBytes) return;
    const bool isFolded = !continuesOnNextLine_ && (line.starts_with(' ') || line.starts_with('\t'));
    if (isFolded) {
      line.remove_prefix(1);
      card_.resize(card_.size() - lineEnd.size());
    } else if (!continuesOnNextLine_) {
      isQuotedPrintable_ = usesQuotedPrintable(line);
      nextCardIsNested_ = startsIgnoringCase(line, "AGENT") && withoutBlanks(line).ends_with(':');
      separators_ = 0;
    }
    continuesOnNextLine_ = isQuotedPrintable_ && line.ends_with('=');
    if (continuesOnNextLine_) line.remove_suffix(1);
    appendToProperty(line);
    if (!continuesOnNextLine_) card_.append(lineEnd);
  }

  // Appends the line, up to the separator that exceeds the property's limit.
  void appendToProperty(std::string_view line) {
    if (separators_ > maxSeparators) return;
    for (const char character : line) {
      if ((character == ';' || character == ',') && ++separators_ > maxSeparators) return;
      // The parser treats a zero byte as the end of the text.
      card_ += character == '\0' ? ' ' : character;
    }
  }

  static constexpr std::string_view lineEnd = "\r\n";

  std::vector<std::string> cards_;
  std::string card_;
  int depth_ = 0;
  std::size_t separators_ = 0;        // the number of semicolons and commas in the current property
  bool isQuotedPrintable_ = false;    // the current property is quoted-printable
  bool continuesOnNextLine_ = false;  // the current property ends with a soft line break
  bool nextCardIsNested_ = false;
};

}  // namespace

std::vector<std::string> splitCards(std::string_view text) {
  constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
  if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
  CardSplitter splitter;
  while (!text.empty()) splitter.addLine(takeLine(text));
  return splitter.takeCards();
}

}  // namespace contacts
