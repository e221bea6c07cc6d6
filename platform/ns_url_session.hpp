// NSURLSession and its data tasks, which load a URL and pass the complete body of the response to a completion block.
// Any thread.
#pragma once

#include "objc/block.hpp"
#include "platform/ns_data.hpp"
#include "platform/ns_error.hpp"
#include "platform/ns_http_url_response.hpp"
#include "platform/ns_url.hpp"

class NSURLSessionDataTask : public objc::Interface<"NSURLSessionDataTask", NSObject> {
 public:
  // Starts the request. A task is suspended when it is created.
  void resume() { objc::send<void, "resume">(this); }
};

class NSURLSession : public objc::Interface<"NSURLSession", NSObject> {
 public:
  // The completion block, which is called once, on a background queue of the session. If there is an error, data and
  // response can be nil. An HTTP status such as 404 is not an error.
  using Completion = void(NSData* data, NSURLResponse* response, NSError* error);

  static NSURLSession* sharedSession() { return objc::send<NSURLSession*, "sharedSession">(classObject()); }
  // The session retains the task, and the task retains a copy of the completion block, until the block has run.
  NSURLSessionDataTask* dataTask(NSURLRequest* request, objc::Block<Completion>* completion) {
    return objc::send<NSURLSessionDataTask*, "dataTaskWithRequest:completionHandler:">(this, request, completion);
  }
};
