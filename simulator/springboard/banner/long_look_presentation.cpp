#include "simulator/springboard/banner/long_look_presentation.hpp"

namespace springboard {

namespace {

LongLookPresentation current;

}  // namespace

void setLongLookPresentation(const LongLookPresentation& presentation) { current = presentation; }

const LongLookPresentation& longLookPresentation() { return current; }

bool showsLongLook(const NCNotificationShortLookViewController* shortLook) {
  return current.openedShortLook() == shortLook;
}

}  // namespace springboard
