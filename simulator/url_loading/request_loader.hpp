// Loads NSURLRequest objects. NSURLSession and NSURLConnection share this code. Any thread.
#pragma once

#include <cstddef>
#include <functional>

#include "platform/ns_data.hpp"
#include "platform/ns_error.hpp"
#include "platform/ns_http_url_response.hpp"
#include "platform/ns_url.hpp"

namespace url_loading {

// The arguments of the platform's completion blocks. The data is nil if an error occurred. The response is nil if the
// server sent none. The error is nil on success.
struct LoadResult {
  objc::Ref<NSData> data;
  objc::Ref<NSURLResponse> response;
  objc::Ref<NSError> error;
};

// A function that adds work to the queue on which the completion runs. It is called on any thread.
using Enqueue = std::function<void(std::function<void()> work)>;

// Loads the request, which is retained while it is pending. Records the event "http" and then passes work to `enqueue`.
// This work calls `complete`, exactly once. A request that is not a GET request for an http or https URL fails with
// UrlError::UnsupportedUrl.
void load(NSURLRequest* request, Enqueue enqueue, std::function<void(const LoadResult&)> complete);

// Returns the number of loads whose `complete` function has not returned yet.
std::size_t pendingRequestCount();

}  // namespace url_loading
