// NSURLSession. The completions of the shared session run on a serial queue, never on the main thread.
#include "platform/ns_url_session.hpp"

#include <atomic>

#include "objc/class_definition.hpp"
#include "simulator/foundation/serial_queue.hpp"
#include "simulator/url_loading/classes.hpp"
#include "simulator/url_loading/request_loader.hpp"

namespace {

struct DataTaskState {
  objc::Ref<NSURLRequest> request;
  objc::BlockRef<NSURLSession::Completion> completion;
  std::atomic<bool> isStarted = false;
};

}  // namespace

template <>
struct objc::StateOf<NSURLSessionDataTask> {
  using Type = DataTaskState;
};

namespace url_loading {

namespace {

// The queue is never destroyed, because transfers can complete while the process exits.
foundation::SerialQueue& completionQueue() {
  static auto& queue = *new foundation::SerialQueue;
  return queue;
}

NSURLSession* sharedSession(Class) {
  static NSURLSession* const shared = objc::make<NSURLSession>().leak();
  return shared;
}

NSURLSessionDataTask* dataTask(NSURLSession*, NSURLRequest* request,
                               objc::Block<NSURLSession::Completion>* completion) {
  auto task = objc::make<NSURLSessionDataTask>();
  DataTaskState& state = objc::state(task.get());
  state.request = objc::retain(request);
  state.completion = objc::BlockRef<NSURLSession::Completion>(completion);
  return objc::autorelease(std::move(task));
}

void resume(NSURLSessionDataTask* self) {
  DataTaskState& state = objc::state(self);
  if (state.isStarted.exchange(true)) return;
  load(
      state.request, [](std::function<void()> work) { completionQueue().async(std::move(work)); },
      [task = objc::retain(self)](const LoadResult& result) {
        const auto completion = std::move(objc::state(task.get()).completion);
        if (completion.get() != nullptr) (*completion.get())(result.data, result.response, result.error);
      });
}

}  // namespace

void defineURLSession() {
  static constexpr objc::MethodEntry sessionMethods[] = {
      objc::classMethod<"sharedSession", &sharedSession>(),
      objc::method<"dataTaskWithRequest:completionHandler:", &dataTask>(),
  };
  static constexpr objc::MethodEntry taskMethods[] = {objc::method<"resume", &resume>()};
  objc::defineClass<NSURLSession>(sessionMethods);
  objc::defineClassWithState<NSURLSessionDataTask>(taskMethods);
}

}  // namespace url_loading
