// The functions of the phone's C libraries that the library calls: blocks, queues, digests, random numbers, symbol
// lookup and sounds.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "tests/device/emulator/imports.hpp"
#include "tests/device/emulator/objective_c.hpp"

namespace device {

// Calls a block that has no argument or one boolean argument.
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

  // Runs the blocks of the main queue until it is empty, including blocks added meanwhile.
  void runMainQueue();

  // The results of symbol lookup. Other names are not found.
  std::map<std::string, Address> symbols;
  // The next random numbers. Zero follows when they are used up.
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
