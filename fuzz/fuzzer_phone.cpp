#include "fuzz/fuzzer_phone.hpp"

#include <sqlite3.h>
#include <stdlib.h>

#include <cstdio>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <utility>

#include "objc/autorelease_pool.hpp"
#include "platform/ns_url_connection.hpp"
#include "platform/ns_url_session.hpp"
#include "simulator/foundation/hook_function.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/runner/session.hpp"
#include "simulator/springboard/services/notification_description.hpp"
#include "tests/photos/application_data.hpp"

namespace fuzz {

namespace {

namespace fs = std::filesystem;

struct Phone {
  fs::path folder;
  std::optional<runner::Session> session;
  objc::Ref<UIView> superview;
  objc::Ref<BrimContainer> banner;
  objc::Ref<NSData> page;
};

Phone& phone() {
  static Phone& started = *new Phone;
  return started;
}

[[noreturn]] void fail(const char* reason) {
  std::fprintf(stderr, "fuzz: %s\n", reason);
  std::abort();
}

void ignoreRequest(Class, SEL, NSURLRequest*, NSOperationQueue*, objc::Block<NSURLConnection::Completion>*) {}

NSURLSessionDataTask* answerTask(NSURLSession*, SEL, NSURLRequest*, objc::Block<NSURLSession::Completion>* completion) {
  if (phone().page == nullptr) return nullptr;
  auto* const response = objc::send<NSHTTPURLResponse*, "initWithURL:statusCode:HTTPVersion:headerFields:">(
      objc::allocate<NSHTTPURLResponse>(), NSURL::withString("https://mobile.twitter.com/a"_ns), NSInteger{200},
      "HTTP/1.1"_ns, static_cast<NSDictionary*>(nullptr));
  (*completion)(phone().page, objc::autorelease(objc::adopt(response)), nullptr);
  return nullptr;
}

Class metaclassOf(Class initialized) {
  return reinterpret_cast<Class>(object_getClass(reinterpret_cast<id>(initialized)));
}

void replaceNetworkMethods() {
  const auto connection = objc::send<Class, "class">(NSURLConnection::classObject());
  MSHookMessageEx(metaclassOf(connection), objc::selector<"sendAsynchronousRequest:queue:completionHandler:">(),
                  objc::toImplementation(&ignoreRequest), nullptr);
  MSHookMessageEx(objc::send<Class, "class">(NSURLSession::classObject()),
                  objc::selector<"dataTaskWithRequest:completionHandler:">(), objc::toImplementation(&answerTask),
                  nullptr);
}

void makeSlackDatabase(const fs::path& path) {
  fs::create_directories(path.parent_path());
  sqlite3* database = nullptr;
  const char* const statements =
      "CREATE TABLE ZSLKDEPRECATEDCOREDATAUSER (ZTEAMID, ZTSID, ZAVATARHASH, ZNAME);"
      "INSERT INTO ZSLKDEPRECATEDCOREDATAUSER VALUES ('T1', 'U1', 'h', 'Alice Weber');";
  if (sqlite3_open(path.c_str(), &database) != SQLITE_OK ||
      sqlite3_exec(database, statements, nullptr, nullptr, nullptr) != SQLITE_OK)
    fail("cannot create a database");
  sqlite3_close(database);
}

void makeApplicationData() {
  const fs::path shared = test::sharedContainers(root());
  test::writePicture(test::makeContainer(shared, "W", "group.net.whatsapp.WhatsApp.shared") / "Media/Profile/1-1.jpg",
                     test::Color::Red);
  test::writePicture(test::makeContainer(shared, "T", "group.ph.telegra.Telegraph") /
                         "telegram-data/accounts-metadata/spotlight/p:42/avatar.png",
                     test::Color::Red);
  makeSlackDatabase(test::makeContainer(test::dataContainers(root()), "S", "com.tinyspeck.chatlyio") /
                    "Library/Application Support/Slack/T1/Database/main_db");
}

void showBanner() {
  phone().superview = UIView::withFrame<UIView>({{0, 0}, {359, 100}});
  phone().banner = BrimContainer::make(nullptr, "Anna"_ns, nullptr, "Hello"_ns);
  phone().banner->setColorSet(BrimColors::withMode(1));
  phone().banner->setEnableGlyphs(true);
  phone().banner->setAppSize(40);
  phone().banner->setAppDetailImageBundleId("com.apple.MobileSMS"_ns);
  phone().superview->addSubview(phone().banner);
}

}  // namespace

void startPhone() {
  char name[] = "/tmp/brim-fuzz-XXXXXX";
  if (mkdtemp(name) == nullptr) fail("cannot create a temporary folder");
  phone().folder = name;
  std::atexit([] {
    phone().session.reset();
    fs::remove_all(phone().folder);
  });
  runner::Options options;
  options.root = root();
  phone().session.emplace(options);
  const objc::AutoreleasePool pool;
  replaceNetworkMethods();
  makeApplicationData();
  showBanner();
}

const fs::path& root() {
  static const fs::path& path = *new fs::path(phone().folder / "root");
  return path;
}

BrimContainer* banner() { return phone().banner; }

void findPicture(Class provider, NCNotificationRequest* request) {
  const auto created = objc::adopt(objc::send<ContactPhotoProvider*, "new">(provider));
  created->contactPhoto(request, "Anna"_ns, "Hello"_ns, banner());
  foundation::drainMainQueue();
}

objc::Ref<NCNotificationRequest> requestWith(nlohmann::ordered_json userInfo, std::string thread) {
  springboard::NotificationDescription description;
  description.section = "com.apple.MobileSMS";
  description.thread = std::move(thread);
  description.userInfo = std::move(userInfo);
  return springboard::makeRequest(description, nullptr);
}

void setPageResponse(NSData* data) { phone().page = objc::retain(data); }

NSData* dataOf(const std::uint8_t* bytes, std::size_t size) { return NSData::dataWithBytes(bytes, size); }

void writeFile(const fs::path& path, const std::uint8_t* bytes, std::size_t size) {
  test::writeFile(path, {reinterpret_cast<const char*>(bytes), size});
}

}  // namespace fuzz
