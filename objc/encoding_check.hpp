// Holds a message's types against those of the method it reaches. A binding whose types differ from the method's would
// read the wrong registers; builds that check for such mistakes define BRIM_CHECK_ENCODINGS.
#pragma once

#include <stdio.h>
#include <stdlib.h>

#include "objc/machine.hpp"

namespace objc::detail {

// Reads one encoding after the other as what decides the calling convention: sizes of integers, floating point,
// pointers, the members of structs. Names, qualifiers and offsets do not count.
class EncodingReader {
 public:
  explicit EncodingReader(const char* encoding) : next(encoding) {}

  // The kind of the next member, 0 at the end.
  char take() {
    skipDecoration();
    const char code = *next;
    if (code == 0) return 0;
    ++next;
    switch (code) {
      case '@':
        if (*next == '?') ++next;
        if (*next == '"') skipQuoted();
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
        while (*next != '=' && *next != '}' && *next != 0) ++next;
        if (*next == '=') ++next;
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
    while (isDecoration(*next)) ++next;
  }
  void skipQuoted() {
    ++next;
    while (*next != '"' && *next != 0) ++next;
    if (*next == '"') ++next;
  }
  void skipType() {
    if (take() != '{') return;
    for (int depth = 1; depth > 0;) {
      const char kind = take();
      if (kind == 0) return;
      if (kind == '{') ++depth;
      if (kind == '}') --depth;
    }
  }

  const char* next;
};

// A method may read half of an argument's register, as where one Foundation counts an enumeration in 32 bits and
// another in 64. Never half of a result's, nor more than was sent.
inline bool sameCallingConvention(const char* sent, const char* defined) {
  EncodingReader left(sent);
  EncodingReader right(defined);
  for (bool isArgument = false;; isArgument = true) {
    const char sentKind = left.take();
    const char definedKind = right.take();
    const bool isReadByHalf = isArgument && sentKind == '8' && definedKind == '4';
    if (sentKind != definedKind && !isReadByHalf) return false;
    if (sentKind == 0) return true;
  }
}

// Ends the process with a message where they differ. A receiver that forwards has no method to compare with.
inline void checkEncoding(id receiver, SEL selector, const char* sent) {
  const Class receiverClass = object_getClass(receiver);
  const Method method = class_getInstanceMethod(receiverClass, selector);
  if (method == nullptr) return;
  const char* defined = method_getTypeEncoding(method);
  if (defined == nullptr || sameCallingConvention(sent, defined)) return;
  fprintf(stderr, "%s %s: the message says %s, the method %s\n", class_getName(receiverClass), sel_getName(selector),
          sent, defined);
  abort();
}

}  // namespace objc::detail
