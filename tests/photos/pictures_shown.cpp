#include "tests/photos/pictures_shown.hpp"

#include <stdexcept>

#include "library/view/brim_container.hpp"
#include "objc/hook.hpp"
#include "simulator/uikit/images/image_class.hpp"

namespace test {

struct Recording {
  static inline PicturesShown* current = nullptr;

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
        throw std::runtime_error("a picture that no test made");
    }
  }

  static void updateImage(objc::Original<void(BrimContainer*, UIImage*)> original, BrimContainer* self,
                          UIImage* image) {
    original(self, image);
    if (current != nullptr) current->shown.push_back(colorOf(image));
  }
};

PicturesShown::PicturesShown() {
  using Hook = objc::detail::HookOf<&Recording::updateImage>;
  if (Hook::replaced == nullptr)
    MSHookMessageEx(BrimContainer::classObject(), objc::selector<"updateImage:">(), Hook::implementation(),
                    &Hook::replaced);
  Recording::current = this;
}

PicturesShown::~PicturesShown() { Recording::current = nullptr; }

}  // namespace test
