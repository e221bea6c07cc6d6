// Usage: use_root ROOT ENDING. Uses ROOT, posts a distributed notification and prints one line: the folder of the
// daemon's sockets, the process ID of the daemon, and whether the entry "root" of the folder is a link or a folder.
// ENDING is "exit", "removed-root" (the program removes ROOT and exits) or "killed" (the program kills itself).
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
  foundation::pumpRunLoop();
}

void printDaemon() {
  const fs::path folder = std::getenv("TEMP");
  for (const auto& name : fs::directory_iterator(folder / "NSMessagePort/names")) {
    std::ifstream file(name.path());
    std::string port;
    long process = 0;
    if (std::getline(file, port) && file >> process)
      std::cout << folder << " " << process << " " << (fs::is_symlink(folder / "root") ? "link" : "folder")
                << std::endl;
  }
}

}  // namespace

int main(int, char** arguments) {
  const std::string ending = arguments[2];
  if (const auto error = foundation::useRoot(arguments[1], foundation::DefaultsDatabase::OfRoot)) {
    std::cerr << *error << "\n";
    return 1;
  }
  foundation::registerClasses();
  post();
  printDaemon();
  if (ending == "removed-root") fs::remove_all(arguments[1]);
  if (ending == "killed") raise(SIGKILL);
}
