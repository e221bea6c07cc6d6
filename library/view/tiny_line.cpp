#include "library/view/tiny_line.hpp"

#include "library/view/brim_container_state.hpp"
#include "platform/ns_attributed_string.hpp"
#include "platform/ns_regular_expression.hpp"

namespace {

UIFont* boldFont(const BrimContainerState& state) {
  return UIFont::boldSystemFontOfSize(static_cast<CGFloat>(state.tinyBannerFontSize));
}
UIFont* regularFont(const BrimContainerState& state) {
  return UIFont::systemFontOfSize(static_cast<CGFloat>(state.tinyBannerFontSize));
}

void showPlain(const BrimContainerState& state, NSString* text, UIFont* font) {
  state.headerLabel->setText(text);
  state.headerLabel->setFont(font);
}

void showWithBoldStart(const BrimContainerState& state, NSString* text, NSUInteger boldLength) {
  const auto line = NSMutableAttributedString::withString(text);
  line->addAttribute(fontAttributeName(), boldFont(state), {0, boldLength});
  if (boldLength < text->length())
    line->addAttribute(fontAttributeName(), regularFont(state), {boldLength, text->length() - boldLength});
  state.headerLabel->setAttributedText(line);
}

// A body alone: what stands before its first colon, or its first line, is taken for a name.
void showBody(const BrimContainerState& state) {
  NSString* line = state.body;
  if (isBlank(line)) {
    showPlain(state, line, regularFont(state));
    return;
  }
  if (!line->contains(":"_ns)) {
    const NSRange lineFeed = line->rangeOfString("\n"_ns);
    if (lineFeed.length == 0) {
      showPlain(state, line, regularFont(state));
      return;
    }
    line = line->stringByReplacingCharactersInRange(lineFeed, ": "_ns);
  }
  showWithBoldStart(state, line, line->rangeOfString(":"_ns).location + 1);
}

// The header with a colon and a blank at its end where it has no colon; where it has one after words of Latin letters
// and digits, without the blanks before it. Any other header with a colon stays as it is.
NSString* headerEndingInColon(NSString* header) {
  if (!header->contains(":"_ns)) return header->stringByAppendingString(": "_ns);
  auto* expression = NSRegularExpression::withPattern("^[A-z0-9\\s]+?([\\s]*:+[\\s]*)"_ns,
                                                      NSRegularExpressionOptions::CaseInsensitive);
  NSTextCheckingResult* match = expression->firstMatchInString(header, {0, header->length()});
  if (match == nullptr) return header;
  // The colon with the blanks around it; it begins with a colon where there are none before it, and stays.
  NSTextCheckingResult* blanks = expression->firstMatchInString(header, match->rangeAtIndex(1));
  return blanks == nullptr ? header : header->stringByReplacingCharactersInRange(blanks->range(), ": "_ns);
}

}  // namespace

void showTinyLine(BrimContainer* self) {
  BrimContainerState& state = objc::state(self);
  if (isBlank(state.header)) {
    showBody(state);
  } else if (isBlank(state.body)) {
    showPlain(state, state.header, boldFont(state));
  } else {
    state.header = objc::retain(headerEndingInColon(state.header));
    showWithBoldStart(state, state.header->stringByAppendingString(state.body), state.header->length());
  }
}
