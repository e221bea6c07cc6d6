// The pieces of a banner's layout, in the order in which they are built.
#pragma once

#include "library/view/brim_container_state.hpp"

// The clock and the "now" label. Both exist in every variant: the icon hangs from the clock's top.
void layOutStatusLine(BrimContainer* self, BrimContainerState& state);
// The large picture and the badge on it.
void layOutIcon(BrimContainer* self, BrimContainerState& state);
// Header, sub-header and body.
void layOutTexts(BrimContainer* self, BrimContainerState& state);
// The constraints that make the banner as high as its content, and the grabber.
void layOutBottom(BrimContainer* self, BrimContainerState& state);
void layOutButtons(BrimContainer* self, BrimContainerState& state);
void layOutReply(BrimContainer* self, BrimContainerState& state);

// A view of the given class, placed by constraints alone, in the banner.
template <class View>
objc::Ref<View> placed() {
  objc::Ref<View> view = UIView::withFrame<View>({});
  view->setTranslatesAutoresizingMaskIntoConstraints(false);
  return view;
}

inline void setSize(UIView* view, CGFloat width, CGFloat height) {
  view->widthAnchor()->equalToConstant(width)->activated();
  view->heightAnchor()->equalToConstant(height)->activated();
}

inline void roundCorners(UIView* view, CGFloat radius) {
  view->layer()->setCornerRadius(radius);
  view->layer()->setContinuousCorners(true);
}

// The row below the content: buttons and the reply field share its place.
void placeInControlRow(BrimContainer* self, const BrimContainerState& state, UIView* row);

// A word of the asset bundle in the user's language.
inline NSString* localized(const BrimContainerState& state, NSString* key, NSString* fallback) {
  return state.assets == nullptr ? fallback : state.assets->localizedString(key, fallback);
}
