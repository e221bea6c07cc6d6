// The rows of a table of changes to platform classes. A row is a hook, an added method or an added property. A hook
// replaces a method and can call the original implementation.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "objc/association.hpp"
#include "objc/implementation.hpp"
#include "objc/send.hpp"

namespace objc {

// The implementation that a hook has replaced. Call it with the arguments of the hook. If the class had no
// implementation, the call does nothing and returns zero, nil or false.
template <class Signature>
class Original;

template <class Result, class Self, class... Arguments>
class Original<Result(Self, Arguments...)> {
 public:
  Original(IMP replacedImplementation, SEL hookedSelector)
      : implementation_(replacedImplementation), selector_(hookedSelector) {}

  Result operator()(Self self, Arguments... arguments) const {
    if (implementation_ == nullptr) {
      if constexpr (std::is_void_v<Result>) {
        return;
      } else {
        return Result{};
      }
    } else {
      return detail::call<Result>(implementation_, detail::toId(self), selector_, arguments...);
    }
  }

 private:
  IMP implementation_;
  SEL selector_;
};

namespace detail {

template <auto function>
struct HookOf;

template <class Result, class Self, class... Arguments,
          Result (*function)(Original<Result(Self, Arguments...)>, Self, Arguments...)>
struct HookOf<function> {
  static constexpr auto encoding = MethodEncoding<Result, Arguments...>::value;
  static constexpr std::size_t argumentCount = sizeof...(Arguments);
  static_assert(isPassedAlike(encoding.data()));
  static inline IMP replaced = nullptr;

  static Result call(Self self, SEL selector, Arguments... arguments) {
    return function(Original<Result(Self, Arguments...)>(replaced, selector), self, arguments...);
  }
  static IMP implementation() { return toImplementation(&call); }
};

}  // namespace detail

// Whether a method replaces an existing method or is added to the class.
enum class RowKind : std::uint8_t { Hook, Add };

// Whether a method is an instance method or a class method.
enum class Level : std::uint8_t { Instance, Class };

// One method of the table. The strings have static storage duration.
struct MethodRow {
  const char* className;
  const char* selector;
  const char* encoding;
  IMP implementation;
  IMP* replaced;  // receives the replaced implementation; null for added methods
  RowKind kind;
  Level level;
};

// A row of the table: one method, or the getter and setter of a property.
struct Row {
  MethodRow methods[2];
  std::size_t count;
};

// A row that replaces the instance method `name` of the class. The first parameter of `function` is the original
// implementation; the receiver and the arguments of the message follow.
template <FixedString name, auto function>
Row hook(const char* className) {
  using Hook = detail::HookOf<function>;
  static_assert(name.count(':') == Hook::argumentCount, "one argument for each colon of the selector");
  return {{{className, TextOf<name>::text, Hook::encoding.data(), Hook::implementation(), &Hook::replaced,
            RowKind::Hook, Level::Instance},
           {}},
          1};
}

// A row that adds the method `name` to the class. The first parameter of `function` is the receiver; the arguments of
// the message follow.
template <FixedString name, auto function, Level level = Level::Instance>
Row add(const char* className) {
  using Method = MethodOf<function>;
  static_assert(name.count(':') == Method::argumentCount, "one argument for each colon of the selector");
  return {
      {{className, TextOf<name>::text, Method::encoding.data(), Method::implementation(), nullptr, RowKind::Add, level},
       {}},
      1};
}

// A row that adds a property to the class. The value is associated with the object, which retains it. The key of the
// association is the selector of the getter.
template <FixedString name, class Type>
Row property(const char* className) {
  using Accessors = AssociatedProperty<name, Type>;
  using Getter = MethodOf<&Accessors::get>;
  using Setter = MethodOf<&Accessors::set>;
  static constexpr auto setter = setterName<name>();
  return {{{className, TextOf<name>::text, Getter::encoding.data(), Getter::implementation(), nullptr, RowKind::Add,
            Level::Instance},
           {className, setter.data(), Setter::encoding.data(), Setter::implementation(), nullptr, RowKind::Add,
            Level::Instance}},
          2};
}

}  // namespace objc
