#include "library/view/tiny_line.hpp"

#include "library/utilities/empty_text.hpp"
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

// Shows the body of a banner that has no header. The text before the first colon is assumed to be a name and is bold.
// If there is no colon, the first of several lines is bold. If there is only one line, no text is bold.
void showBody(const BrimContainerState& state) {
  NSString* line = state.body;
  if (isNilOrEmpty(line)) {
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

// Returns the header with a colon. If the header has no colon, ": " is appended. If the header begins with Latin
// letters, digits and blanks, and there are blanks before its first colon, ": " replaces the colon and the blanks
// around it. Any other header is returned unchanged.
NSString* headerWithColon(NSString* header) {
  if (!header->contains(":"_ns)) return header->stringByAppendingString(": "_ns);
  // The quantifier "+?" is lazy, because a greedy quantifier would match the blanks before the colon, which the capture
  // group must contain.
  auto* expression = NSRegularExpression::withPattern("^[A-z0-9\\s]+?([\\s]*:+[\\s]*)"_ns,
                                                      NSRegularExpressionOptions::CaseInsensitive);
  NSTextCheckingResult* match = expression->firstMatchInString(header, {0, header->length()});
  if (match == nullptr) return header;
  // The second match applies the pattern to the capture group alone. It succeeds only if there is a blank before the
  // colon, because "[A-z0-9\\s]+?" must match at least one character. Without a blank, the header does not change.
  NSTextCheckingResult* blanks = expression->firstMatchInString(header, match->rangeAtIndex(1));
  return blanks == nullptr ? header : header->stringByReplacingCharactersInRange(blanks->range(), ": "_ns);
}

}  // namespace

void showTinyLine(BrimContainer* self) {
  BrimContainerState& state = objc::state(self);
  if (isNilOrEmpty(state.header)) {
    showBody(state);
  } else if (isNilOrEmpty(state.body)) {
    showPlain(state, state.header, boldFont(state));
  } else {
    state.header = objc::retain(headerWithColon(state.header));
    showWithBoldStart(state, state.header->stringByAppendingString(state.body), state.header->length());
  }
}
