// A phone on which pictures of senders are looked for: its web services are one server of the test's own.
#pragma once

#include "tests/library/phone.hpp"
#include "tests/photos/pictures_shown.hpp"
#include "tests/support/loopback_server.hpp"

namespace test {

using Colors = std::vector<std::optional<Color>>;

class PhotoPhone {
 public:
  explicit PhotoPhone(const std::map<std::string, Json>& settings = {});

  // Presents a notification of the application and gives its controller's number.
  int present(const std::string& application, const Json& userInfo, const Json& fields = Json::object());
  // Waits until no server is waited for, and until all that came of it is done.
  void settle();
  // Presents it, settles, and gives the pictures that banners were given since the test began.
  const Colors& shownAfter(const std::string& application, const Json& userInfo, const Json& fields = Json::object());

  // Answers the target with a picture.
  void serve(const std::string& target, Color color) { server.answer(target, {.body = pictureBytes(color)}); }
  // The targets asked for, in the order of their arrival.
  std::vector<std::string> asked() const;
  // The endpoints file of the asset bundle.
  void writeEndpoints(const std::string& propertyList);

  std::filesystem::path root() const { return phone.root(); }

  Phone phone;
  LoopbackServer server;
  PicturesShown pictures;

 private:
};

}  // namespace test
