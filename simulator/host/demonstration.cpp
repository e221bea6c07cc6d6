#include "simulator/host/demonstration.hpp"

#include <cstdio>
#include <string>
#include <system_error>
#include <vector>

#include "simulator/host/command.hpp"

namespace host {

namespace {

struct Sample {
  const char* name;
  Json notification;
  // What happens to the banner before its picture is taken.
  std::vector<Json> steps;
  // Puts back what the steps before the notification changed.
  std::vector<Json> preparation;
  std::vector<Json> restoration;
};

const Json pullOpen = {{"do", "drag"}, {"by", {0, 120}}};
const Json pushAway = {{"do", "drag"}, {"by", {0, -120}}};

Json let(double seconds) { return {{"do", "wait"}, {"seconds", seconds}}; }
Json preference(const char* key, const Json& value) { return {{"do", "set"}, {"key", key}, {"value", value}}; }

std::vector<Sample> samples() {
  return {
      {"messages",
       {{"section", "com.apple.MobileSMS"},
        {"title", "Anna Weber"},
        {"message", "Are we still on for lunch? I found a place by the river 🌊"}},
       {},
       {},
       {}},
      {"messages-open",
       {{"section", "com.apple.MobileSMS"},
        {"title", "Anna Weber"},
        {"message", "The table is booked for one o'clock."}},
       {pullOpen, let(0.4)},
       {preference("showButtons", true)},
       {preference("showButtons", nullptr)}},
      {"mail",
       {{"section", "com.apple.mobilemail"},
        {"title", "Print Shop Lindner"},
        {"subtitle", "Your order is ready"},
        {"message", "Good morning, your posters have been printed and can be collected until Saturday at six."}},
       {},
       {},
       {}},
      {"alarm",
       {{"section", "com.apple.mobiletimer"},
        {"title", "Alarm"},
        {"message", "Water the plants"},
        {"close", true},
        {"dismissAutomatically", false},
        {"actions", {{{"key", "snooze"}, {"identifier", "MTAlarmSnoozeAction"}, {"title", "Snooze"}}}}},
       {pullOpen, let(0.4)},
       {},
       {}},
      {"calendar",
       {{"section", "com.apple.mobilecal"}, {"title", "Design review"}, {"message", "Today at 14:00\nRoom 3.07"}},
       {},
       {},
       {}},
      {"arabic",
       {{"section", "net.whatsapp.WhatsApp"},
        {"title", "ليلى منصور"},
        {"message", "صباح الخير! هل نلتقي اليوم في المقهى القريب من المكتبة؟"}},
       {},
       {},
       {}},
      {"long-text",
       {{"section", "com.tinyspeck.chatlyio"},
        {"title", "#release"},
        {"message",
         "The build is green again. What changed since yesterday: the importer no longer stops at empty rows, the "
         "preview draws twice as fast, and the French texts are complete. If nobody objects by four, it goes out "
         "tonight, "
         "and the notes go to everybody tomorrow morning."}},
       {pullOpen, let(0.4)},
       {},
       {}},
      {"tiny",
       {{"section", "com.hammerandchisel.discord"}, {"title", "Mika"}, {"message", "Game night at eight?"}},
       {},
       {preference("tinyBanner", true)},
       {preference("tinyBanner", nullptr)}},
  };
}

class Demonstration {
 public:
  Demonstration(Session& phone, std::filesystem::path pictures) : session(phone), folder(std::move(pictures)) {}

  void show(const Sample& sample, const std::string& style) {
    obey(sample.preparation);
    Json present = {{"do", "present"}};
    present.update(sample.notification);
    obey({present, let(0.6)});
    obey(sample.steps);
    takePicture(sample.name + ("-" + style));
    obey({pushAway, let(8)});
    obey(sample.restoration);
  }

  void obey(const std::vector<Json>& commands) {
    for (const Json& command : commands) {
      const Json answer = session.run(command);
      if (!answer["ok"].get<bool>()) fail(answer["error"]);
    }
  }

  bool hasFailed() const { return failed; }

 private:
  void takePicture(const std::string& name) {
    const std::string path = (folder / (name + ".png")).string();
    obey({{{"do", "screenshot"}, {"path", path}}});
    std::printf("%s\n", path.c_str());
  }

  void fail(const std::string& reason) {
    std::fprintf(stderr, "springboard: %s\n", reason.c_str());
    failed = true;
  }

  Session& session;
  std::filesystem::path folder;
  bool failed = false;
};

}  // namespace

int demonstrate(Session& session, const std::filesystem::path& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) {
    std::fprintf(stderr, "springboard: %s: %s\n", folder.c_str(), error.message().c_str());
    return 1;
  }
  Demonstration demonstration(session, folder);
  for (const char* style : {"light", "dark"}) {
    demonstration.obey({{{"do", "appearance"}, {"style", style}}});
    for (const Sample& sample : samples()) demonstration.show(sample, style);
  }
  return demonstration.hasFailed() ? 1 : 0;
}

}  // namespace host
