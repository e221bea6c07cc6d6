// The one thread on which all transfers run. It begins with the first and sleeps while there are none.
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
  // Lives as long as the process, which stops it before anything it uses is taken down.
  static TransferThread& shared();

  // Any thread.
  void start(std::unique_ptr<Transfer> transfer);
  // Returns when the thread has ended; the transfers under way are never heard of again.
  void stop();

 private:
  TransferThread();

  void run();
  bool waitForWork();
  void takeNew();
  void finishDone();
  void failSilent();
  int millisecondsToNextDeadline() const;
  std::unique_ptr<Transfer> remove(CURL* handle);

  CURLM* multi;
  std::map<CURL*, std::unique_ptr<Transfer>> running;

  std::mutex mutex;
  std::condition_variable changed;
  std::vector<std::unique_ptr<Transfer>> added;
  bool stopping = false;
  std::thread thread;
};

}  // namespace transfers
