// The method +[NSURLConnection sendAsynchronousRequest:queue:completionHandler:].
#include "platform/ns_url_connection.hpp"

#include "objc/class_definition.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/url_loading/classes.hpp"
#include "simulator/url_loading/request_loader.hpp"

namespace url_loading {

class NSOperation : public objc::Interface<"NSOperation", NSObject> {};
// An NSOperation that calls a function.
class FunctionOperation : public objc::Interface<"BrimFunctionOperation", NSOperation> {};

struct FunctionOperationState {
  std::function<void()> work;
};

}  // namespace url_loading

template <>
struct objc::StateOf<url_loading::FunctionOperation> {
  using Type = url_loading::FunctionOperationState;
};

namespace url_loading {

namespace {

void runWork(FunctionOperation* self) { objc::state(self).work(); }

// Returns a function that adds work to the operation queue. Work for the main operation queue is added to the
// simulator's own queue of the main thread.
Enqueue enqueueTo(NSOperationQueue* queue) {
  if (queue == NSOperationQueue::mainQueue()) return &foundation::onMainThreadForExternalEvent;
  return [queue = objc::retain(queue)](std::function<void()> work) {
    auto operation = objc::make<FunctionOperation>();
    objc::state(operation.get()).work = std::move(work);
    objc::send<void, "addOperation:">(queue.get(), operation.get());
  };
}

void sendAsynchronousRequest(Class, NSURLRequest* request, NSOperationQueue* queue,
                             objc::Block<NSURLConnection::Completion>* completion) {
  load(request, enqueueTo(queue),
       [retained = objc::BlockRef<NSURLConnection::Completion>(completion)](const LoadResult& result) {
         if (retained.get() == nullptr) return;
         NSURLResponse* const response = result.error == nullptr ? result.response.get() : nullptr;
         (*retained.get())(response, result.data, result.error);
       });
}

}  // namespace

void installURLConnection() {
  static constexpr objc::MethodEntry operationMethods[] = {objc::method<"main", &runWork>()};
  static constexpr objc::MethodEntry connectionMethods[] = {
      objc::classMethod<"sendAsynchronousRequest:queue:completionHandler:", &sendAsynchronousRequest>()};
  objc::defineClassWithState<FunctionOperation>(operationMethods);
  objc::addCategory(NSURLConnection::classObject(), connectionMethods);
}

}  // namespace url_loading
