#include "tests/photos/photo_phone.hpp"

#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/run_loop.hpp"
#include "simulator/url_loading/request_loader.hpp"

namespace test {

namespace {

constexpr const char* assetBundle = "Library/Application Support/Brim/Assets.bundle";
constexpr double pollingInterval = 0.005;

Setup setupWith(const std::map<std::string, Json>& settings) {
  Setup setup;
  setup.settings = settings;
  return setup;
}

std::string endpointsAt(const std::string& address) {
  std::string propertyList = "{\n";
  for (const char* name : {"twitterPages", "twitterImages", "slackAvatars", "discordAvatars", "facebookGraph"})
    propertyList.append(name).append(" = \"").append(address).append("\";\n");
  return propertyList + "}\n";
}

}  // namespace

PhotoPhone::PhotoPhone(const std::map<std::string, Json>& settings) : phone(setupWith(settings)) {
  writeEndpoints(endpointsAt(server.address()));
}

void PhotoPhone::writeEndpoints(const std::string& propertyList) {
  writeFile(root() / assetBundle / "endpoints.plist", propertyList);
}

int PhotoPhone::present(const std::string& application, const Json& userInfo, const Json& fields) {
  Json all = {{"section", application}, {"title", "Anna"}, {"message", "Hello"}, {"userInfo", userInfo}};
  all.update(fields);
  return phone.present(all);
}

void PhotoPhone::waitUntilIdle() {
  // The completion of a request can start another request.
  for (bool isIdle = false; !isIdle; isIdle = url_loading::pendingRequestCount() == 0) {
    const objc::AutoreleasePool pool;
    if (url_loading::pendingRequestCount() > 0) foundation::pumpRunLoop(pollingInterval);
    foundation::drainMainQueue();
  }
}

const Colors& PhotoPhone::picturesAfter(const std::string& application, const Json& userInfo, const Json& fields) {
  present(application, userInfo, fields);
  waitUntilIdle();
  return pictures.all();
}

Targets PhotoPhone::requestedTargets() const {
  Targets targets;
  for (const Request& request : server.requests()) targets.push_back(request.target);
  return targets;
}

}  // namespace test
