#include "simulator/uikit/environment/screen.hpp"

#include "simulator/uikit/environment/environment.hpp"

namespace uikit {

namespace {

Screen& changeableMainScreen() {
  static Screen screen(environment().device.screen, environment().device.scale);
  return screen;
}

}  // namespace

const Screen& mainScreen() { return changeableMainScreen(); }

void updateMainScreen() {
  changeableMainScreen().size = environment().device.screen;
  changeableMainScreen().scale = environment().device.scale;
}

}  // namespace uikit
