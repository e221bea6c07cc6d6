#include "simulator/uikit/rendering/damage.hpp"

#include <algorithm>

namespace uikit {

namespace {

using Iterator = ScreenContents::const_iterator;

void addPainted(cairo_region_t* region, Iterator begin, Iterator end) {
  for (; begin != end; ++begin) drawing::addTo(region, begin->look.painted);
}

void addDifferences(cairo_region_t* region, Iterator before, Iterator after, std::ptrdiff_t count) {
  for (const Iterator end = before + count; before != end; ++before, ++after) {
    if (before->look == after->look) continue;
    drawing::addTo(region, before->look.painted);
    drawing::addTo(region, after->look.painted);
  }
}

bool isSameView(const PaintedView& left, const PaintedView& right) { return left.look.view == right.look.view; }

// A backdrop is blurred as a whole, from what lies beneath and around it. Around it, that is still on the canvas where
// nothing has been painted over it; inside a transparent layer it is not.
void addForBackdrop(cairo_region_t* region, const ScreenContents& contents, std::size_t index) {
  const PaintedView& backdrop = contents[index];
  if (backdrop.look.opacityOnScreen < 1) return drawing::addTo(region, backdrop.read);
  drawing::addTo(region, backdrop.look.painted);
  for (std::size_t later = index + 1; later < contents.size(); ++later)
    drawing::addTo(region, drawing::common(contents[later].look.painted, backdrop.read));
}

void addWhatBackdropsNeed(cairo_region_t* region, const ScreenContents& contents) {
  std::vector<bool> isAdded(contents.size());
  for (bool grew = true; grew;) {
    grew = false;
    for (std::size_t index = 0; index < contents.size(); ++index) {
      const drawing::PixelRectangle& read = contents[index].read;
      if (read.isEmpty() || isAdded[index] || drawing::overlap(region, read) == CAIRO_REGION_OVERLAP_OUT) continue;
      addForBackdrop(region, contents, index);
      isAdded[index] = grew = true;
    }
  }
}

}  // namespace

drawing::RegionHandle differingPixels(const ScreenContents& before, const ScreenContents& after) {
  drawing::RegionHandle region(cairo_region_create());
  // Views come and go at one place as a rule; before and behind it they are the same.
  const auto [oldFirst, newFirst] = std::mismatch(before.begin(), before.end(), after.begin(), after.end(), isSameView);
  const auto [oldLast, newLast] = std::mismatch(before.rbegin(), std::make_reverse_iterator(oldFirst), after.rbegin(),
                                                std::make_reverse_iterator(newFirst), isSameView);
  addDifferences(region.get(), before.begin(), after.begin(), oldFirst - before.begin());
  addPainted(region.get(), oldFirst, oldLast.base());
  addPainted(region.get(), newFirst, newLast.base());
  addDifferences(region.get(), oldLast.base(), newLast.base(), before.end() - oldLast.base());
  addWhatBackdropsNeed(region.get(), after);
  return region;
}

}  // namespace uikit
