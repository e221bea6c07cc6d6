#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/ns_url_connection.hpp"
#include "simulator/foundation/hook_function.hpp"
#include "tests/photos/photo_phone.hpp"

namespace {

namespace fs = std::filesystem;
using test::Json;
using test::PhotoPhone;
using Addresses = std::vector<std::string>;

Addresses& requested() {
  static Addresses addresses;
  return addresses;
}

void recordRequest(Class, SEL, NSURLRequest* request, NSOperationQueue*, objc::Block<NSURLConnection::Completion>*) {
  auto* const url = objc::send<NSURL*, "URL">(request);
  requested().emplace_back(objc::send<NSString*, "absoluteString">(url)->UTF8String());
}

// A phone that records requests instead of sending them, so that a test can use the addresses of public hosts.
struct EndpointsPhone : PhotoPhone {
  EndpointsPhone() {
    const auto known = objc::send<Class, "class">(NSURLConnection::classObject());
    MSHookMessageEx(reinterpret_cast<Class>(object_getClass(reinterpret_cast<id>(known))),
                    objc::selector<"sendAsynchronousRequest:queue:completionHandler:">(),
                    objc::toImplementation(&recordRequest), nullptr);
  }
  fs::path file() const { return root() / "Library/Application Support/Brim/Assets.bundle/endpoints.plist"; }

  Addresses requestsOfMessengerAndDiscord() {
    requested().clear();
    present("com.facebook.Messenger", {{"p", {{"a", "1000"}}}});
    present("com.hammerandchisel.discord", {{"message", {{"author", {{"id", "1"}, {"avatar", "a"}}}}}});
    return requested();
  }
};

Addresses expectedRequests(const std::string& messenger, const std::string& discord) {
  return {messenger + "/1000/picture?type=square", discord + "/avatars/1/a.png?size=80"};
}

const Addresses requestsToPublicHosts = expectedRequests("https://graph.facebook.com", "https://cdn.discordapp.com");

TEST(Endpoints, AreReadFromTheAssetBundle) {
  EndpointsPhone phone;
  phone.writeEndpoints(R"({ facebookGraph = "https://one.example"; discordAvatars = "http://two.example:81"; })");
  EXPECT_EQ(phone.requestsOfMessengerAndDiscord(), expectedRequests("https://one.example", "http://two.example:81"));
}

TEST(Endpoints, AreThePublicHostsInTheBuild) {
  EndpointsPhone phone;
  fs::remove(phone.file());
  fs::copy_file(fs::path(BUILT_ENDPOINTS), phone.file());
  EXPECT_EQ(phone.requestsOfMessengerAndDiscord(), requestsToPublicHosts);
}

TEST(Endpoints, AreReadAgainForEachBanner) {
  EndpointsPhone phone;
  phone.writeEndpoints(R"({ facebookGraph = "https://one.example"; discordAvatars = "https://two.example"; })");
  EXPECT_EQ(phone.requestsOfMessengerAndDiscord(), expectedRequests("https://one.example", "https://two.example"));
  phone.writeEndpoints(R"({ facebookGraph = "https://three.example"; discordAvatars = "https://four.example"; })");
  EXPECT_EQ(phone.requestsOfMessengerAndDiscord(), expectedRequests("https://three.example", "https://four.example"));
}

TEST(Endpoints, DefaultToThePublicHostIfMissing) {
  EndpointsPhone phone;
  phone.writeEndpoints(R"({ facebookGraph = "https://one.example"; })");
  EXPECT_EQ(phone.requestsOfMessengerAndDiscord(),
            expectedRequests("https://one.example", "https://cdn.discordapp.com"));
}

TEST(Endpoints, DefaultToThePublicHostIfInvalid) {
  EndpointsPhone phone;
  for (const char* value : {"(\"https://one.example\")", "{ a = b; }", "<0102>", "\"\"", "nothing",
                            "\"ftp://one.example\"", "\"file:///etc\"", "\"https://\"", "\"https://a b\""}) {
    phone.writeEndpoints(std::string("{ facebookGraph = ") + value + "; discordAvatars = " + value + "; }");
    EXPECT_EQ(phone.requestsOfMessengerAndDiscord(), requestsToPublicHosts) << value;
  }
}

TEST(Endpoints, DefaultToThePublicHostsIfTheFileIsUnreadable) {
  EndpointsPhone phone;
  fs::remove(phone.file());
  EXPECT_EQ(phone.requestsOfMessengerAndDiscord(), requestsToPublicHosts) << "without a file";
  fs::create_directories(phone.file() / "inside");
  EXPECT_EQ(phone.requestsOfMessengerAndDiscord(), requestsToPublicHosts) << "with a folder instead of the file";
  fs::remove_all(phone.file());
  mkfifo(phone.file().c_str(), 0600);
  EXPECT_EQ(phone.requestsOfMessengerAndDiscord(), requestsToPublicHosts) << "with a pipe instead of the file";
  fs::remove(phone.file());
  for (const char* content : {"", "(a, b)", "{ facebookGraph = \"https://one.example\"", "\xff\xfe\x00"}) {
    phone.writeEndpoints(content);
    EXPECT_EQ(phone.requestsOfMessengerAndDiscord(), requestsToPublicHosts) << content;
  }
  phone.writeEndpoints(R"({ facebookGraph = "https://one.example"; })");
  fs::resize_file(phone.file(), 2'000'000);
  EXPECT_EQ(phone.requestsOfMessengerAndDiscord(), requestsToPublicHosts) << "with a file of two megabytes";
}

}  // namespace
