#include "library/view/status_line.hpp"

#include "library/utilities/asset_bundle.hpp"
#include "library/view/construction.hpp"
#include "platform/ns_date.hpp"
#include "platform/ui_window.hpp"

namespace {

constexpr NSInteger topWithHomeButton = 65;
constexpr NSInteger topOtherwise = 44;
constexpr CGFloat clockLeading = 25;
constexpr CGFloat nowTrailing = 34;

// The text of the labels if the setting statusbar is off. Its spaces give the labels their usual height.
NSString* emptyStatusText() { return "   "_ns; }

NSString* clockText(const BrimContainerState& state) {
  const auto formatter = objc::make<NSDateFormatter>();
  formatter->setDateFormat(state.militaryClock ? "HH:mm"_ns : "h:mm"_ns);
  NSString* text = formatter->stringFromDate(NSDate::date());
  for (NSString* marker : {" AM"_ns, " am"_ns, " PM"_ns, " pm"_ns}) {
    const NSRange found = text->rangeOfString(marker);
    if (found.length != 0) text = text->stringByReplacingCharactersInRange(found, ""_ns);
  }
  return text;
}

// Returns the font size of the labels, clamped to the pane's maximum. Larger labels would cover the texts below.
CGFloat statusFontSize(const BrimContainerState& state) {
  constexpr NSInteger maxSize = 28;
  return points(state.statusbarFontSize < maxSize ? state.statusbarFontSize : maxSize);
}

objc::Ref<BrimLabel> makeStatusLabel(const BrimContainerState& state, NSString* text, UIFont* font) {
  objc::Ref<BrimLabel> label = makeConstrained<BrimLabel>();
  label->setText(text);
  label->setTextColor(state.colorSet->containerTextColor());
  label->setFont(font);
  return label;
}

}  // namespace

// If the screen has no safe area at the bottom, the device has a home button.
NSInteger statusLineTop(const BrimContainerState& state) {
  const UIEdgeInsets insets = UIApplication::sharedApplication()->keyWindow()->safeAreaInsets();
  return state.statusbar && insets.bottom <= 0 ? topWithHomeButton : topOtherwise;
}

void layOutStatusLine(BrimContainer* self, BrimContainerState& state) {
  state.clockLabel = makeStatusLabel(state, state.statusbar ? clockText(state) : emptyStatusText(),
                                     UIFont::boldSystemFontOfSize(statusFontSize(state)));
  self->addSubview(state.clockLabel);
  state.clockLabel->leadingAnchor()->equalTo(self->leadingAnchor(), clockLeading)->activated();
  state.clockLabel->topAnchor()->equalTo(self->topAnchor(), points(state.barTop))->activated();

  state.nowLabel =
      makeStatusLabel(state, state.statusbar ? localizedText(state.assets, "NOW"_ns, "now"_ns) : emptyStatusText(),
                      UIFont::systemFontOfSize(statusFontSize(state)));
  self->addSubview(state.nowLabel);
  state.nowLabel->trailingAnchor()->equalTo(self->trailingAnchor(), -nowTrailing)->activated();
  state.nowLabel->topAnchor()->equalTo(self->topAnchor(), points(state.barTop))->activated();
}
