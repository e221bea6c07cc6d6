// NSURLSession and its data tasks: requests whose whole body is given to a completion.
#pragma once

#include "objc/block.hpp"
#include "platform/ns_data.hpp"
#include "platform/ns_error.hpp"
#include "platform/ns_http_url_response.hpp"
#include "platform/ns_url.hpp"

class NSURLSessionDataTask : public objc::Interface<"NSURLSessionDataTask", NSObject> {
 public:
  // Tasks are made suspended: nothing is sent before this.
  void resume() { objc::send<void, "resume">(this); }
};

class NSURLSession : public objc::Interface<"NSURLSession", NSObject> {
 public:
  // Called once, on a background queue of the session. Where there is an error, data and response may be nil; a status
  // such as 404 is no error.
  using Completion = void(NSData* data, NSURLResponse* response, NSError* error);

  static NSURLSession* sharedSession() { return objc::send<NSURLSession*, "sharedSession">(classObject()); }
  // The session keeps the task, and the task a copy of the completion, until the completion has run.
  NSURLSessionDataTask* dataTask(NSURLRequest* request, objc::Block<Completion>* completion) {
    return objc::send<NSURLSessionDataTask*, "dataTaskWithRequest:completionHandler:">(this, request, completion);
  }
};
