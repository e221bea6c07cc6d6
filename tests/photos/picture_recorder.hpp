// Records every picture that banners are given. Create the recorder after the phone has started. Only one recorder can
// exist at a time.
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

  // The recorded pictures, in the order in which banners were given them. An element without a value is a nil picture.
  const std::vector<std::optional<Color>>& all() const { return recorded_; }

 private:
  friend struct UpdateImageHook;
  std::vector<std::optional<Color>> recorded_;
};

}  // namespace test
