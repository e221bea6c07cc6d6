// Compares the types of a message with those of the method that receives it. If they differ, the method reads the wrong
// registers. Only builds that define BRIM_CHECK_ENCODINGS check this.
#pragma once

#include <stdio.h>
#include <stdlib.h>

#include "objc/runtime.hpp"

namespace objc::detail {

// Reads the types of an encoding one by one and reduces each of them to what the calling convention depends on: the
// size of an integer, floating point, pointer, the members of a struct. It skips names, qualifiers and offsets.
class EncodingReader {
 public:
  explicit EncodingReader(const char* encoding) : next_(encoding) {}

  // The kind of the next type: P for a pointer, 1, 2, 4 or 8 for an integer of that many bytes, { and } for the start
  // and the end of a struct, otherwise the code itself. 0 at the end of the encoding.
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

// A method can read the lower half of the register of an argument: some enumerations have 32 bits in one Foundation and
// 64 bits in the other. The sizes of results must be equal, and a method must not read more than was sent.
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
// because it can forward the message.
inline void checkEncoding(id receiver, SEL selector, const char* sent) {
  const Class receiverClass = object_getClass(receiver);
  const Method method = class_getInstanceMethod(receiverClass, selector);
  if (method == nullptr) return;
  const char* defined = method_getTypeEncoding(method);
  if (defined == nullptr || sameCallingConvention(sent, defined)) return;
  fprintf(stderr, "%s %s: the types of the message are %s, but those of the method are %s\n",
          class_getName(receiverClass), sel_getName(selector), sent, defined);
  abort();
}

}  // namespace objc::detail
