#include "simulator/url_loading/request_loader.hpp"

#include <strings.h>

#include <atomic>
#include <cmath>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <utility>

#include "platform/ns_dictionary.hpp"
#include "simulator/base/event_log.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/root.hpp"
#include "simulator/url_loading/transfers.hpp"

namespace url_loading {

namespace {

constexpr double defaultIdleSeconds = 60;
// Where a phone's root keeps authorities of its own, which replace the machine's.
constexpr const char* certificatesPath = "/etc/ssl/cert.pem";

std::atomic<std::size_t> underWay = 0;

std::string certificates() {
  const std::string path = foundation::pathUnderRoot(certificatesPath);
  return path != certificatesPath && std::filesystem::exists(path) ? path : "";
}

HeaderFields headersOf(const NSURLRequest* request) {
  HeaderFields fields;
  const auto* const given = objc::send<NSDictionary*, "allHTTPHeaderFields">(request);
  const NSArray* const names = given->allKeys();
  for (NSUInteger index = 0; index < names->count(); ++index) {
    const NSObject* const name = names->objectAtIndex(index);
    fields.emplace_back(base::textOf(objc::as<NSString>(const_cast<NSObject*>(name))),
                        base::textOf(objc::as<NSString>(given->objectForKey(name))));
  }
  return fields;
}

Request requestOf(const NSURLRequest* request, const std::string& url) {
  const double seconds = objc::send<double, "timeoutInterval">(request);
  return {.url = url,
          .headers = headersOf(request),
          .idleSeconds = std::isfinite(seconds) && seconds > 0 ? seconds : defaultIdleSeconds,
          .certificates = certificates()};
}

const NSURL* addressOf(const NSURLRequest* request) { return objc::send<NSURL*, "URL">(request); }

bool isLoadable(const NSURLRequest* request) {
  const std::string scheme = base::textOf(addressOf(request)->scheme());
  const std::string method = base::textOf(objc::send<NSString*, "HTTPMethod">(request));
  return method == "GET" && (strcasecmp(scheme.c_str(), "http") == 0 || strcasecmp(scheme.c_str(), "https") == 0);
}

// Fields that come several times are one, as their definition says.
objc::Ref<NSDictionary> dictionaryOf(const HeaderFields& fields) {
  auto* const dictionary = NSMutableDictionary::dictionaryWithCapacity(fields.size());
  for (const auto& [name, value] : fields) {
    NSString* const key = base::stringOf(name);
    std::string all = base::textOf(objc::as<NSString>(dictionary->objectForKey(key)));
    all.append(all.empty() ? "" : ", ").append(value);
    // Not all that servers say is text.
    if (key != nullptr && base::stringOf(all) != nullptr) dictionary->setObject(base::stringOf(all), key);
  }
  return objc::retain<NSDictionary>(dictionary);
}

objc::Ref<NSURLResponse> responseOf(const Answer& answer) {
  if (answer.status == 0) return nullptr;
  auto* const allocated = objc::send<NSHTTPURLResponse*, "alloc">(NSHTTPURLResponse::classObject());
  return objc::adopt<NSURLResponse>(objc::send<NSHTTPURLResponse*, "initWithURL:statusCode:HTTPVersion:headerFields:">(
      allocated, NSURL::withString(base::stringOf(answer.url)), NSInteger{answer.status}, "HTTP/1.1"_ns,
      dictionaryOf(answer.headers).get()));
}

objc::Ref<NSError> errorOf(const Answer& answer) {
  if (!answer.error) return nullptr;
  auto* const details = NSMutableDictionary::dictionaryWithCapacity(1);
  details->setObject(base::stringOf(answer.url), "NSErrorFailingURLStringKey"_ns);
  return objc::retain(objc::send<NSError*, "errorWithDomain:code:userInfo:">(
      NSError::classObject(), "NSURLErrorDomain"_ns, static_cast<NSInteger>(*answer.error),
      static_cast<NSDictionary*>(details)));
}

Outcome outcomeOf(const Answer& answer) {
  Outcome outcome = {nullptr, responseOf(answer), errorOf(answer)};
  if (!answer.error) outcome.data = objc::retain(NSData::dataWithBytes(answer.body.data(), answer.body.size()));
  return outcome;
}

void record(const std::string& url, const Answer& answer) {
  nlohmann::ordered_json event = {{"url", url}, {"status", nullptr}};
  if (answer.error) {
    event["error"] = static_cast<std::int64_t>(*answer.error);
  } else {
    event["status"] = answer.status;
  }
  base::recordEvent("http", event);
}

}  // namespace

void load(NSURLRequest* request, Deliver deliver, std::function<void(const Outcome&)> receive) {
  const std::string url = base::textOf(objc::send<NSString*, "absoluteString">(addressOf(request)));
  ++underWay;
  Completion completion = [url, deliver = std::move(deliver), receive = std::move(receive)](Answer answer) {
    deliver([url, receive, answer = std::make_shared<const Answer>(std::move(answer))] {
      record(url, *answer);
      receive(outcomeOf(*answer));
      --underWay;
    });
  };
  if (isLoadable(request)) {
    startTransfer(requestOf(request, url), std::move(completion));
  } else {
    completion({.url = url, .error = UrlError::UnsupportedUrl});
  }
}

std::size_t requestsUnderWay() { return underWay; }

}  // namespace url_loading
