// Loads NSURLRequest objects. NSURLSession and NSURLConnection share this code. Any thread.
#pragma once

#include <cstddef>
#include <functional>

#include "platform/ns_data.hpp"
#include "platform/ns_error.hpp"
#include "platform/ns_http_url_response.hpp"
#include "platform/ns_url.hpp"

namespace url_loading {

// The arguments of the platform's completion blocks. Data is nil if an error occurred; the response is nil if the
// server sent none; the error is nil on success.
struct LoadResult {
  objc::Ref<NSData> data;
  objc::Ref<NSURLResponse> response;
  objc::Ref<NSError> error;
};

// Adds work to the queue on which the completion runs. It is called on any thread.
using Enqueue = std::function<void(std::function<void()> work)>;

// Loads the request, which is retained while it is pending. `complete` is called once, in work that is passed to
// `enqueue`, after the event "http" has been recorded. A request that is not a GET of an http or https URL fails with
// UrlError::UnsupportedUrl.
void load(NSURLRequest* request, Enqueue enqueue, std::function<void(const LoadResult&)> complete);

// The number of loads whose `complete` has not returned yet.
std::size_t pendingRequestCount();

}  // namespace url_loading
