#include "simulator/messages/app_process.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "objc/autorelease_pool.hpp"
#include "simulator/foundation/classes.hpp"
#include "simulator/foundation/distributed_notifications.hpp"
#include "simulator/foundation/locale.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/root.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "simulator/messages/classes.hpp"
#include "simulator/messages/instance_lock.hpp"
#include "simulator/messages/report_service.hpp"
#include "simulator/uikit/classes.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace messages {

namespace {

namespace fs = std::filesystem;
using foundation::Descriptor;

constexpr const char* messagesIdentifier = "com.apple.MobileSMS";

std::atomic<bool> toldToEnd = false;

void end(int) {
  toldToEnd = true;
  foundation::wakeMainThread();
}

// The home screen that launches it has prepared the root, in its own way. It may have ended since, and its root be
// gone.
void enterRoot(const MessagesOptions& options) {
  if (options.launch == Launch::ByHand) return process::useRoot(options.root);
  const fs::path& root = options.root;
  if (!fs::is_directory(root))
    throw process::StartError(root.string() + " is gone; --suspended wants a home screen's root");
  if (const auto failure = foundation::useRoot(root, options.database)) throw process::StartError(*failure);
}

Descriptor lockRoot() try {
  Descriptor lock = messages::lockInstance(messages::messagesFolder(foundation::root()));
  if (!lock.isOpen()) throw AlreadyRunning("the Messages app of " + foundation::root().string() + " runs already");
  return lock;
} catch (const fs::filesystem_error& error) {
  throw process::StartError(error.path1().string() + ": " + error.code().message());
}

messages::ChatStore openStore() try {
  return messages::ChatStore(foundation::root());
} catch (const messages::StoreError& error) {
  throw process::StartError(error.what());
}

void registerClasses(const MessagesOptions& options) {
  foundation::registerClasses();
  const objc::AutoreleasePool pool;
  uikit::Environment environment;
  foundation::useLocale(environment.locale);
  environment.systemVersion = options.systemVersion;
  uikit::setEnvironment(environment);
  uikit::registerClasses();
  messages::registerClasses();
}

// A closed pipe or a full disk is an error to be told, not the end.
void ignoreSignalsOfWriting() {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace

struct MessagesApp::State {
  Descriptor lock;
  std::optional<messages::Service> service;
  objc::Ref<CKConversationListController> list;
  Descriptor life;
  bool lifeHasEnded = false;
};

MessagesApp::MessagesApp(const MessagesOptions& options) : state(std::make_unique<State>()) {
  ignoreSignalsOfWriting();
  enterRoot(options);
  state->lock = lockRoot();
  messages::ChatStore store = openStore();
  registerClasses(options);
  if (options.library == process::LibraryUse::Mapped) process::mapLibrary(messagesIdentifier);

  const objc::AutoreleasePool pool;
  auto report = [this](const nlohmann::ordered_json& event) {
    if (state->service) state->service->report(event);
  };
  messages::useStore(std::move(store),
                     {.sent =
                          [report](const std::string& chat, const std::string& text, std::uint64_t flags) {
                            report({{"event", "message"}, {"chat", chat}, {"text", text}, {"flags", flags}});
                          },
                      .read =
                          [report](const std::string& chat) {
                            report({{"event", "read"}, {"chat", chat}});
                          }});
  state->list = objc::make<CKConversationListController>();
  // The list is loaded now, and whoever waits for that begins to listen.
  state->list->view();

  const fs::path folder = messages::messagesFolder(foundation::root());
  state->service.emplace(folder, &foundation::joinDistributedNotifications);
  if (!state->service->isOpen())
    throw process::StartError(folder.string() + ": home screens cannot be answered: " + std::strerror(errno));
  if (options.launch == Launch::Suspended) {
    // Descriptor 0 is what Foundation takes for none.
    state->life = Descriptor(fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    foundation::watchDescriptor(state->life.get(), [this] {
      char ignored[64];
      if (read(state->life.get(), ignored, sizeof ignored) > 0) return;
      foundation::unwatchDescriptor(state->life.get());
      state->lifeHasEnded = true;
    });
  }
}

MessagesApp::~MessagesApp() {
  const objc::AutoreleasePool pool;
  if (state->life.isOpen() && !state->lifeHasEnded) foundation::unwatchDescriptor(state->life.get());
  state->service.reset();
  state->list = nullptr;
}

void MessagesApp::run() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, &end);
  // Another home screen may still be about to ask for something.
  foundation::runMainQueueUntil(
      [this] { return toldToEnd.load() || (state->lifeHasEnded && !state->service->isConnected()); });
}

}  // namespace messages
