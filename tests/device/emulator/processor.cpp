#include "tests/device/emulator/processor.hpp"

#include <cxxabi.h>
#include <unicorn/unicorn.h>

#include <cstdlib>
#include <memory>
#include <sstream>
#include <stdexcept>

namespace device {

namespace {

constexpr Address stackStart = 0x6000'0000;
constexpr std::size_t stackSize = 1 << 20;
constexpr Address heapStart = 0x3'0000'0000;
constexpr std::size_t heapSize = 32 << 20;
// Jumping to an address in this region calls a host function. Each host function has its own trapSize bytes.
constexpr Address trapsStart = 0x7000'0000;
constexpr std::size_t trapsSize = 1 << 20;
constexpr Address trapSize = 16;
// The return address of code that the host calls.
constexpr Address returnTrap = trapsStart;
constexpr std::uint32_t nopInstruction = 0xd503201f;
constexpr Address nowhere = ~Address{0};

void require(uc_err error, const char* what) {
  if (error != UC_ERR_OK) throw std::runtime_error(std::string(what) + ": " + uc_strerror(error));
}

int registerX(int index) {
  if (index == 30) return UC_ARM64_REG_X30;
  if (index == 29) return UC_ARM64_REG_X29;
  return UC_ARM64_REG_X0 + index;
}

std::string demangled(const std::string& symbol) {
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> text(
      abi::__cxa_demangle(symbol.c_str() + (symbol.starts_with("__Z") ? 1 : 0), nullptr, nullptr, &status), &std::free);
  return status == 0 ? text.get() : symbol;
}

std::string hexadecimal(Address address) {
  std::ostringstream text;
  text << "0x" << std::hex << address;
  return text.str();
}

}  // namespace

Processor::Processor() : nextFree(heapStart) {
  require(uc_open(UC_ARCH_ARM64, UC_MODE_ARM, &engine), "the emulator does not start");
  map(stackStart, stackSize, Access::ReadAndWrite);
  map(heapStart, heapSize, Access::ReadAndWrite);
  map(trapsStart, trapsSize, Access::ReadAndExecute);
  const std::vector<std::uint32_t> nops(trapsSize / sizeof nopInstruction, nopInstruction);
  require(uc_mem_write(engine, trapsStart, nops.data(), trapsSize), "traps");
  const std::uint64_t stackTop = stackStart + stackSize;
  require(uc_reg_write(engine, UC_ARM64_REG_SP, &stackTop), "stack");

  uc_hook hook = 0;
  void (*reached)(uc_engine*, std::uint64_t, std::uint32_t, void*) = [](uc_engine* running, std::uint64_t address,
                                                                        std::uint32_t, void* self) {
    static_cast<Processor*>(self)->trapped = address;
    uc_emu_stop(running);
  };
  require(uc_hook_add(engine, &hook, UC_HOOK_CODE, reinterpret_cast<void*>(reached), this, trapsStart,
                      trapsStart + trapsSize - 1),
          "traps");
  bool (*refused)(uc_engine*, uc_mem_type, std::uint64_t, int, std::int64_t,
                  void*) = [](uc_engine*, uc_mem_type, std::uint64_t address, int, std::int64_t, void* self) {
    static_cast<Processor*>(self)->faulted = address;
    return false;
  };
  require(uc_hook_add(engine, &hook, UC_HOOK_MEM_INVALID, reinterpret_cast<void*>(refused), this, 1, 0), "faults");
  hosts.push_back({"the end of the call", {}});
}

Processor::~Processor() { uc_close(engine); }

void Processor::map(Address start, std::size_t size, Access access) {
  const std::uint32_t protection =
      access == Access::ReadAndExecute ? UC_PROT_READ | UC_PROT_EXEC : UC_PROT_READ | UC_PROT_WRITE;
  require(uc_mem_map(engine, start, size, protection), "mapping memory");
}

void Processor::write(Address address, std::span<const std::uint8_t> written) {
  if (uc_mem_write(engine, address, written.data(), written.size()) != UC_ERR_OK)
    fail("there is no memory at " + hexadecimal(address));
}

void Processor::read(Address address, void* destination, std::size_t count) {
  if (uc_mem_read(engine, address, destination, count) != UC_ERR_OK)
    fail("there is no memory at " + hexadecimal(address));
}

std::vector<std::uint8_t> Processor::bytes(Address address, std::size_t count) {
  std::vector<std::uint8_t> copied(count);
  if (count > 0) read(address, copied.data(), count);
  return copied;
}

std::string Processor::text(Address address) {
  std::string copied;
  for (char letter; (letter = load<char>(address + copied.size())) != 0;) copied += letter;
  return copied;
}

Address Processor::allocate(std::size_t size) {
  const Address allocated = nextFree;
  nextFree += (size + 15) / 16 * 16 + 16;
  if (nextFree > heapStart + heapSize) throw std::runtime_error("the emulated memory is full");
  return allocated;
}

Address Processor::allocateText(const std::string& text) {
  const Address allocated = allocate(text.size() + 1);
  write(allocated, {reinterpret_cast<const std::uint8_t*>(text.c_str()), text.size() + 1});
  return allocated;
}

Address Processor::addHostFunction(const std::string& name, HostFunction function) {
  const Address trap = trapsStart + hosts.size() * trapSize;
  if (trap >= trapsStart + trapsSize) throw std::runtime_error("too many functions of the host");
  hosts.push_back({name, std::move(function)});
  return trap;
}

std::uint64_t Processor::x(int index) {
  std::uint64_t value = 0;
  require(uc_reg_read(engine, registerX(index), &value), "a register");
  return value;
}

void Processor::setX(int index, std::uint64_t value) {
  require(uc_reg_write(engine, registerX(index), &value), "a register");
}

double Processor::d(int index) {
  double value = 0;
  require(uc_reg_read(engine, UC_ARM64_REG_D0 + index, &value), "a register");
  return value;
}

void Processor::setD(int index, double value) {
  require(uc_reg_write(engine, UC_ARM64_REG_D0 + index, &value), "a register");
}

std::uint64_t Processor::call(Address function, std::initializer_list<std::uint64_t> integers,
                              std::initializer_list<double> numbers) {
  int index = 0;
  for (const std::uint64_t value : integers) setX(index++, value);
  index = 0;
  for (const double value : numbers) setD(index++, value);
  const std::uint64_t callersReturn = x(30);
  setX(30, returnTrap);
  run(function);
  setX(30, callersReturn);
  return x(0);
}

void Processor::run(Address start) {
  for (Address next = start; next != returnTrap;) {
    trapped = 0;
    const uc_err error = uc_emu_start(engine, next, nowhere, 0, 0);
    if (error != UC_ERR_OK) fail(std::string(uc_strerror(error)) + " of address " + hexadecimal(faulted));
    if (trapped == 0) fail("it stopped");
    if (trapped == returnTrap) return;
    next = callHost(trapped);
  }
}

Address Processor::callHost(Address trap) {
  const Address returnAddress = x(30);
  HostCall call{*this, {}};
  // Copy the function, because it can add other host functions.
  const HostFunction function = hosts.at((trap - trapsStart) / trapSize).function;
  function(call);
  return call.jump.value_or(returnAddress);
}

std::string Processor::describe(Address address) const {
  if (address >= trapsStart && address < trapsStart + trapsSize) {
    const std::size_t index = (address - trapsStart) / trapSize;
    return index < hosts.size() ? hosts[index].name : "no function";
  }
  const auto after = names.upper_bound(address);
  if (after == names.begin()) return hexadecimal(address);
  const auto& [start, name] = *std::prev(after);
  return demangled(name) + " + " + std::to_string(address - start) + " (" + hexadecimal(address) + ")";
}

void Processor::fail(const std::string& reason) {
  std::uint64_t counter = 0;
  uc_reg_read(engine, UC_ARM64_REG_PC, &counter);
  throw std::runtime_error(reason + ", in " + describe(counter) + ", called from " + describe(x(30)));
}

}  // namespace device
