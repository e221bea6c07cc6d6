// The appearance of views: color, opacity, clipping and content.
#include "simulator/uikit/rendering/renderer.hpp"
#include "simulator/uikit/views/view_categories.hpp"
#include "simulator/uikit/views/view_record.hpp"

namespace uikit {

CGRect shownBounds(const UIView* view) { return record(view).layer.bounds.shown(); }

drawing::CornerShape shownCorners(const UIView* view) {
  const LayerRecord& layer = record(view).layer;
  return {layer.cornerRadius.shown(),
          layer.continuousCorners ? drawing::CornerCurve::Continuous : drawing::CornerCurve::Circular};
}

std::uint64_t nextContentVersion() {
  static std::uint64_t latest = 0;
  return ++latest;
}

namespace {

void noteContentChange(UIView* view) {
  record(view).contentVersion = nextContentVersion();
  noteDisplayChange();
}

CALayer* layer(UIView* self) { return record(self).layerObject; }

void setBackgroundColor(UIView* self, UIColor* color) {
  record(self).backgroundColor = objc::retain(color);
  self->layer()->setBackgroundColor(color->CGColor());
}

// Returns the color that was set. If the color of the layer has changed since then, returns a new color object.
UIColor* backgroundColor(UIView* self) {
  ViewRecord& state = record(self);
  if (!state.layer.hasBackground) return nullptr;
  const drawing::Color& shown = state.layer.background.model();
  const CGColorRef stored = state.backgroundColor->CGColor();
  if (stored == nullptr || stored->color != shown)
    state.backgroundColor = objc::retain(UIColor::withRed(shown.red, shown.green, shown.blue, shown.alpha));
  return state.backgroundColor;
}

CGFloat alpha(UIView* self) { return record(self).layer.opacity.model(); }
void setAlpha(UIView* self, CGFloat alpha) { setOpacity(record(self).layer, alpha); }

bool isHidden(UIView* self) { return record(self).layer.hidden; }
// Hides or shows the view. Its superview then needs layout, because a stack view does not arrange hidden views.
void setViewHidden(UIView* self, bool hidden) {
  if (record(self).layer.hidden == hidden) return;
  setHidden(record(self).layer, hidden);
  if (UIView* superview = record(self).superview; superview != nullptr) setNeedsLayout(superview);
}

bool clipsToBounds(UIView* self) { return record(self).layer.masksToBounds; }
void setClipsToBounds(UIView* self, bool clips) { setMasksToBounds(record(self).layer, clips); }

UIViewContentMode contentMode(UIView* self) { return record(self).contentMode; }
void setContentMode(UIView* self, UIViewContentMode mode) {
  record(self).contentMode = mode;
  record(self).hasContentMode = true;
  noteContentChange(self);
}

// The default implementation draws nothing. Subclasses override this method.
void drawContent(UIView*, void*) {}
// Looks up the implementation of UIView only once, because this function is called for each view in each frame.
bool drawsContent(const UIView* view) {
  const SEL draw = objc::selector<"_drawContentInCanvas:">();
  static const IMP inherited = class_getMethodImplementation(UIView::classObject(), draw);
  return class_getMethodImplementation(object_getClass(objc::detail::toId(view)), draw) != inherited;
}

CGRect contentArea(UIView* self) { return drawsContent(self) ? shownBounds(self) : CGRect{}; }
CGFloat contentReach(UIView*, CGFloat) { return 0; }

}  // namespace

std::span<const objc::MethodEntry> viewRenderingMethods() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"layer", &layer>(),
      objc::method<"backgroundColor", &backgroundColor>(),
      objc::method<"setBackgroundColor:", &setBackgroundColor>(),
      objc::method<"alpha", &alpha>(),
      objc::method<"setAlpha:", &setAlpha>(),
      objc::method<"isHidden", &isHidden>(),
      objc::method<"setHidden:", &setViewHidden>(),
      objc::method<"clipsToBounds", &clipsToBounds>(),
      objc::method<"setClipsToBounds:", &setClipsToBounds>(),
      objc::method<"contentMode", &contentMode>(),
      objc::method<"setContentMode:", &setContentMode>(),
      objc::method<"setNeedsDisplay", &noteContentChange>(),
      objc::method<"_drawContentInCanvas:", &drawContent>(),
      objc::method<"_contentArea", &contentArea>(),
      objc::method<"_contentReach:", &contentReach>(),
  };
  return methods;
}

}  // namespace uikit
