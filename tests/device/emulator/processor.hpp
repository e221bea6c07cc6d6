// An arm64 processor, emulated, with memory of its own. Code in it may call functions of this program, and be called.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

struct uc_struct;

namespace device {

using Address = std::uint64_t;

class Processor;

// A call that emulated code makes to a function of this program: arguments are in the registers, and so is the result.
struct HostCall {
  Processor& processor;
  // Where the call goes on instead of returning, with the registers as they are.
  std::optional<Address> jump;
};

using HostFunction = std::function<void(HostCall&)>;

enum class Access { ReadAndExecute, ReadAndWrite };

// Whatever goes wrong in emulated code, a host function's exceptions included, leaves `call` as an exception; a fault
// is a std::runtime_error that names the function and the address.
class Processor {
 public:
  Processor();
  ~Processor();
  Processor(const Processor&) = delete;
  Processor& operator=(const Processor&) = delete;

  // Start and size in whole pages of 4096 bytes.
  void map(Address start, std::size_t size, Access access);
  void write(Address address, std::span<const std::uint8_t> bytes);
  std::vector<std::uint8_t> bytes(Address address, std::size_t count);
  template <class Value>
  void store(Address address, Value value) {
    write(address, {reinterpret_cast<const std::uint8_t*>(&value), sizeof value});
  }
  template <class Value>
  Value load(Address address) {
    Value value;
    read(address, &value, sizeof value);
    return value;
  }
  std::string text(Address address);

  // Zero-filled, on a multiple of 16, never given back.
  Address allocate(std::size_t size);
  Address allocateText(const std::string& text);

  // The address at which emulated code finds the function.
  Address addHostFunction(const std::string& name, HostFunction function);
  // What faults call the code from that address on.
  void nameFunction(Address start, const std::string& name) { names[start] = name; }

  std::uint64_t x(int index);
  void setX(int index, std::uint64_t value);
  double d(int index);
  void setD(int index, double value);

  // Calls emulated code and gives what it left in x0; the other registers may be asked.
  std::uint64_t call(Address function, std::initializer_list<std::uint64_t> integers = {},
                     std::initializer_list<double> numbers = {});

 private:
  struct Host {
    std::string name;
    HostFunction function;
  };

  void read(Address address, void* destination, std::size_t count);
  void run(Address start);
  Address callHost(Address trap);
  std::string describe(Address address) const;
  [[noreturn]] void fail(const std::string& reason);

  uc_struct* engine = nullptr;
  std::vector<Host> hosts;
  std::map<Address, std::string> names;
  Address nextFree;
  Address trapped = 0;
  Address faulted = 0;
};

}  // namespace device
