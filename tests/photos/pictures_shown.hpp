// Every picture that banners are given, as they are given it. One at a time, after the phone has started.
#pragma once

#include <optional>
#include <vector>

#include "tests/photos/application_data.hpp"

namespace test {

class PicturesShown {
 public:
  PicturesShown();
  PicturesShown(const PicturesShown&) = delete;
  PicturesShown& operator=(const PicturesShown&) = delete;
  ~PicturesShown();

  // Nothing for each nil.
  const std::vector<std::optional<Color>>& all() const { return shown; }

 private:
  friend struct Recording;
  std::vector<std::optional<Color>> shown;
};

}  // namespace test
