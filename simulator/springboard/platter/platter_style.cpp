#include "simulator/springboard/platter/platter_style.hpp"

#include "simulator/uikit/environment/trait_collection.hpp"

namespace springboard {

namespace {

struct Gray {
  CGFloat white;
  CGFloat alpha = 1;
};

UIColor* choose(const UIView* view, const Gray& light, const Gray& dark) {
  const Gray& gray = uikit::styleOf(view) == UIUserInterfaceStyle::Dark ? dark : light;
  return UIColor::withRed(gray.white, gray.white, gray.white, gray.alpha);
}

}  // namespace

void applyCardShape(UIView* view) {
  view->layer()->setCornerRadius(cardCornerRadius);
  view->layer()->setContinuousCorners(true);
  view->setClipsToBounds(true);
}

UIColor* textColor(const UIView* view) { return choose(view, {0}, {1}); }
UIColor* secondaryTextColor(const UIView* view) { return choose(view, {0, 0.6}, {1, 0.6}); }
UIColor* cardColor(const UIView* view) { return choose(view, {1}, {0.12}); }
UIColor* cardHeaderColor(const UIView* view) { return choose(view, {0.945}, {0.18}); }
UIColor* pressedRowColor(const UIView* view) { return choose(view, {0.85}, {0.27}); }
UIColor* separatorColor(const UIView* view) { return choose(view, {0, 0.18}, {1, 0.18}); }

}  // namespace springboard
