// A simulated phone for tests of photo providers. A loopback server replaces the hosts of all web services.
#pragma once

#include "tests/library/phone.hpp"
#include "tests/photos/picture_recorder.hpp"
#include "tests/support/loopback_server.hpp"

namespace test {

using Colors = std::vector<std::optional<Color>>;
// The targets of requests. A target is the path and the query of an address.
using Targets = std::vector<std::string>;

class PhotoPhone {
 public:
  explicit PhotoPhone(const std::map<std::string, Json>& settings = {});

  // Presents a notification of the application. Returns the controller's number.
  int present(const std::string& application, const Json& userInfo, const Json& fields = Json::object());
  // Waits until all requests are answered and all answers are processed.
  void waitUntilIdle();
  // Presents a notification and waits until the phone is idle. Returns all pictures that banners were given since the
  // start of the test.
  const Colors& picturesAfter(const std::string& application, const Json& userInfo,
                              const Json& fields = Json::object());

  // Makes the server answer requests of the target with a picture.
  void serve(const std::string& target, Color color) { server.answer(target, {.body = pictureBytes(color)}); }
  // The targets that were requested, in the order of arrival.
  Targets requestedTargets() const;
  // Replaces the file endpoints.plist of the asset bundle.
  void writeEndpoints(const std::string& propertyList);

  std::filesystem::path root() const { return phone.root(); }

  Phone phone;
  LoopbackServer server;
  PictureRecorder pictures;
};

}  // namespace test
