#include "simulator/uikit/text/styled_text.hpp"

#include <algorithm>

#include "platform/ns_dictionary.hpp"
#include "simulator/uikit/text/utf8.hpp"
#include "simulator/uikit/views/color.hpp"

namespace uikit {

namespace {

NSString* colorAttributeName() { return "NSColor"_ns; }

objc::Ref<NSString> copied(NSString* text) { return objc::adopt(objc::send<NSString*, "copy">(text)); }

template <class Object>
bool areEqual(const objc::Ref<Object>& left, const objc::Ref<Object>& right) {
  return left.get() == right.get() || (left != nullptr && left->isEqual(right));
}

bool areEqual(const StyledRange& left, const StyledRange& right) {
  return left.length == right.length && areEqual(left.font, right.font) && areEqual(left.color, right.color);
}

}  // namespace

StyledText::StyledText(NSString* text) : string_(copied(text)) {
  if (string_ != nullptr) ranges_.push_back({string_->length(), nullptr, nullptr});
}

StyledText::StyledText(NSAttributedString* text) : string_(copied(text->string())) {
  const NSUInteger length = string_->length();
  for (NSUInteger position = 0; position < length;) {
    NSRange range;
    const auto* attributes = objc::send<NSDictionary*, "attributesAtIndex:effectiveRange:">(text, position, &range);
    const NSUInteger end = std::min(range.location + range.length, length);
    ranges_.push_back({end - position, objc::retain(objc::as<UIFont>(attributes->objectForKey(fontAttributeName()))),
                       objc::retain(objc::as<UIColor>(attributes->objectForKey(colorAttributeName())))});
    position = end;
  }
}

bool StyledText::isStyled() const {
  return std::ranges::any_of(ranges_,
                             [](const StyledRange& range) { return range.font != nullptr || range.color != nullptr; });
}

void StyledText::removeFonts() {
  for (StyledRange& range : ranges_) range.font = nullptr;
}

void StyledText::removeColors() {
  for (StyledRange& range : ranges_) range.color = nullptr;
}

NSAttributedString* StyledText::attributedString(UIFont* defaultFont, UIColor* defaultColor) const {
  if (string_ == nullptr) return nullptr;
  auto result = NSMutableAttributedString::withString(string_);
  NSUInteger position = 0;
  for (const StyledRange& range : ranges_) {
    const NSRange characters = {position, range.length};
    UIFont* font = range.font != nullptr ? range.font.get() : defaultFont;
    UIColor* color = range.color != nullptr ? range.color.get() : defaultColor;
    if (font != nullptr) result->addAttribute(fontAttributeName(), font, characters);
    if (color != nullptr) result->addAttribute(colorAttributeName(), color, characters);
    position += range.length;
  }
  return objc::autorelease(result);
}

std::vector<drawing::Run> StyledText::runs(const drawing::Font& defaultFont, NSUInteger maxUnits) const {
  std::vector<drawing::Run> result;
  NSUInteger position = 0;
  for (const StyledRange& range : ranges_) {
    if (position >= maxUnits) break;
    drawing::Run run;
    run.text = utf8(string_, {position, std::min(range.length, maxUnits - position)});
    run.font = range.font != nullptr ? fontOf(range.font) : defaultFont;
    if (range.color != nullptr) run.color = colorOf(range.color);
    result.push_back(std::move(run));
    position += range.length;
  }
  return result;
}

bool operator==(const StyledText& left, const StyledText& right) {
  return areEqual(left.string_, right.string_) &&
         std::ranges::equal(left.ranges_, right.ranges_,
                            [](const StyledRange& one, const StyledRange& other) { return areEqual(one, other); });
}

}  // namespace uikit
