// Rows of an installation table: hooks that keep the replaced implementation, added methods, added properties.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "objc/association.hpp"
#include "objc/implementation.hpp"
#include "objc/send.hpp"

namespace objc {

// The implementation that a hook replaced, callable with the hook's own arguments. Where the class had none, a call
// does nothing and gives a zero.
template <class Signature>
class Original;

template <class Result, class Self, class... Arguments>
class Original<Result(Self, Arguments...)> {
 public:
  Original(IMP replacedImplementation, SEL hookedSelector)
      : implementation(replacedImplementation), selector(hookedSelector) {}

  Result operator()(Self self, Arguments... arguments) const {
    if (implementation == nullptr) {
      if constexpr (std::is_void_v<Result>) {
        return;
      } else {
        return Result{};
      }
    } else {
      return detail::call<Result>(implementation, detail::identifier(self), selector, arguments...);
    }
  }

 private:
  IMP implementation;
  SEL selector;
};

namespace detail {

template <auto function>
struct HookOf;

template <class Result, class Self, class... Arguments,
          Result (*function)(Original<Result(Self, Arguments...)>, Self, Arguments...)>
struct HookOf<function> {
  static constexpr auto encoding = MethodEncoding<Result, Arguments...>::value;
  static constexpr std::size_t argumentCount = sizeof...(Arguments);
  static inline IMP replaced = nullptr;

  static Result call(Self self, SEL selector, Arguments... arguments) {
    return function(Original<Result(Self, Arguments...)>(replaced, selector), self, arguments...);
  }
  static IMP implementation() { return toImplementation(&call); }
};

}  // namespace detail

enum class RowKind : std::uint8_t { Hook, Add };

// Which of a class's two sets of methods a row belongs to.
enum class Level : std::uint8_t { Instance, Class };

// One method of the table. The strings live as long as the library.
struct MethodRow {
  const char* className;
  const char* selector;
  const char* encoding;
  IMP implementation;
  IMP* replaced;  // hooks only
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

// A property kept as an associated value of the object, keyed by its getter and held strongly.
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

// What became of one method of the table.
struct InstalledMethod {
  const char* className;
  const char* selector;
  const char* encoding;
  RowKind kind;
  bool effective;  // false where the process has no such class, or a hook found no method to replace
};

// Installs one method; a class that this process does not have makes it inert.
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
