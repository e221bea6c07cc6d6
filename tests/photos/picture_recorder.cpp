#include "tests/photos/picture_recorder.hpp"

#include <stdexcept>

#include "library/view/brim_container.hpp"
#include "objc/hook.hpp"
#include "simulator/foundation/hook_function.hpp"
#include "simulator/uikit/images/image_class.hpp"

namespace test {

struct UpdateImageHook {
  static inline PictureRecorder* current = nullptr;

  static std::optional<Color> colorOf(UIImage* image) {
    const auto pixels = uikit::imageOf(image);
    if (pixels == nullptr) return std::nullopt;
    switch (pixels->pixel(0, 0)) {
      case 0xffff0000:
        return Color::Red;
      case 0xff00ff00:
        return Color::Green;
      case 0xff0000ff:
        return Color::Blue;
      default:
        throw std::runtime_error("unknown picture: expected a picture that application_data.hpp creates");
    }
  }

  static void updateImage(objc::Original<void(BrimContainer*, UIImage*)> original, BrimContainer* self,
                          UIImage* image) {
    original(self, image);
    if (current != nullptr) current->recorded_.push_back(colorOf(image));
  }
};

PictureRecorder::PictureRecorder() {
  using Hook = objc::detail::HookOf<&UpdateImageHook::updateImage>;
  if (Hook::replaced == nullptr)
    MSHookMessageEx(BrimContainer::classObject(), objc::selector<"updateImage:">(), Hook::implementation(),
                    &Hook::replaced);
  UpdateImageHook::current = this;
}

PictureRecorder::~PictureRecorder() { UpdateImageHook::current = nullptr; }

}  // namespace test
