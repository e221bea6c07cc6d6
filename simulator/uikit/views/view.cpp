#include "simulator/uikit/views/view.hpp"

#include "simulator/uikit/layout/layout_constraint.hpp"
#include "simulator/uikit/touch/gesture_recognizer.hpp"
#include "simulator/uikit/views/class_definitions.hpp"
#include "simulator/uikit/views/view_categories.hpp"
#include "simulator/uikit/views/view_geometry.hpp"
#include "simulator/uikit/views/view_record.hpp"

namespace {

// Returns the view that contains this state.
UIView* ownerOf(ViewState* state) {
  return reinterpret_cast<UIView*>(reinterpret_cast<char*>(state) - objc::detail::StateOffset<UIView>::offset);
}

}  // namespace

ViewState::ViewState() : record(std::make_unique<uikit::ViewRecord>(ownerOf(this))) {}

ViewState::~ViewState() { uikit::detachFromView(gestureRecognizers); }

namespace uikit {

ViewRecord::ViewRecord(UIView* owner)
    : view(owner), layerObject(objc::make<CALayer>()), layer(*objc::state(layerObject.get()).record) {}

ViewRecord::~ViewRecord() {
  for (const objc::Ref<NSLayoutConstraint>& constraint : constraints) {
    ConstraintRecord& state = objc::state(constraint.get());
    state.holder = state.firstView = state.secondView = nullptr;
  }
  for (const objc::Ref<UIView>& subview : subviews) uikit::record(subview.get()).superview = nullptr;
}

namespace {

UIView* init(UIView* self) { return objc::send<UIView*, "initWithFrame:">(self, CGRect{}); }

UIView* initWithFrame(UIView* self, CGRect frame) {
  UIView* made = objc::sendSuper<"UIView", UIView*, "init">(self);
  if (made != nullptr) setFrame(made, frame);
  return made;
}

NSInteger tag(UIView* self) { return record(self).tag; }
void setTag(UIView* self, NSInteger tag) { record(self).tag = tag; }

}  // namespace

void defineView() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"init", &init>(),
      objc::method<"initWithFrame:", &initWithFrame>(),
      objc::method<"tag", &tag>(),
      objc::method<"setTag:", &setTag>(),
  };
  static constexpr objc::FieldEntry fields[] = {
      objc::field<objc::Ref<NSMutableArray>>("_gestureRecognizers", offsetof(ViewState, gestureRecognizers)),
      {"_record", "?", sizeof(ViewState::record), alignof(decltype(ViewState::record)), offsetof(ViewState, record)},
  };
  objc::defineClassWithState<UIView>(methods, fields);
  for (const auto& category :
       {viewHierarchyMethods(), viewGeometryMethods(), viewLayoutMethods(), viewRenderingMethods(),
        viewInteractionMethods(), viewAnimationMethods(), viewTraitMethods(), viewDescriptionMethods()})
    objc::addCategory(UIView::classObject(), category);
}

}  // namespace uikit
