#include "library/view/texts.hpp"

#include "library/view/construction.hpp"
#include "library/view/height_and_position.hpp"
#include "library/view/tiny_line.hpp"

namespace {

constexpr CGFloat textMargin = 16;
constexpr CGFloat bodyBelowHeader = 4;
constexpr CGFloat tinyLineBelowIconTop = 1;

NSTextAlignment alignment(const BrimContainerState& state) {
  constexpr NSTextAlignment alignments[] = {NSTextAlignment::Natural, NSTextAlignment::Left, NSTextAlignment::Center,
                                            NSTextAlignment::Right};
  return state.textAlignment < sizeof alignments / sizeof *alignments ? alignments[state.textAlignment]
                                                                      : NSTextAlignment::Natural;
}

// Adds the label and places it between the picture and the banner's trailing edge. Returns the constraint of the
// label's leading edge, whose constant changes when the badge is shown.
objc::Ref<NSLayoutConstraint> placeBesideIcon(BrimContainer* self, const BrimContainerState& state, BrimLabel* label) {
  self->addSubview(label);
  objc::Ref<NSLayoutConstraint> leading =
      objc::retain(label->leadingAnchor()->equalTo(state.iconView->trailingAnchor(), textMargin)->activated());
  label->trailingAnchor()->equalTo(self->trailingAnchor(), -textMargin)->activated();
  return leading;
}

void layOutHeader(BrimContainer* self, BrimContainerState& state) {
  state.headerLabel = makeConstrained<BrimLabel>();
  BrimLabel* label = state.headerLabel;
  label->setTextAlignment(alignment(state));
  label->setTextColor(state.colorSet->containerTextColor());
  if (state.tinyBanner) {
    showTinyLine(self);
  } else {
    label->setText(state.header);
    label->setFont(UIFont::boldSystemFontOfSize(points(state.headerFontSize)));
  }
  label->setNumberOfLines(1);
  state.headerLeading = placeBesideIcon(self, state, label);
  label->topAnchor()->equalTo(state.iconView->topAnchor(), state.tinyBanner ? tinyLineBelowIconTop : 0)->activated();
}

void layOutSubHeader(BrimContainer* self, BrimContainerState& state) {
  state.subHeaderLabel = makeConstrained<BrimLabel>();
  BrimLabel* label = state.subHeaderLabel;
  label->setTextAlignment(alignment(state));
  label->setText(state.subHeader);
  label->setFont(UIFont::boldSystemFontOfSize(points(state.headerFontSize)));
  label->setNumberOfLines(1);
  label->setTextColor(state.colorSet->containerTextColor());
  state.subHeaderLeading = placeBesideIcon(self, state, label);
  label->topAnchor()->equalTo(state.headerLabel->bottomAnchor())->activated();
}

void layOutBody(BrimContainer* self, BrimContainerState& state) {
  state.bodyLabel = makeConstrained<BrimLabel>();
  BrimLabel* label = state.bodyLabel;
  label->setTextAlignment(alignment(state));
  if (!state.tinyBanner) {
    label->setNumberOfLines(state.maxLineCount);
    label->setText(state.body);
  }
  label->setContentMode(UIViewContentMode::Top);
  label->setTextColor(state.colorSet->containerTextColor());
  label->setFont(label->font()->fontWithSize(points(state.textFontSize)));
  state.bodyLeading = placeBesideIcon(self, state, label);
  BrimLabel* above = state.subHeaderLabel != nullptr ? state.subHeaderLabel : state.headerLabel;
  label->topAnchor()->equalTo(above->bottomAnchor(), bodyBelowHeader)->activated();
}

}  // namespace

void layOutTexts(BrimContainer* self, BrimContainerState& state) {
  layOutHeader(self, state);
  if (!state.tinyBanner && state.subHeader != nullptr) layOutSubHeader(self, state);
  layOutBody(self, state);
}

void setMaxLineCount(BrimContainer* self, NSInteger lines) {
  BrimContainerState& state = objc::state(self);
  state.maxLineCount = lines;
  state.showingAllLines = true;
  const objc::Ref<BrimContainer> banner = objc::retain(self);
  const auto show = objc::block([banner, lines] {
    const BrimContainerState& current = objc::state(banner.get());
    (current.tinyBanner ? current.headerLabel : current.bodyLabel)->setNumberOfLines(lines);
    banner->superview()->layoutIfNeeded();
  });
  UIView::animate(resizeDuration, show);
}
