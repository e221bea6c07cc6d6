#include "simulator/plugins/window/web_page.hpp"

#include <fcntl.h>
#include <glib.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <thread>

#include "simulator/foundation/descriptor.hpp"
#include "simulator/foundation/local_socket.hpp"

namespace window {

namespace {

constexpr const char* program = "broadwayd";
constexpr const char* loopback = "127.0.0.1";
constexpr int firstPort = 8085;
constexpr int lastPort = 8184;
constexpr int maxFailures = 3;
constexpr int programMissing = 127;
constexpr std::chrono::seconds maxStartTime(10);
constexpr std::chrono::milliseconds pollInterval(5);

bool isFree(int port) {
  const foundation::FileDescriptor probe(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
  const int reuse = 1;
  setsockopt(probe.get(), SOL_SOCKET, SO_REUSEADDR, &reuse, sizeof reuse);
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return bind(probe.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

// The number of the display is the port, because both must be unique.
std::string displayName(int port) { return std::string(":").append(std::to_string(port)); }

// The server adds one to the number of the display.
std::string socketName(int port) { return std::string("broadway").append(std::to_string(port + 1)).append(".socket"); }

std::filesystem::path socketFolder() { return g_get_user_runtime_dir(); }

// Starts the server. The system ends it when the phone ends, even if the phone crashes. Its output is discarded. The
// process is multithreaded, so the child calls only functions that are safe after a fork.
pid_t spawn(int port) {
  const std::string portText = std::to_string(port);
  const std::string display = displayName(port);
  const pid_t phone = getpid();
  const pid_t child = fork();
  if (child != 0) return child;
  prctl(PR_SET_PDEATHSIG, SIGTERM);
  if (getppid() != phone) _exit(0);
  const int null = open("/dev/null", O_RDWR);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(null, stream);
  execlp(program, program, "--address", loopback, "--port", portText.c_str(), display.c_str(), nullptr);
  _exit(errno == ENOENT ? programMissing : EXIT_FAILURE);
}

}  // namespace

WebPage::WebPage() {
  int failures = 0;
  for (int port = firstPort; port <= lastPort && failures < maxFailures; ++port) {
    if (!isFree(port)) continue;
    switch (start(port)) {
      case Start::Succeeded:
        g_setenv("GDK_BACKEND", "broadway", TRUE);
        g_setenv("BROADWAY_DISPLAY", displayName(port).c_str(), TRUE);
        return;
      case Start::ProgramMissing:
        std::fprintf(stderr, "springboard: the program %s is missing; install the package libgtk-3-bin\n", program);
        return;
      case Start::Failed:
        ++failures;
    }
  }
  std::fprintf(stderr, "springboard: %s cannot serve the page on a port from %d to %d of %s\n", program, firstPort,
               lastPort, loopback);
}

WebPage::~WebPage() { end(); }

std::string WebPage::address() const { return "http://" + std::string(loopback) + ":" + std::to_string(port_) + "/"; }

WebPage::Start WebPage::start(int port) {
  port_ = port;
  server_ = spawn(port);
  if (server_ < 0) {
    server_ = 0;
    return Start::Failed;
  }
  const auto deadline = std::chrono::steady_clock::now() + maxStartTime;
  while (std::chrono::steady_clock::now() < deadline) {
    int status = 0;
    if (waitpid(server_, &status, WNOHANG) != 0) {
      server_ = 0;
      return WIFEXITED(status) && WEXITSTATUS(status) == programMissing ? Start::ProgramMissing : Start::Failed;
    }
    if (foundation::connectIn(socketFolder(), socketName(port).c_str()).isOpen()) return Start::Succeeded;
    std::this_thread::sleep_for(pollInterval);
  }
  end();
  return Start::Failed;
}

void WebPage::end() {
  if (server_ == 0) return;
  kill(server_, SIGTERM);
  waitpid(server_, nullptr, 0);
  server_ = 0;
  std::error_code error;
  std::filesystem::remove(socketFolder() / socketName(port_), error);
}

}  // namespace window
