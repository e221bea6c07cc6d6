// A process of a root: use_root ROOT ENDING. Posts a notification, tells its daemon's place and number and
// what the root is in that place, and ends.
#include <signal.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

#include "objc/autorelease_pool.hpp"
#include "platform/ns_notification_center.hpp"
#include "simulator/foundation/classes.hpp"
#include "simulator/foundation/root.hpp"
#include "simulator/foundation/run_loop.hpp"

namespace {

namespace fs = std::filesystem;

void post() {
  const objc::AutoreleasePool pool;
  auto* const center =
      objc::send<NSNotificationCenter*, "defaultCenter">(objc::lookUpClass<"NSDistributedNotificationCenter">());
  center->post("BrimTestPresence"_ns, nullptr);
  foundation::pumpFoundation();
}

void tellDaemon() {
  const fs::path place = std::getenv("TEMP");
  for (const auto& name : fs::directory_iterator(place / "NSMessagePort/names")) {
    std::ifstream file(name.path());
    std::string port;
    long process = 0;
    if (std::getline(file, port) && file >> process)
      std::cout << place << " " << process << " " << (fs::is_symlink(place / "root") ? "link" : "folder") << std::endl;
  }
}

}  // namespace

int main(int, char** arguments) {
  const std::string ending = arguments[2];
  if (const auto reason = foundation::useRoot(arguments[1], foundation::DefaultsDatabase::OfRoot)) {
    std::cerr << *reason << "\n";
    return 1;
  }
  foundation::registerClasses();
  post();
  tellDaemon();
  if (ending == "removed-root") fs::remove_all(arguments[1]);
  if (ending == "killed") raise(SIGKILL);
}
