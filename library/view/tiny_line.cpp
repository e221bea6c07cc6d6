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

// A body without a header. The text before its first colon is shown as a name, in bold. If there is no colon, the first
// line is the name.
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

// A header without a colon gets ": " at its end. In a header of Latin letters and digits with blanks before its colon,
// ": " replaces the colon and the blanks around it. Any other header does not change.
NSString* headerWithColon(NSString* header) {
  if (!header->contains(":"_ns)) return header->stringByAppendingString(": "_ns);
  // The quantifier "+?" is lazy because the group must contain the blanks before the colon. A greedy one would match
  // them itself.
  auto* expression = NSRegularExpression::withPattern("^[A-z0-9\\s]+?([\\s]*:+[\\s]*)"_ns,
                                                      NSRegularExpressionOptions::CaseInsensitive);
  NSTextCheckingResult* match = expression->firstMatchInString(header, {0, header->length()});
  if (match == nullptr) return header;
  // The group alone, matched again: blanks before the colon match as letters do. Without blanks there is no match, and
  // the header does not change.
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
