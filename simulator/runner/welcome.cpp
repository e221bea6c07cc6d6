#include "simulator/runner/welcome.hpp"

#include <algorithm>
#include <cstdio>
#include <string>

#include "simulator/foundation/main_queue.hpp"
#include "simulator/messages/chat_store.hpp"
#include "simulator/runner/demonstration_data.hpp"
#include "simulator/runner/demonstration_samples.hpp"

namespace runner {

namespace {

struct Greeting {
  const char* sample;  // the name of the demonstration's sample
  double seconds;      // the time after the start
};

// A photo, a message that the user can answer, and an alarm. By default, a banner is shown for five seconds.
constexpr Greeting greetings[] = {{"telegram", 1.5}, {"messages-reply", 9}, {"alarm", 18}};

void reportError(const std::string& reason) { std::fprintf(stderr, "springboard: welcome: %s\n", reason.c_str()); }

void present(Session& session, const Sample& sample) try {
  if (sample.reply != nullptr) storeConversation(sample.notification);
  Json command = {{"do", "present"}};
  command.update(sample.notification);
  const Json answer = session.run(command);
  if (!answer["ok"].get<bool>()) reportError(answer["error"]);
} catch (const messages::StoreError& error) {
  reportError(error.what());
}

}  // namespace

void scheduleWelcome(Session& session) try {
  const std::vector<Sample> all = samples(installDemonstrationData());
  for (const Greeting& greeting : greetings) {
    const auto sample = std::ranges::find(all, std::string(greeting.sample), &Sample::name);
    foundation::onMainThreadAfter(greeting.seconds, [&session, sample = *sample] { present(session, sample); });
  }
} catch (const CommandError& error) {
  reportError(error.what());
}

}  // namespace runner
