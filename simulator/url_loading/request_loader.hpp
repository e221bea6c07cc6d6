// Requests on their way from the platform's classes to the network and back.
#pragma once

#include <cstddef>
#include <functional>

#include "platform/ns_data.hpp"
#include "platform/ns_error.hpp"
#include "platform/ns_http_url_response.hpp"
#include "platform/ns_url.hpp"

namespace url_loading {

// What a completion is told; nil where there is nothing.
struct Outcome {
  objc::Ref<NSData> data;
  objc::Ref<NSURLResponse> response;
  objc::Ref<NSError> error;
};

// Brings the work to the queue on which the completion runs. Any thread.
using Deliver = std::function<void(std::function<void()> work)>;

// Loads what the request asks for. `receive` is called once, in work that was given to `deliver`, right after the
// answer was recorded in the event log. Any thread.
void load(NSURLRequest* request, Deliver deliver, std::function<void(const Outcome&)> receive);

// How many of these have not been received yet. Any thread.
std::size_t requestsUnderWay();

}  // namespace url_loading
