#include "simulator/uikit/description/view_tree.hpp"

#include <nlohmann/json.hpp>

#include "simulator/uikit/description/property_name.hpp"
#include "simulator/uikit/layout/view_layout.hpp"
#include "simulator/uikit/views/view_categories.hpp"
#include "simulator/uikit/views/view_geometry.hpp"

namespace uikit {

namespace {

using Json = nlohmann::ordered_json;

Json describeRect(const CGRect& rect) {
  return Json::array({rect.origin.x, rect.origin.y, rect.size.width, rect.size.height});
}

void describeLayer(const LayerRecord& layer, Json& node) {
  if (layer.hasBackground) node["background"] = describeColor(layer.background.model());
  if (layer.cornerRadius.model() > 0) node["cornerRadius"] = layer.cornerRadius.model();
  if (layer.continuousCorners) node["continuousCorners"] = true;
}

void describeResponder(UIView* view, Json& node) {
  const bool isFirst = view->isFirstResponder();
  if (isFirst || objc::send<bool, "canBecomeFirstResponder">(view)) node["firstResponder"] = isFirst;
}

// Adds the fields that every view has.
void describe(UIView* self, void* pointer) {
  Json& node = descriptionAt(pointer);
  const ViewRecord& state = record(self);
  node["class"] = class_getName(object_getClass(objc::detail::toId(self)));
  node["frame"] = describeRect(frameOnScreen(self));
  node["hidden"] = state.layer.hidden;
  node["alpha"] = state.layer.opacity.model();
  describeLayer(state.layer, node);
  if (state.hasContentMode) node["contentMode"] = static_cast<NSInteger>(state.contentMode);
  node["interactive"] = state.userInteraction == UserInteraction::Enabled;
  describeResponder(self, node);
  if (const std::string name = propertyNameOf(self); !name.empty()) node["property"] = name;
}

Json describeNode(UIView* view) {
  Json node = Json::object();
  objc::send<void, "_describe:">(view, static_cast<void*>(&node));
  Json children = Json::array();
  for (const objc::Ref<UIView>& subview : record(view).subviews) children.push_back(describeNode(subview.get()));
  node["children"] = std::move(children);
  return node;
}

}  // namespace

Json describeColor(const drawing::Color& color) {
  return Json::array({color.red, color.green, color.blue, color.alpha});
}

Json describeTree(UIView* root) {
  layoutIfNeeded(root);
  return describeNode(root);
}

std::span<const objc::MethodEntry> viewDescriptionMethods() {
  static constexpr objc::MethodEntry methods[] = {objc::method<"_describe:", &describe>()};
  return methods;
}

}  // namespace uikit
