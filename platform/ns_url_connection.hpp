// NSURLConnection: loads a URL and runs a completion block on a queue that the caller specifies. Any thread.
#pragma once

#include "objc/block.hpp"
#include "platform/ns_data.hpp"
#include "platform/ns_error.hpp"
#include "platform/ns_http_url_response.hpp"
#include "platform/ns_operation_queue.hpp"
#include "platform/ns_url.hpp"

class NSURLConnection : public objc::Interface<"NSURLConnection", NSObject> {
 public:
  // The completion block, which is called once. If there is an error, response and data can be nil. An HTTP status such
  // as 404 is not an error.
  using Completion = void(NSURLResponse* response, NSData* data, NSError* error);

  // Starts the request and returns immediately. Follows redirects. Copies the completion block and releases it after it
  // has run on the queue.
  static void sendAsynchronousRequest(NSURLRequest* request, NSOperationQueue* queue,
                                      objc::Block<Completion>* completion) {
    objc::send<void, "sendAsynchronousRequest:queue:completionHandler:">(classObject(), request, queue, completion);
  }
};
