#include "simulator/uikit/rendering/damage.hpp"

#include <algorithm>

namespace uikit {

namespace {

using Iterator = ScreenContents::const_iterator;

void addPainted(cairo_region_t* region, Iterator begin, Iterator end) {
  for (; begin != end; ++begin) drawing::addTo(region, begin->appearance.painted);
}

void addDifferences(cairo_region_t* region, Iterator before, Iterator after, std::ptrdiff_t count) {
  for (const Iterator end = before + count; before != end; ++before, ++after) {
    if (before->appearance == after->appearance) continue;
    drawing::addTo(region, before->appearance.painted);
    drawing::addTo(region, after->appearance.painted);
  }
}

bool isSameView(const PaintedView& left, const PaintedView& right) {
  return left.appearance.view == right.appearance.view;
}

// Adds the pixels that are needed to repaint a backdrop. A backdrop is always blurred as a whole, and the blur reads
// the pixels behind the backdrop and around it. The pixels around it are still on the canvas, unless a later view was
// painted over them, so only the pixels under later views are added. Inside a transparent layer, all pixels are added,
// because the pixels of the layer are not retained.
void addBackdropInputs(cairo_region_t* region, const ScreenContents& contents, std::size_t index) {
  const PaintedView& backdrop = contents[index];
  if (backdrop.appearance.opacityOnScreen < 1) return drawing::addTo(region, backdrop.read);
  drawing::addTo(region, backdrop.appearance.painted);
  for (std::size_t later = index + 1; later < contents.size(); ++later)
    drawing::addTo(region, drawing::intersection(contents[later].appearance.painted, backdrop.read));
}

// Adds each rounded corner that is partly in the region as a whole, because cairo computes different coverages at the
// border of a region that intersects the curve of a clip. Returns whether a corner was added.
bool addClippingCorners(cairo_region_t* region, const PaintedView& view) {
  bool grew = false;
  for (const drawing::PixelRectangle& corner : view.clippingCorners) {
    if (drawing::overlap(region, corner) != CAIRO_REGION_OVERLAP_PART) continue;
    drawing::addTo(region, corner);
    grew = true;
  }
  return grew;
}

void addInputsOfPainting(cairo_region_t* region, const ScreenContents& contents) {
  std::vector<bool> isAdded(contents.size());
  for (bool grew = true; grew;) {
    grew = false;
    for (std::size_t index = 0; index < contents.size(); ++index) {
      if (addClippingCorners(region, contents[index])) grew = true;
      const drawing::PixelRectangle& read = contents[index].read;
      if (read.isEmpty() || isAdded[index] || drawing::overlap(region, read) == CAIRO_REGION_OVERLAP_OUT) continue;
      addBackdropInputs(region, contents, index);
      isAdded[index] = grew = true;
    }
  }
}

}  // namespace

drawing::RegionHandle differingPixels(const ScreenContents& before, const ScreenContents& after) {
  drawing::RegionHandle region(cairo_region_create());
  // Usually, views are added and removed at only one position in the list, so the views before and after this position
  // are the same in both lists.
  const auto [oldFirst, newFirst] = std::mismatch(before.begin(), before.end(), after.begin(), after.end(), isSameView);
  const auto [oldLast, newLast] = std::mismatch(before.rbegin(), std::make_reverse_iterator(oldFirst), after.rbegin(),
                                                std::make_reverse_iterator(newFirst), isSameView);
  addDifferences(region.get(), before.begin(), after.begin(), oldFirst - before.begin());
  addPainted(region.get(), oldFirst, oldLast.base());
  addPainted(region.get(), newFirst, newLast.base());
  addDifferences(region.get(), oldLast.base(), newLast.base(), before.end() - oldLast.base());
  addInputsOfPainting(region.get(), after);
  return region;
}

}  // namespace uikit
