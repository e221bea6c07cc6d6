#include "simulator/runner/demonstration.hpp"

#include <cstdio>
#include <string>
#include <system_error>
#include <vector>

#include "simulator/messages/chat_store.hpp"
#include "simulator/process/process_start.hpp"
#include "simulator/runner/command_handlers.hpp"
#include "simulator/runner/demonstration_data.hpp"
#include "simulator/runner/demonstration_samples.hpp"
#include "simulator/runner/library_inspection.hpp"

namespace runner {

namespace {

const Json dismissByDrag = {{"do", "drag"}, {"by", {0, -120}}};

class Demonstration {
 public:
  Demonstration(Session& session, std::filesystem::path folder) : session_(session), folder_(std::move(folder)) {}

  void show(const Sample& sample, const std::string& style) {
    execute(sample.preparation);
    if (sample.reply != nullptr) storeConversation(sample.notification);
    Json present = {{"do", "present"}};
    present.update(sample.notification);
    execute({present});
    if (sample.pictureSource == PictureSource::Web) execute({{{"do", "await"}, {"for", "idle"}}});
    execute({waitStep(0.6)});
    execute(sample.steps);
    if (sample.reply != nullptr) execute({{{"do", "type"}, {"text", sample.reply}}, waitStep(0.4)});
    takePicture(sample.name + ("-" + style));
    // Sending a reply also dismisses the banner.
    if (sample.reply != nullptr) {
      sendReply();
    } else {
      execute({dismissByDrag});
    }
    execute({waitStep(8)});
    execute(sample.restoration);
  }

  void execute(const std::vector<Json>& commands) {
    for (const Json& command : commands) {
      const Json result = session_.run(command);
      if (!result["ok"].get<bool>()) fail(result["error"]);
    }
  }

  bool hasFailed() const { return hasFailed_; }

 private:
  void takePicture(const std::string& name) {
    const std::string path = (folder_ / (name + ".png")).string();
    execute({{{"do", "screenshot"}, {"path", path}}});
    std::printf("%s\n", path.c_str());
  }

  // Sends the reply, and prints the message when the Messages app reports that it was sent.
  void sendReply() {
    execute({{{"do", "log"}}, {{"do", "key"}, {"name", "return"}}, {{"do", "await"}, {"for", "message"}}});
    const Json result = session_.run({{"do", "log"}});
    for (const Json& event : result["events"]) {
      if (event["event"] != "message") continue;
      std::printf("sent to %s: %s\n", event["chat"].get<std::string>().c_str(),
                  event["text"].get<std::string>().c_str());
    }
  }

  void fail(const std::string& reason) {
    std::fprintf(stderr, "springboard: %s\n", reason.c_str());
    hasFailed_ = true;
  }

  Session& session_;
  std::filesystem::path folder_;
  bool hasFailed_ = false;
};

int reportError(const std::string& reason) {
  std::fprintf(stderr, "springboard: %s\n", reason.c_str());
  return 1;
}

int showAll(Session& session, const std::filesystem::path& folder, const std::string& address) {
  Demonstration demonstration(session, folder);
  for (const char* style : {"light", "dark"}) {
    demonstration.execute({{{"do", "appearance"}, {"style", style}}});
    for (const Sample& sample : samples(address))
      // A sample with a reply requires the library, because the platform's own banners have no reply field.
      if (sample.reply == nullptr || !librarySettings().empty()) demonstration.show(sample, style);
  }
  return demonstration.hasFailed() ? 1 : 0;
}

}  // namespace

int demonstrate(Session& session, const std::filesystem::path& folder) try {
  std::filesystem::create_directories(folder);
  return showAll(session, folder, installDemonstrationData());
} catch (const std::filesystem::filesystem_error& error) {
  return reportError(error.path1().string() + ": " + error.code().message());
} catch (const CommandError& error) {
  return reportError(error.what());
} catch (const messages::StoreError& error) {
  return reportError(error.what());
}

}  // namespace runner
