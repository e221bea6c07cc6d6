// Compares the argument and result types of a message with the types of the method that receives the message. If the
// types differ, the method reads the wrong registers. Only builds that define BRIM_CHECK_ENCODINGS contain this check.
#pragma once

#include <stdio.h>
#include <stdlib.h>

#include "objc/runtime.hpp"

namespace objc::detail {

// Reads the types in an encoding in sequence. It reduces each type to the properties on which the calling convention
// depends: integer of a certain size, floating point, pointer, or struct with its members. It skips names, qualifiers
// and offsets.
class EncodingReader {
 public:
  explicit EncodingReader(const char* encoding) : next_(encoding) {}

  // Returns the kind of the next type: P for a pointer, 1, 2, 4 or 8 for an integer of that many bytes, and { and } for
  // the start and the end of a struct. For any other type, the kind is the code of the type in the encoding. Returns 0
  // at the end of the encoding.
  char nextKind() {
    skipDecoration();
    const char code = *next_;
    if (code == 0) return 0;
    ++next_;
    switch (code) {
      case '@':
        if (*next_ == '?') ++next_;
        if (*next_ == '"') skipQuoted();
        return 'P';
      case '^':
        skipType();
        return 'P';
      case '#':
      case ':':
      case '*':
        return 'P';
      case 'c':
      case 'C':
      case 'B':
        return '1';
      case 's':
      case 'S':
        return '2';
      case 'i':
      case 'I':
        return '4';
      case 'l':
      case 'L':
      case 'q':
      case 'Q':
        return '8';
      case '{':
        while (*next_ != '=' && *next_ != '}' && *next_ != 0) ++next_;
        if (*next_ == '=') ++next_;
        return '{';
      default:
        return code;
    }
  }

 private:
  static bool isDecoration(char code) {
    return (code >= '0' && code <= '9') || code == 'r' || code == 'n' || code == 'N' || code == 'o' || code == 'O' ||
           code == 'R' || code == 'V' || code == '+' || code == '-';
  }
  void skipDecoration() {
    while (isDecoration(*next_)) ++next_;
  }
  void skipQuoted() {
    ++next_;
    while (*next_ != '"' && *next_ != 0) ++next_;
    if (*next_ == '"') ++next_;
  }
  void skipType() {
    if (nextKind() != '{') return;
    for (int depth = 1; depth > 0;) {
      const char kind = nextKind();
      if (kind == 0) return;
      if (kind == '{') ++depth;
      if (kind == '}') --depth;
    }
  }

  const char* next_;
};

// Returns whether a method of type `defined` can receive a message of type `sent`. All types must have equal kinds,
// with one exception: a method can receive an argument of 64 bits as 32 bits, because it then reads the lower half of
// the register. Some enumerations have 64 bits on the phone and 32 bits in GNUstep's Foundation.
inline bool sameCallingConvention(const char* sent, const char* defined) {
  EncodingReader left(sent);
  EncodingReader right(defined);
  for (bool isArgument = false;; isArgument = true) {
    const char sentKind = left.nextKind();
    const char definedKind = right.nextKind();
    const bool readsLowerHalf = isArgument && sentKind == '8' && definedKind == '4';
    if (sentKind != definedKind && !readsLowerHalf) return false;
    if (sentKind == 0) return true;
  }
}

// Aborts the process with an error message if the types differ. Does nothing if the receiver has no such method,
// because the receiver can forward the message.
inline void checkEncoding(id receiver, SEL selector, const char* sent) {
  const Class receiverClass = object_getClass(receiver);
  const Method method = class_getInstanceMethod(receiverClass, selector);
  if (method == nullptr) return;
  const char* defined = method_getTypeEncoding(method);
  if (defined == nullptr || sameCallingConvention(sent, defined)) return;
  fprintf(stderr, "%s %s: the message was sent with the types %s, but the method is defined with the types %s\n",
          class_getName(receiverClass), sel_getName(selector), sent, defined);
  abort();
}

}  // namespace objc::detail
