// An emulated arm64 processor with its own memory. Emulated code and functions of this program can call each other.
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

// A call from emulated code to a function of this program. Arguments and the result are in registers.
struct HostCall {
  Processor& processor;
  // If set, execution continues at this address with the same registers instead of returning.
  std::optional<Address> jump;
};

using HostFunction = std::function<void(HostCall&)>;

enum class Access { ReadAndExecute, ReadAndWrite };

// `call` throws every error of emulated code, including exceptions of host functions. A fault is a std::runtime_error
// that names the function and the address.
class Processor {
 public:
  Processor();
  ~Processor();
  Processor(const Processor&) = delete;
  Processor& operator=(const Processor&) = delete;

  // Start and size must be multiples of 4096 bytes.
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

  // Allocates zero-filled memory at a multiple of 16. The memory is never freed.
  Address allocate(std::size_t size);
  Address allocateText(const std::string& text);

  // Returns the address at which emulated code can call the function.
  Address addHostFunction(const std::string& name, HostFunction function);
  // Sets the name of the function at the address. Error messages about faults in its code contain the name.
  void nameFunction(Address start, const std::string& name) { names[start] = name; }

  std::uint64_t x(int index);
  void setX(int index, std::uint64_t value);
  double d(int index);
  void setD(int index, double value);

  // Calls emulated code and returns the value of x0. Other registers can be read afterwards.
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
