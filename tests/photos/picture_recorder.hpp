// Records every picture that banners are given. Create it after the phone has started. Only one can exist at a time.
#pragma once

#include <optional>
#include <vector>

#include "tests/photos/application_data.hpp"

namespace test {

class PictureRecorder {
 public:
  PictureRecorder();
  PictureRecorder(const PictureRecorder&) = delete;
  PictureRecorder& operator=(const PictureRecorder&) = delete;
  ~PictureRecorder();

  // In the order of the calls. No value where the picture was nil.
  const std::vector<std::optional<Color>>& all() const { return recorded_; }

 private:
  friend struct UpdateImageHook;
  std::vector<std::optional<Color>> recorded_;
};

}  // namespace test
