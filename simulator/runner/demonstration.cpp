#include "simulator/runner/demonstration.hpp"

#include <cstdio>
#include <string>
#include <system_error>
#include <vector>

#include "simulator/base/iso_time.hpp"
#include "simulator/foundation/root.hpp"
#include "simulator/messages/chat_store.hpp"
#include "simulator/process/process_start.hpp"
#include "simulator/runner/command_handlers.hpp"
#include "simulator/runner/demonstration_data.hpp"
#include "simulator/runner/demonstration_samples.hpp"
#include "simulator/runner/library_inspection.hpp"
#include "simulator/url_loading/request_loader.hpp"

namespace runner {

namespace {

const Json pushAway = {{"do", "drag"}, {"by", {0, -120}}};

class Demonstration {
 public:
  Demonstration(Session& phone, std::filesystem::path pictures) : session(phone), folder(std::move(pictures)) {}

  void show(const Sample& sample, const std::string& style) {
    execute(sample.preparation);
    if (sample.reply != nullptr) storeMessage(sample.notification);
    Json present = {{"do", "present"}};
    present.update(sample.notification);
    execute({present});
    // The sender's picture may come from the web.
    if (url_loading::pendingRequestCount() > 0) execute({{{"do", "await"}, {"for", "photo"}}});
    execute({let(0.6)});
    execute(sample.steps);
    if (sample.reply != nullptr) execute({{{"do", "type"}, {"text", sample.reply}}, let(0.4)});
    takePicture(sample.name + ("-" + style));
    // A banner that was answered goes by itself.
    if (sample.reply != nullptr) {
      sendReply();
    } else {
      execute({pushAway});
    }
    execute({let(8)});
    execute(sample.restoration);
  }

  void execute(const std::vector<Json>& commands) {
    for (const Json& command : commands) {
      const Json answer = session.run(command);
      if (!answer["ok"].get<bool>()) fail(answer["error"]);
    }
  }

  bool hasFailed() const { return failed; }

 private:
  void takePicture(const std::string& name) {
    const std::string path = (folder / (name + ".png")).string();
    execute({{{"do", "screenshot"}, {"path", path}}});
    std::printf("%s\n", path.c_str());
  }

  // What a message is an answer to is in the Messages app's store.
  void storeMessage(const Json& notification) {
    const std::string title = notification["title"];
    const std::string thread = notification["thread"];
    messages::ChatStore(foundation::root())
        .addTo("iMessage;-;" + thread, title,
               {messages::Direction::Received, notification["message"], 0, base::systemUnixTime(), false});
  }

  // Tells what the Messages app says that it has sent.
  void sendReply() {
    execute({{{"do", "log"}}, {{"do", "key"}, {"name", "return"}}, {{"do", "await"}, {"for", "message"}}});
    const Json answer = session.run({{"do", "log"}});
    for (const Json& event : answer["events"]) {
      if (event["event"] != "message") continue;
      std::printf("sent to %s: %s\n", event["chat"].get<std::string>().c_str(),
                  event["text"].get<std::string>().c_str());
    }
  }

  void fail(const std::string& reason) {
    std::fprintf(stderr, "springboard: %s\n", reason.c_str());
    failed = true;
  }

  Session& session;
  std::filesystem::path folder;
  bool failed = false;
};

int complain(const std::string& reason) {
  std::fprintf(stderr, "springboard: %s\n", reason.c_str());
  return 1;
}

int showAll(Session& session, const std::filesystem::path& folder, const std::string& address) {
  Demonstration demonstration(session, folder);
  for (const char* style : {"light", "dark"}) {
    demonstration.execute({{{"do", "appearance"}, {"style", style}}});
    for (const Sample& sample : samples(address))
      // The platform's own banners have no field to type into.
      if (sample.reply == nullptr || !librarySettings().empty()) demonstration.show(sample, style);
  }
  return demonstration.hasFailed() ? 1 : 0;
}

}  // namespace

int demonstrate(Session& session, const std::filesystem::path& folder) try {
  std::filesystem::create_directories(folder);
  return showAll(session, folder, installDemonstrationData());
} catch (const std::filesystem::filesystem_error& error) {
  return complain(error.path1().string() + ": " + error.code().message());
} catch (const CommandError& error) {
  return complain(error.what());
} catch (const messages::StoreError& error) {
  return complain(error.what());
}

}  // namespace runner
