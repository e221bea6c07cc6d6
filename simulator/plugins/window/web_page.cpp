#include "simulator/plugins/window/web_page.hpp"

#include <fcntl.h>
#include <glib.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <thread>

#include "simulator/foundation/descriptor.hpp"

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

// Returns whether this server, and not the server of another phone, accepts connections of GTK. Its socket has a name,
// which begins with a zero byte, instead of a file. The server adds one to the number of the display.
bool isAccepting(pid_t server, int port) {
  const std::string name =
      std::string(g_get_user_runtime_dir()).append("/broadway").append(std::to_string(port + 1)).append(".socket");
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  if (name.size() + 1 >= sizeof address.sun_path) return false;
  std::ranges::copy(name, address.sun_path + 1);
  const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
  const foundation::FileDescriptor probe(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  if (connect(probe.get(), reinterpret_cast<const sockaddr*>(&address), size) != 0) return false;
  ucred peer = {};
  socklen_t peerSize = sizeof peer;
  return getsockopt(probe.get(), SOL_SOCKET, SO_PEERCRED, &peer, &peerSize) == 0 && peer.pid == server;
}

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
    if (isAccepting(server_, port)) return Start::Succeeded;
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
}

}  // namespace window
