// An Objective-C class that counts its living instances.
#pragma once

#include <atomic>

#include "objc/class_definition.hpp"
#include "objc/ownership.hpp"
#include "platform/ns_object.hpp"

class Counted : public objc::Interface<"BrimTestCounted", NSObject> {};

struct CountedState {
  CountedState() { ++living; }
  CountedState(const CountedState&) = delete;
  CountedState& operator=(const CountedState&) = delete;
  ~CountedState() { --living; }

  int number = 7;
  static inline std::atomic<int> living = 0;
};

template <>
struct objc::StateOf<Counted> {
  using Type = CountedState;
};

inline int livingObjects() { return CountedState::living; }
inline NSUInteger retainCount(const NSObject* object) { return objc::send<NSUInteger, "retainCount">(object); }
// Registers the class with the Objective-C runtime.
void defineCounted();
