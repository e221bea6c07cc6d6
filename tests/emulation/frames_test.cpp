// Tests of the stack frames of the library's functions, as the unwinder of this process sees them.
#include "device/emulation/frames.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unwind.h>

#include <map>
#include <stdexcept>

using Function = void();

extern "C" {
void function_of_the_phone(Function* called);
void function_with_known_registers(Function* called);
extern const char end_of_function_of_the_phone[];
extern const char end_of_function_with_known_registers[];
}

namespace {

using Registers = std::map<int, std::uint64_t>;

std::uint64_t addressOf(void (*function)(Function*)) { return reinterpret_cast<std::uint64_t>(function); }
std::uint64_t addressOf(const char* label) { return reinterpret_cast<std::uint64_t>(label); }

// An encoding that states that the function saves all pairs of registers.
constexpr std::uint32_t allPairs = 0x04000f1f;

void registerFunctionOfThePhone(std::uint32_t encoding) {
  emulation::registerFrames({{addressOf(&function_of_the_phone), addressOf(end_of_function_of_the_phone), encoding}},
                            0);
}

// The registers of function_with_known_registers during its call. Empty if the unwinder does not reach it.
Registers& seenRegisters() {
  static Registers registers;
  return registers;
}

_Unwind_Reason_Code readRegisters(_Unwind_Context* context, void*) {
  const std::uint64_t address = _Unwind_GetIP(context);
  if (address < addressOf(&function_with_known_registers) || address > addressOf(end_of_function_with_known_registers))
    return _URC_NO_REASON;
  constexpr int firstVectorRegister = 64;
  for (int number = 19; number <= 28; ++number) seenRegisters()[number] = _Unwind_GetGR(context, number);
  for (int number = 8; number <= 15; ++number)
    seenRegisters()[firstVectorRegister + number] = _Unwind_GetGR(context, firstVectorRegister + number);
  return _URC_END_OF_STACK;
}

void readRegistersOfCallers() { _Unwind_Backtrace(&readRegisters, nullptr); }

TEST(Frames, RestoreEveryRegister) {
  registerFunctionOfThePhone(allPairs);
  function_with_known_registers(&readRegistersOfCallers);
  Registers expected;
  for (int number = 19; number <= 28; ++number) expected[number] = static_cast<std::uint64_t>(number);
  for (int number = 8; number <= 15; ++number) expected[64 + number] = static_cast<std::uint64_t>(number);
  EXPECT_EQ(seenRegisters(), expected);
}

TEST(Frames, PropagateExceptions) {
  registerFunctionOfThePhone(allPairs);
  EXPECT_THROW(function_with_known_registers([] { throw std::runtime_error("an exception"); }), std::runtime_error);
}

TEST(Frames, AreUnknownWithoutRegistration) {
  function_with_known_registers(&readRegistersOfCallers);
  EXPECT_EQ(seenRegisters(), Registers{});
  EXPECT_DEATH(function_with_known_registers([] { throw std::runtime_error("an exception"); }), "an exception");
}

TEST(Frames, AreUnknownIfTheFunctionHasNoEncoding) {
  registerFunctionOfThePhone(0);
  function_with_known_registers(&readRegistersOfCallers);
  EXPECT_EQ(seenRegisters(), Registers{});
}

TEST(Frames, AreRejectedIfTheirEncodingIsUnsupported) {
  constexpr std::uint32_t unsupported[] = {
      0x02001000,  // without a frame record, with 16 bytes on the stack
      0x02000001,  // without a frame record, with saved registers
      0x03000010,  // described by the section __eh_frame
      0x04001001,  // an unknown register
      0x44000001,  // a language-specific handler
      0x05000000,
  };
  for (const std::uint32_t encoding : unsupported) {
    try {
      emulation::callFrameInformation({{0x8a0, 0x8b0, encoding}}, 0);
      ADD_FAILURE() << std::hex << encoding << " is accepted";
    } catch (const std::runtime_error& error) {
      EXPECT_THAT(error.what(), testing::StartsWith("the function at 0x8a0 has the unsupported unwind encoding 0x"));
    }
  }
}

}  // namespace
