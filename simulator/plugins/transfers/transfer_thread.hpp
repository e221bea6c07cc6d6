// The thread that runs all transfers. It starts with the first transfer and sleeps while there are none.
#pragma once

#include <curl/curl.h>

#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "simulator/plugins/transfers/transfer.hpp"

namespace transfers {

class TransferThread {
 public:
  // Returns the only instance, which is never destroyed. An exit handler stops the thread before the libraries that it
  // uses shut down.
  static TransferThread& shared();

  // Starts a transfer. Any thread.
  void start(std::unique_ptr<Transfer> transfer);
  // Ends the thread and waits until it has ended. The completions of unfinished transfers are not called.
  void stop();

 private:
  TransferThread();

  void run();
  bool waitForWork();
  void startPending();
  void finishCompleted();
  void endTimedOut();
  int millisecondsToNextDeadline() const;
  std::unique_ptr<Transfer> remove(CURL* handle);

  CURLM* multi_;
  std::map<CURL*, std::unique_ptr<Transfer>> running_;

  std::mutex mutex_;  // protects pending_ and isStopping_
  std::condition_variable changed_;
  std::vector<std::unique_ptr<Transfer>> pending_;
  bool isStopping_ = false;
  std::thread thread_;
};

}  // namespace transfers
