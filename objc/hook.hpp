// The rows of a table of changes to platform classes: hooks, which replace a method and can call the original
// implementation, added methods and added properties.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "objc/association.hpp"
#include "objc/implementation.hpp"
#include "objc/send.hpp"

namespace objc {

// The implementation that a hook has replaced. Call it with the arguments of the hook. If the class had no
// implementation, the call does nothing and returns a zero of the result type.
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

template <FixedString name, auto function>
Row hook(const char* className) {
  using Hook = detail::HookOf<function>;
  static_assert(name.count(':') == Hook::argumentCount, "one argument for each colon of the selector");
  return {{{className, TextOf<name>::text, Hook::encoding.data(), Hook::implementation(), &Hook::replaced,
            RowKind::Hook, Level::Instance},
           {}},
          1};
}

template <FixedString name, auto function, Level level = Level::Instance>
Row add(const char* className) {
  using Method = MethodOf<function>;
  static_assert(name.count(':') == Method::argumentCount, "one argument for each colon of the selector");
  return {
      {{className, TextOf<name>::text, Method::encoding.data(), Method::implementation(), nullptr, RowKind::Add, level},
       {}},
      1};
}

// A property whose value is associated with the object. The key is the selector of the getter. The object retains the
// value.
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

// The result of installing one method of the table.
struct InstalledMethod {
  const char* className;
  const char* selector;
  const char* encoding;
  RowKind kind;
  bool effective;  // false if the process has no such class or the hook found no method to replace
};

// Installs one method. Does nothing if this process does not have the class.
inline InstalledMethod install(const MethodRow& row) {
  Class target = reinterpret_cast<Class>(row.level == Level::Class ? objc_getMetaClass(row.className)
                                                                   : objc_getClass(row.className));
  const SEL selector = sel_registerName(row.selector);
  bool effective = false;
  if (row.kind == RowKind::Hook) {
    if (target != nullptr) {
      MSHookMessageEx(target, selector, row.implementation, row.replaced);
      effective = *row.replaced != nullptr;
    }
  } else {
    effective = target != nullptr && class_addMethod(target, selector, row.implementation, row.encoding);
  }
  return {row.className, row.selector, row.encoding, row.kind, effective};
}

}  // namespace objc
