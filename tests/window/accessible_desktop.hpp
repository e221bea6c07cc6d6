// A desktop session with an accessibility bus, and a client that uses the bus as a screen reader does.
#pragma once

#include <atspi/atspi.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/child_process.hpp"
#include "tests/support/temporary_folder.hpp"

namespace test {

struct AccessibleDeleter {
  void operator()(AtspiAccessible* accessible) const { g_object_unref(accessible); }
};
using Accessible = std::unique_ptr<AtspiAccessible, AccessibleDeleter>;

class AccessibleDesktop {
 public:
  // Starts a session bus and sets the environment variables that select it.
  AccessibleDesktop();
  AccessibleDesktop(const AccessibleDesktop&) = delete;
  AccessibleDesktop& operator=(const AccessibleDesktop&) = delete;
  ~AccessibleDesktop();

  // Reports to the session that assistive technologies are in use, and connects to the accessibility bus, which starts
  // the bus.
  void enable();
  // Returns whether a program has started the accessibility bus.
  bool hasAccessibilityBus() const;

  // Returns the phone's accessible object with this role and name. Null if there is none.
  static Accessible find(AtspiRole role, const std::string& name);
  // Returns whether an object with this role and name appears within a few seconds.
  static bool appears(AtspiRole role, const std::string& name);
  // Performs the action with this name. Returns false if the object has no such action.
  static bool perform(const Accessible& accessible, const std::string& action);
  static std::string textOf(const Accessible& accessible);
  static bool hasState(const Accessible& accessible, AtspiStateType state);
  // Dispatches the received events, and returns the announcements so far.
  const std::vector<std::string>& announcements();

 private:
  TemporaryFolder folder_;
  std::unique_ptr<ChildProcess> bus_;
  AtspiEventListener* listener_ = nullptr;
  std::vector<std::string> announcements_;
};

}  // namespace test
