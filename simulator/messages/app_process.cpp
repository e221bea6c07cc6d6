#include "simulator/messages/app_process.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
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
#include "simulator/messages/home_screen_service.hpp"
#include "simulator/messages/messages_classes.hpp"
#include "simulator/process/instance_lock.hpp"
#include "simulator/process/signals.hpp"
#include "simulator/uikit/classes.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace messages {

namespace {

namespace fs = std::filesystem;
using foundation::FileDescriptor;

constexpr const char* messagesIdentifier = "com.apple.MobileSMS";

// Makes the root the file system of the app. Does not create the root if a home screen launched the app, because that
// home screen has created it. It can have ended since then, and its root can have been deleted.
void enterRoot(const MessagesOptions& options) {
  if (options.launch == Launch::ByUser) return process::useRoot(options.root);
  const fs::path& root = options.root;
  if (!fs::is_directory(root))
    throw process::StartError(root.string() + " does not exist; --suspended requires the root of a home screen");
  if (const auto error = foundation::useRoot(root, options.database)) throw process::StartError(*error);
}

FileDescriptor lockRoot() try {
  FileDescriptor lock = process::lockInstance(messagesFolder(foundation::root()), "messages.lock");
  if (!lock.isOpen()) throw AlreadyRunning("a Messages app is already running on " + foundation::root().string());
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

}  // namespace

struct MessagesApp::State {
  FileDescriptor lock;
  std::optional<messages::HomeScreenService> service;
  objc::Ref<CKConversationListController> list;
  FileDescriptor standardInput;
  bool standardInputHasEnded = false;
};

MessagesApp::MessagesApp(const MessagesOptions& options) : state_(std::make_unique<State>()) {
  process::ignoreWriteSignals();
  enterRoot(options);
  state_->lock = lockRoot();
  messages::ChatStore store = openStore();
  registerClasses(options);
  if (options.library == process::LibraryUse::Loaded) process::loadLibrary(messagesIdentifier);

  const objc::AutoreleasePool pool;
  auto report = [this](const nlohmann::ordered_json& event) {
    if (state_->service) state_->service->report(event);
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
  state_->list = objc::make<CKConversationListController>();
  // Loads the view of the list, which makes the library begin to receive requests.
  state_->list->view();

  const fs::path folder = messages::messagesFolder(foundation::root());
  state_->service.emplace(folder, &foundation::connectToNotificationDaemon);
  if (!state_->service->isOpen())
    throw process::StartError(folder.string() + ": cannot listen for home screens: " + std::strerror(errno));
  if (options.launch == Launch::Suspended) {
    // The app watches a duplicate of descriptor 0, because Foundation cannot watch descriptor 0.
    state_->standardInput = FileDescriptor(fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    foundation::watchDescriptor(state_->standardInput.get(), [this] {
      char ignored[64];
      if (read(state_->standardInput.get(), ignored, sizeof ignored) > 0) return;
      foundation::unwatchDescriptor(state_->standardInput.get());
      state_->standardInputHasEnded = true;
    });
  }
}

MessagesApp::~MessagesApp() {
  const objc::AutoreleasePool pool;
  if (state_->standardInput.isOpen() && !state_->standardInputHasEnded)
    foundation::unwatchDescriptor(state_->standardInput.get());
  state_->service.reset();
  state_->list = nullptr;
}

void MessagesApp::run() {
  process::handleTerminationSignals();
  // The app continues to run while another home screen is connected, because that home screen can send requests.
  foundation::runMainQueueUntil([this] {
    return process::isTerminationRequested() || (state_->standardInputHasEnded && !state_->service->isConnected());
  });
}

}  // namespace messages
