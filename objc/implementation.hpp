// Adapts plain functions to method implementations. The first parameter of such a function is the receiver; the
// arguments of the message follow.
#pragma once

#include "objc/calling_convention.hpp"
#include "objc/encoding.hpp"
#include "objc/runtime.hpp"

namespace objc {

// The method implementation that calls `function`. It receives the selector from the runtime and does not pass it on.
template <auto function>
struct MethodOf;

template <class Result, class Self, class... Arguments, Result (*function)(Self, Arguments...)>
struct MethodOf<function> {
  static constexpr auto encoding = MethodEncoding<Result, Arguments...>::value;
  static constexpr std::size_t argumentCount = sizeof...(Arguments);
  static_assert(isPassedAlike(encoding.data()));

  static Result call(Self self, SEL, Arguments... arguments) { return function(self, arguments...); }
  static IMP implementation() { return toImplementation(&call); }
};

}  // namespace objc
