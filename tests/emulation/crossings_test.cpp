// Tests of calls between the library and code for Linux. The functions declare wide types, through which the tests read
// and set the undefined bits of narrow values.
#include "device/emulation/crossings.hpp"

#include <gtest/gtest.h>
#include <malloc.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <vector>

#include "objc/send.hpp"
#include "platform/ns_object.hpp"
#include "tests/support/temporary_folder.hpp"

namespace {

using emulation::intoLibrary;
using emulation::outOfLibrary;

// If no report is written, calls are as direct as possible. The test of the report sets its own folder.
[[maybe_unused]] const int withoutReport = unsetenv("BRIM_REPORT");

constexpr std::uint64_t undefinedBits = 0x5a5a5a5a5a5a5a00;

std::uint64_t thirdArgument(id, SEL, std::uint64_t argument) { return argument; }

template <class Function>
Function* into(Function* function, const char* encoding) {
  return objc::fromImplementation<Function>(intoLibrary(objc::toImplementation(function), encoding, "a function"));
}
template <class Function>
Function* outOf(Function* function, const char* encoding) {
  return objc::fromImplementation<Function>(outOfLibrary(objc::toImplementation(function), encoding, "a function"));
}

TEST(CallIntoTheLibrary, ExtendsNarrowArguments) {
  EXPECT_EQ(into(&thirdArgument, "v@:B")(nullptr, nullptr, undefinedBits | 1), 1U);
  EXPECT_EQ(into(&thirdArgument, "v@:c")(nullptr, nullptr, undefinedBits | 0xff), 0xffffffffU);
  EXPECT_EQ(into(&thirdArgument, "v@:s")(nullptr, nullptr, undefinedBits | 0x8fff), 0xffffdfffU);
  EXPECT_EQ(into(&thirdArgument, "v@:S")(nullptr, nullptr, undefinedBits | 0xff), 0x5affU);
}

TEST(CallIntoTheLibrary, IsDirectWithoutNarrowArguments) {
  EXPECT_EQ(into(&thirdArgument, "v@:@"), &thirdArgument);
  EXPECT_EQ(into(&thirdArgument, "B@:q"), &thirdArgument);
}

TEST(CallIntoTheLibrary, UsesTheSameStubForTheSameMethod) {
  EXPECT_NE(into(&thirdArgument, "v@:B"), &thirdArgument);
  EXPECT_EQ(into(&thirdArgument, "v@:B"), into(&thirdArgument, "v@:B"));
}

struct Large {
  std::uint64_t values[12];
};

Large allArguments(std::uint64_t a, std::uint64_t b, std::uint64_t narrow, std::uint64_t d, std::uint64_t e,
                   std::uint64_t f, std::uint64_t g, std::uint64_t h, std::uint64_t onStack, double first,
                   double last) {
  return {{a, b, narrow, d, e, f, g, h, onStack, static_cast<std::uint64_t>(first), static_cast<std::uint64_t>(last)}};
}

TEST(CallIntoTheLibrary, PassesAllOtherArgumentsAndALargeResult) {
  const Large result = into(&allArguments, "v@:B@@@@@@dd")(1, 2, undefinedBits | 3, 4, 5, 6, 7, 8, 9, 10.0, 11.0);
  for (std::uint64_t index = 0; index < 11; ++index) EXPECT_EQ(result.values[index], index + 1);
}

std::uint64_t fail(id, SEL, std::uint64_t) { throw std::runtime_error("an exception"); }

TEST(CallIntoTheLibrary, PropagatesExceptions) {
  EXPECT_THROW(into(&fail, "v@:B")(nullptr, nullptr, 1), std::runtime_error);
}

TEST(CallIntoTheLibrary, FailsForTypesThatItCannotPass) {
  EXPECT_EXIT(into(&thirdArgument, "v@:@@@@@@B"), testing::ExitedWithCode(1),
              "^Brim.dylib: a function has a narrow argument on the stack\n$");
  EXPECT_EXIT(into(&thirdArgument, "v@:b3"), testing::ExitedWithCode(1),
              "^Brim.dylib: a function has the unknown type v@:b3\n$");
}

TEST(CallOutOfTheLibrary, ExtendsANarrowResult) {
  EXPECT_EQ(outOf(&thirdArgument, "B@:q")(nullptr, nullptr, undefinedBits | 1), 1U);
  EXPECT_EQ(outOf(&thirdArgument, "c@:q")(nullptr, nullptr, undefinedBits | 0xff), 0xffffffffU);
}

TEST(CallOutOfTheLibrary, IsDirectWithoutANarrowResult) {
  EXPECT_EQ(outOf(&thirdArgument, "@@:B"), &thirdArgument);
  EXPECT_EQ(outOfLibrary(nullptr, "B@:", "a function"), nullptr);
}

TEST(CallOutOfTheLibrary, PropagatesExceptions) {
  EXPECT_THROW(outOf(&fail, "B@:q")(nullptr, nullptr, 1), std::runtime_error);
}

TEST(CallOutOfTheLibrary, FailsForANarrowResultWithArgumentsOnTheStack) {
  EXPECT_EXIT(outOf(&thirdArgument, "B@:@@@@@@@"), testing::ExitedWithCode(1),
              "^Brim.dylib: a function has a narrow result and arguments on the stack\n$");
}

using Send = std::uint64_t(id, SEL, std::uint64_t);
template <class Function = Send>
Function* messageFunction() {
  return objc::fromImplementation<Function>(reinterpret_cast<IMP>(emulation::messageFunction()));
}

id objectWithMethod(const char* encoding, Send* method = &thirdArgument) {
  Class type = objc_allocateClassPair(NSObject::classObject(), "EmulationTest", 0);
  class_addMethod(type, sel_registerName("value:"), objc::toImplementation(method), encoding);
  objc_registerClassPair(type);
  return objc::send<id, "new">(type);
}

TEST(MessageFunction, CallsTheMethodAndExtendsItsResult) {
  EXPECT_EQ(messageFunction()(objectWithMethod("C@:q"), sel_registerName("value:"), undefinedBits | 2), 2U);
}

TEST(MessageFunction, PassesAWideResult) {
  EXPECT_EQ(messageFunction()(objectWithMethod("q@:q"), sel_registerName("value:"), undefinedBits), undefinedBits);
}

TEST(MessageFunction, ReturnsZeroForNil) {
  EXPECT_EQ(messageFunction()(nullptr, sel_registerName("value:"), 7), 0U);
  using SendDouble = double(id, SEL, double);
  EXPECT_EQ(messageFunction<SendDouble>()(nullptr, sel_registerName("doubleValue"), 1.5), 0);
}

TEST(MessageFunction, PropagatesExceptionsFromAMethodWithAWideResult) {
  EXPECT_THROW(messageFunction()(objectWithMethod("q@:q", &fail), sel_registerName("value:"), 1), std::runtime_error);
}

TEST(MessageFunction, PropagatesExceptionsFromAMethodWithANarrowResult) {
  EXPECT_THROW(messageFunction()(objectWithMethod("C@:q", &fail), sel_registerName("value:"), 1), std::runtime_error);
}

BOOL failToResolve(id, SEL, SEL) { throw std::runtime_error("an exception"); }

TEST(MessageFunction, PropagatesExceptionsFromTheLookUp) {
  Class type = objc_allocateClassPair(NSObject::classObject(), "EmulationTest", 0);
  objc_registerClassPair(type);
  const id object = objc::send<id, "new">(type);
  class_addMethod(object_getClass(reinterpret_cast<id>(type)), sel_registerName("resolveInstanceMethod:"),
                  objc::toImplementation(&failToResolve), "C@::");
  EXPECT_THROW(messageFunction()(object, sel_registerName("value:"), 1), std::runtime_error);
}

TEST(MessageFunction, EndsTheProcessForADeallocatedObject) {
  const id object = objectWithMethod("q@:q");
  objc::send<void, "release">(object);
  EXPECT_DEATH(messageFunction()(object, sel_registerName("value:"), 1), "");
}

id objectForExitHandler = nullptr;

// The C library does not overwrite freed blocks that are in its cache, which has room for seven blocks of each size.
void fillCacheOfReleasedMemory() {
  std::vector<void*> blocks;
  for (std::size_t size = 24; size <= 1032; size += 16)
    for (int count = 0; count < 7; ++count) blocks.push_back(std::malloc(size));
  for (void* const block : blocks) std::free(block);
}

// The handler runs after the destructors of the variables that the first message creates.
TEST(MessageFunction, CanBeCalledByExitHandlers) {
  objectForExitHandler = objectWithMethod("C@:q");
  const auto sendFromHandlerAndExit = [] {
    mallopt(M_PERTURB, 165);
    std::atexit([] {
      if (messageFunction()(objectForExitHandler, sel_registerName("value:"), 2) != 2) std::abort();
      std::fputs("sent", stderr);
    });
    messageFunction()(objectForExitHandler, sel_registerName("value:"), 1);
    fillCacheOfReleasedMemory();
    std::exit(0);
  };
  EXPECT_EXIT(sendFromHandlerAndExit(), testing::ExitedWithCode(0), "^sent$");
}

std::string contents(const std::filesystem::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Report, NamesTheCalledMethodsAndTheUndefinedBits) {
  const test::TemporaryFolder folder;
  setenv("BRIM_REPORT", folder.path().c_str(), 1);
  into(&thirdArgument, "v@:B")(nullptr, nullptr, 1);
  into(&thirdArgument, "v@:B")(nullptr, nullptr, 0x101);
  outOf(&thirdArgument, "B@:q")(nullptr, nullptr, 0x200);
  into(&thirdArgument, "v@:q")(nullptr, nullptr, undefinedBits);
  const std::string report = contents(folder.path() / std::to_string(getpid()));
  const std::size_t endOfCommandLine = report.find('\n') + 1;
  EXPECT_EQ(report.find("process "), 0U) << report;
  EXPECT_EQ(report.substr(endOfCommandLine),
            "called a function\n"
            "not extended: x2 of a function, 0x101\n"
            "not extended: result of a function, 0x200\n");
}

}  // namespace
