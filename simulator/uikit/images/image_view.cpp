// UIImageView: a view that shows an image.
#include "platform/ui_image_view.hpp"

#include <nlohmann/json.hpp>
#include <string>

#include "simulator/uikit/description/view_tree.hpp"
#include "simulator/uikit/images/image_class.hpp"
#include "simulator/uikit/views/view.hpp"

struct ImageViewState {
  objc::Ref<UIImage> image;
};
template <>
struct objc::StateOf<UIImageView> {
  using Type = ImageViewState;
};

namespace uikit {

namespace {

UIImageView* initWithFrame(UIImageView* self, CGRect frame) {
  auto* view = objc::sendSuper<"UIImageView", UIImageView*, "initWithFrame:">(self, frame);
  if (view != nullptr) view->setUserInteractionEnabled(false);
  return view;
}

UIImageView* initWithImage(UIImageView* self, UIImage* image) {
  const CGSize size = image == nullptr ? CGSize{} : image->size();
  auto* view = objc::send<UIImageView*, "initWithFrame:">(self, CGRect{{}, size});
  if (view != nullptr) view->setImage(image);
  return view;
}

UIImage* image(UIImageView* self) { return objc::state(self).image; }

CGSize intrinsicContentSize(UIImageView* self) {
  const UIImage* shown = objc::state(self).image;
  return shown == nullptr ? CGSize{UIViewNoIntrinsicMetric, UIViewNoIntrinsicMetric} : shown->size();
}

void setImage(UIImageView* self, UIImage* image) {
  objc::Ref<UIImage>& current = objc::state(self).image;
  if (current.get() == image) return;
  const CGSize before = intrinsicContentSize(self);
  current = objc::retain(image);
  if (intrinsicContentSize(self) != before) invalidateIntrinsicContentSize(self);
  setNeedsDisplay(self);
}

CGSize sizeThatFits(UIImageView* self, CGSize) {
  const UIImage* shown = objc::state(self).image;
  return shown == nullptr ? CGSize{} : shown->size();
}

void drawContent(UIImageView* self, void* canvas) {
  const auto mode = objc::send<UIViewContentMode, "contentMode">(self);
  static_cast<drawing::Canvas*>(canvas)->drawImage(imageOf(objc::state(self).image), rectangle(shownBounds(self)),
                                                   static_cast<drawing::ContentMode>(mode));
}

CGRect contentArea(UIImageView* self) {
  const auto shown = imageOf(objc::state(self).image);
  if (shown == nullptr) return {};
  const auto mode = objc::send<UIViewContentMode, "contentMode">(self);
  return rectangle(
      drawing::placeContent(shown->size(), rectangle(shownBounds(self)), static_cast<drawing::ContentMode>(mode)));
}

// Returns the name of the image's file, or the size in pixels of an image that was decoded from data and has no file
// name.
std::string nameOf(const drawing::Image& image) {
  if (!image.name().empty()) return image.name();
  return "data " + std::to_string(image.pixelWidth()) + "x" + std::to_string(image.pixelHeight());
}

void describe(UIImageView* self, void* description) {
  objc::sendSuper<"UIImageView", void, "_describe:">(self, description);
  if (const auto shown = imageOf(objc::state(self).image)) descriptionAt(description)["image"] = nameOf(*shown);
}

}  // namespace

void defineImageView() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"initWithFrame:", &initWithFrame>(),
      objc::method<"initWithImage:", &initWithImage>(),
      objc::method<"image", &image>(),
      objc::method<"setImage:", &setImage>(),
      objc::method<"intrinsicContentSize", &intrinsicContentSize>(),
      objc::method<"sizeThatFits:", &sizeThatFits>(),
      objc::method<"_drawContentInCanvas:", &drawContent>(),
      objc::method<"_contentArea", &contentArea>(),
      objc::method<"_describe:", &describe>(),
  };
  objc::defineClassWithState<UIImageView>(methods);
}

}  // namespace uikit
