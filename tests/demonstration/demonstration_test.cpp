// Checks that the sample notifications of the demonstration, the files that it installs and its web server work
// together.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "simulator/process/root_setup.hpp"
#include "simulator/runner/demonstration_data.hpp"
#include "simulator/runner/demonstration_samples.hpp"
#include "tests/library/phone.hpp"

namespace test {

namespace {

class Demonstration : public testing::TestWithParam<const char*> {
 protected:
  static Json notification(const std::string& address, const std::string& name) {
    for (const runner::Sample& sample : runner::samples(address))
      if (sample.name == name) return sample.notification;
    return nullptr;
  }
};

TEST_P(Demonstration, ShowsTheSendersPicture) {
  Phone phone;
  const Json sample = notification(runner::installDemonstrationData(), GetParam());
  ASSERT_FALSE(sample.is_null());
  const int controller = phone.present(sample);
  phone.run({{"do", "await"}, {"for", "photo"}});
  const Json events = phone.log();
  const auto photo =
      std::find_if(events.begin(), events.end(), [](const Json& event) { return event.at("event") == "photo"; });
  ASSERT_NE(photo, events.end());
  EXPECT_EQ(photo->at("controller"), controller);
  EXPECT_FALSE(photo->at("image").is_null());
}

INSTANTIATE_TEST_SUITE_P(Applications, Demonstration,
                         testing::Values("messages", "whatsapp", "telegram", "slack", "discord", "twitter", "instagram",
                                         "messenger"),
                         [](const auto& application) { return std::string(application.param); });

// The file with the addresses of the servers that provide the senders' pictures.
std::filesystem::path endpointsOf(const Phone& phone) {
  return phone.root() / "Library/Application Support/Brim/Assets.bundle/endpoints.plist";
}

std::string contentsOf(const std::filesystem::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(Demonstration, EndpointsAreRestoredWhenTheRootIsPreparedAgain) {
  const Phone phone;
  const std::string original = contentsOf(endpointsOf(phone));
  const std::string address = runner::installDemonstrationData();
  EXPECT_NE(contentsOf(endpointsOf(phone)).find(address), std::string::npos);
  EXPECT_EQ(process::prepareRoot(phone.root()), std::nullopt);
  EXPECT_EQ(contentsOf(endpointsOf(phone)), original);
}

TEST_F(Demonstration, KeepsEditedEndpoints) {
  const Phone phone;
  std::ofstream(endpointsOf(phone)) << "{ slackAvatars = \"http://127.0.0.1:9\"; }";
  runner::installDemonstrationData();
  EXPECT_EQ(contentsOf(endpointsOf(phone)), "{ slackAvatars = \"http://127.0.0.1:9\"; }");
}

TEST_F(Demonstration, CanBeInstalledTwice) {
  const Phone phone;
  runner::installDemonstrationData();
  EXPECT_NO_THROW(runner::installDemonstrationData());
}

}  // namespace

}  // namespace test
