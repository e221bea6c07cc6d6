// Objective-C type encodings, computed from C++ types at compile time.
#pragma once

#include <cstdint>
#include <type_traits>

#include "objc/fixed_string.hpp"
#include "objc/runtime.hpp"

namespace objc {

template <class Signature>
class Block;

template <FixedString text>
struct EncodingText {
  static constexpr auto value = text;
};

template <class Type>
struct TypeEncoding;

template <>
struct TypeEncoding<void> : EncodingText<"v"> {};
template <>
struct TypeEncoding<bool> : EncodingText<"B"> {};
template <>
struct TypeEncoding<char> : EncodingText<"c"> {};
template <>
struct TypeEncoding<signed char> : EncodingText<"c"> {};
template <>
struct TypeEncoding<unsigned char> : EncodingText<"C"> {};
template <>
struct TypeEncoding<short> : EncodingText<"s"> {};
template <>
struct TypeEncoding<unsigned short> : EncodingText<"S"> {};
// A UTF-16 code unit of the platform's strings.
template <>
struct TypeEncoding<char16_t> : EncodingText<"S"> {};
template <>
struct TypeEncoding<int> : EncodingText<"i"> {};
template <>
struct TypeEncoding<unsigned int> : EncodingText<"I"> {};
template <>
struct TypeEncoding<long> : EncodingText<"q"> {};
template <>
struct TypeEncoding<unsigned long> : EncodingText<"Q"> {};
template <>
struct TypeEncoding<long long> : EncodingText<"q"> {};
template <>
struct TypeEncoding<unsigned long long> : EncodingText<"Q"> {};
template <>
struct TypeEncoding<float> : EncodingText<"f"> {};
template <>
struct TypeEncoding<double> : EncodingText<"d"> {};
template <>
struct TypeEncoding<const char*> : EncodingText<"*"> {};
template <>
struct TypeEncoding<void*> : EncodingText<"^v"> {};
template <>
struct TypeEncoding<const void*> : EncodingText<"^v"> {};
template <>
struct TypeEncoding<id> : EncodingText<"@"> {};
template <>
struct TypeEncoding<Class> : EncodingText<"#"> {};
template <>
struct TypeEncoding<SEL> : EncodingText<":"> {};

template <class Type>
requires std::is_enum_v<Type>
struct TypeEncoding<Type> : TypeEncoding<std::underlying_type_t<Type>> {
};

// A pointer to any C++ class, complete or incomplete, is encoded as an Objective-C object, because platform classes are
// used only through pointers.
template <class Type>
requires std::is_class_v<Type>
struct TypeEncoding<Type*> : EncodingText<"@"> {
};

template <class Type>
requires(std::is_pointer_v<Type> || std::is_arithmetic_v<Type>) struct TypeEncoding<Type*>
    : EncodingText<FixedString("^") + TypeEncoding<std::remove_cv_t<Type>>::value> {
};

template <class Signature>
struct TypeEncoding<Block<Signature>*> : EncodingText<"@?"> {};

// The encoding of a method: the result, the receiver, the selector and then each argument.
template <class Result, class... Arguments>
struct MethodEncoding {
  static constexpr auto value =
      ((TypeEncoding<Result>::value + FixedString("@:")) + ... + TypeEncoding<std::remove_cv_t<Arguments>>::value);
};

// The encoding of a block: the result, the block itself and then each argument.
template <class Result, class... Arguments>
struct BlockEncoding {
  static constexpr auto value =
      ((TypeEncoding<Result>::value + FixedString("@?")) + ... + TypeEncoding<std::remove_cv_t<Arguments>>::value);
};

}  // namespace objc
