// The phone's C libraries as far as they are called: blocks, queues, digests, random numbers, symbols by name, sounds.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "tests/device/emulator/imports.hpp"
#include "tests/device/emulator/objective_c.hpp"

namespace device {

// Calls a block, which may take a flag.
void callBlock(Processor& processor, Address block, bool flag = false);

class CLibrary {
 public:
  CLibrary(Imports& imports, ObjectiveC& runtime, Processor& processor);

  struct Opening {
    Address path;
    std::uint64_t mode;
  };
  struct DelayedWork {
    std::uint64_t nanoseconds;
    Address block;
  };

  // Runs what waits in the main queue, and what comes to wait there meanwhile.
  void runMainQueue();

  // What lookups by name find, beside nothing.
  std::map<std::string, Address> symbols;
  // What the next random numbers are; then zero.
  std::deque<std::uint32_t> randomNumbers;

  std::vector<std::uint32_t> randomBounds;
  std::vector<Opening> openings;
  std::vector<Address> synchronousQueues;
  std::vector<DelayedWork> delayedWork;
  std::vector<std::string> sounds;

 private:
  void supplyBlocks(Imports& imports);
  void supplyQueues(Imports& imports);
  void supplyText(Imports& imports);
  void supplySymbols(Imports& imports);
  void supplyPlatform(Imports& imports);
  Address copyBlock(Address block);
  void releaseBlock(Address block);

  ObjectiveC& runtime;
  Processor& processor;
  std::deque<Address> mainQueue;
};

}  // namespace device
