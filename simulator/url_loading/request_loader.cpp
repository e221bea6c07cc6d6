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

constexpr double defaultIdleTimeoutSeconds = 60;
// The path of a certificate file in the root. If the file exists, its certificates replace those of the system.
constexpr const char* certificateFilePath = "/etc/ssl/cert.pem";

std::atomic<std::size_t> pendingRequests = 0;

std::string certificateFile() {
  const std::string path = foundation::pathUnderRoot(certificateFilePath);
  return path != certificateFilePath && std::filesystem::exists(path) ? path : "";
}

HeaderFields headersOf(const NSURLRequest* request) {
  HeaderFields fields;
  const auto* const headers = objc::send<NSDictionary*, "allHTTPHeaderFields">(request);
  const NSArray* const names = headers->allKeys();
  for (NSUInteger index = 0; index < names->count(); ++index) {
    const NSObject* const name = names->objectAtIndex(index);
    fields.emplace_back(base::textOf(objc::as<NSString>(const_cast<NSObject*>(name))),
                        base::textOf(objc::as<NSString>(headers->objectForKey(name))));
  }
  return fields;
}

Request requestOf(const NSURLRequest* request, const std::string& url) {
  const double seconds = objc::send<double, "timeoutInterval">(request);
  return {.url = url,
          .headers = headersOf(request),
          .idleTimeoutSeconds = std::isfinite(seconds) && seconds > 0 ? seconds : defaultIdleTimeoutSeconds,
          .certificateFile = certificateFile()};
}

const NSURL* urlOf(const NSURLRequest* request) { return objc::send<NSURL*, "URL">(request); }

bool isLoadable(const NSURLRequest* request) {
  const std::string scheme = base::textOf(urlOf(request)->scheme());
  const std::string method = base::textOf(objc::send<NSString*, "HTTPMethod">(request));
  return method == "GET" && (strcasecmp(scheme.c_str(), "http") == 0 || strcasecmp(scheme.c_str(), "https") == 0);
}

// Converts header fields to a dictionary. The values of repeated fields are joined with commas, as HTTP defines.
objc::Ref<NSDictionary> dictionaryOf(const HeaderFields& fields) {
  auto* const dictionary = NSMutableDictionary::dictionaryWithCapacity(fields.size());
  for (const auto& [name, value] : fields) {
    NSString* const key = base::stringOf(name);
    std::string joined = base::textOf(objc::as<NSString>(dictionary->objectForKey(key)));
    joined.append(joined.empty() ? "" : ", ").append(value);
    // A header that is not valid UTF-8 is omitted.
    if (key != nullptr && base::stringOf(joined) != nullptr) dictionary->setObject(base::stringOf(joined), key);
  }
  return objc::retain<NSDictionary>(dictionary);
}

objc::Ref<NSURLResponse> responseOf(const TransferResult& transfer) {
  if (transfer.status == 0) return nullptr;
  auto* const allocated = objc::send<NSHTTPURLResponse*, "alloc">(NSHTTPURLResponse::classObject());
  return objc::adopt<NSURLResponse>(objc::send<NSHTTPURLResponse*, "initWithURL:statusCode:HTTPVersion:headerFields:">(
      allocated, NSURL::withString(base::stringOf(transfer.url)), NSInteger{transfer.status}, "HTTP/1.1"_ns,
      dictionaryOf(transfer.headers).get()));
}

objc::Ref<NSError> errorOf(const TransferResult& transfer) {
  if (!transfer.error) return nullptr;
  auto* const details = NSMutableDictionary::dictionaryWithCapacity(1);
  details->setObject(base::stringOf(transfer.url), "NSErrorFailingURLStringKey"_ns);
  return objc::retain(objc::send<NSError*, "errorWithDomain:code:userInfo:">(
      NSError::classObject(), "NSURLErrorDomain"_ns, static_cast<NSInteger>(*transfer.error),
      static_cast<NSDictionary*>(details)));
}

LoadResult loadResultOf(const TransferResult& transfer) {
  LoadResult result = {nullptr, responseOf(transfer), errorOf(transfer)};
  if (!transfer.error) result.data = objc::retain(NSData::dataWithBytes(transfer.body.data(), transfer.body.size()));
  return result;
}

void recordHttpEvent(const std::string& url, const TransferResult& transfer) {
  nlohmann::ordered_json event = {{"url", url}, {"status", nullptr}};
  if (transfer.error) {
    event["error"] = static_cast<std::int64_t>(*transfer.error);
  } else {
    event["status"] = transfer.status;
  }
  base::recordEvent("http", event);
}

}  // namespace

void load(NSURLRequest* request, Enqueue enqueue, std::function<void(const LoadResult&)> complete) {
  const std::string url = base::textOf(objc::send<NSString*, "absoluteString">(urlOf(request)));
  ++pendingRequests;
  Completion completion = [url, enqueue = std::move(enqueue), complete = std::move(complete)](TransferResult transfer) {
    enqueue([url, complete, transfer = std::make_shared<const TransferResult>(std::move(transfer))] {
      recordHttpEvent(url, *transfer);
      complete(loadResultOf(*transfer));
      --pendingRequests;
    });
  };
  if (isLoadable(request)) {
    startTransfer(requestOf(request, url), std::move(completion));
  } else {
    completion({.url = url, .error = UrlError::UnsupportedUrl});
  }
}

std::size_t pendingRequestCount() { return pendingRequests; }

}  // namespace url_loading
