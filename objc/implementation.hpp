// Plain functions as method implementations: the receiver first, then the message's arguments.
#pragma once

#include "objc/encoding.hpp"
#include "objc/machine.hpp"

namespace objc {

// What a method implementation is called with, beside the selector that plain functions do not want.
template <auto function>
struct MethodOf;

template <class Result, class Self, class... Arguments, Result (*function)(Self, Arguments...)>
struct MethodOf<function> {
  static constexpr auto encoding = MethodEncoding<Result, Arguments...>::value;
  static constexpr std::size_t argumentCount = sizeof...(Arguments);

  static Result call(Self self, SEL, Arguments... arguments) { return function(self, arguments...); }
  static IMP implementation() { return toImplementation(&call); }
};

}  // namespace objc
