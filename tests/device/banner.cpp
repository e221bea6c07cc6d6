#include "tests/device/banner.hpp"

#include <algorithm>

namespace device {

Banner::Banner(Phone& shownOn) : phone(shownOn) {
  ObjectiveC& runtime = phone.runtime;
  icon = makeString(runtime, "icon", "UIImage");
  view = runtime.send(runtime.sendClass("BrimContainer", "alloc"), "initWithUIImage:andHeader:andSubHeader:andBody:",
                      {icon, phone.string("Anna"), phone.string("Lunch"), phone.string("See you at one?")});
  const Address dark = runtime.send(runtime.sendClass("BrimColors", "alloc"), "initWithMode:", {1});
  set("setColorSet:", dark);
  set("setAppDetailImageBundleId:", phone.string("com.apple.MobileSMS"));
  set("setAppSize:", 40);
  set("setAppCornerRadius:", 20);
  set("setAppIconTop:", 15);
  set("setHeaderFontSize:", 15);
  set("setTextFontSize:", 13);
  set("setStatusbarFontSize:", 15);
  set("setContainerCornerRadius:", 30);
  set("setMaxLineCount:", 2);
  for (const char* flag : {"setEnableGlyphs:", "setStatusbar:", "setMilitaryClock:", "setEnableGrabber:",
                           "setBackgroundBlur:", "setEnableButtons:", "setCanReply:"})
    set(flag, 1);
}

void Banner::show() {
  const Address superview = phone.runtime.make("UIView");
  phone.runtime.openPool();
  phone.runtime.send(superview, "addSubview:", {view});
  phone.runtime.drainPool();
}

std::vector<Constraint> activeConstraints(Phone& phone) {
  std::vector<Constraint> found;
  for (const Address each : phone.platform.constraints)
    if (storedValue(phone.runtime, each, "active") != 0)
      found.push_back({phone.text(each), storedNumber(phone.runtime, each, "constant")});
  return found;
}

bool holds(const std::vector<Constraint>& constraints, const std::string& relation, double constant) {
  return std::any_of(constraints.begin(), constraints.end(),
                     [&](const Constraint& each) { return each.relation == relation && each.constant == constant; });
}

}  // namespace device
