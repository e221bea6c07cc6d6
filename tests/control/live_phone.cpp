#include "tests/control/live_phone.hpp"

#include <sys/wait.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <thread>

namespace test {

namespace {

std::string contentsOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool isRunningOn(const std::filesystem::path& root) try {
  control::PhoneConnection phone(root);
  return true;
} catch (const control::ConnectionError&) {
  return false;
}

}  // namespace

LivePhone::LivePhone(const std::vector<std::string>& options) : command_({SPRINGBOARD, "--live", "--root", root_}) {
  command_.insert(command_.end(), options.begin(), options.end());
  restart();
}

void LivePhone::restart() {
  process_ = std::make_unique<ChildProcess>(command_);
  if (!becomesTrue([this] { return isRunningOn(root_) || process_->hasEnded(); }) || process_->hasEnded())
    throw std::runtime_error("the phone did not start");
}

Outcome LivePhone::control(const std::string& arguments, const std::string& standardInput) const {
  return runIn(folder(), std::string(PHONE_CONTROL) + " --root root " + arguments, standardInput);
}

std::vector<std::string> LivePhone::titles() const {
  std::vector<std::string> titles;
  const Json answer = execute({{"do", "notifications"}});
  for (const Json& notification : answer["notifications"])
    titles.push_back(notification["title"].is_string() ? notification["title"] : "");
  return titles;
}

Outcome runIn(const std::filesystem::path& folder, const std::string& command, const std::string& standardInput) {
  std::ofstream(folder / "in") << standardInput;
  const int status = std::system(("cd " + folder.string() + " && { " + command + "; } <in >out 2>err").c_str());
  return {WEXITSTATUS(status), contentsOf(folder / "out"), contentsOf(folder / "err")};
}

bool becomesTrue(const std::function<bool()>& condition) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return true;
}

}  // namespace test
