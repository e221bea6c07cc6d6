// NSURLConnection: one request, answered on a queue of the caller's choice.
#pragma once

#include "objc/block.hpp"
#include "platform/ns_data.hpp"
#include "platform/ns_error.hpp"
#include "platform/ns_http_url_response.hpp"
#include "platform/ns_operation_queue.hpp"
#include "platform/ns_url.hpp"

class NSURLConnection : public objc::Interface<"NSURLConnection", NSObject> {
 public:
  // Called once. Where there is an error, response and data may be nil; a status such as 404 is no error.
  using Completion = void(NSURLResponse* response, NSData* data, NSError* error);

  // Returns at once; redirections are followed. The completion is copied and let go once it has run on the queue.
  static void sendAsynchronousRequest(NSURLRequest* request, NSOperationQueue* queue,
                                      objc::Block<Completion>* completion) {
    objc::send<void, "sendAsynchronousRequest:queue:completionHandler:">(classObject(), request, queue, completion);
  }
};
