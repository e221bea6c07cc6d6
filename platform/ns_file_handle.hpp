// NSFileHandle: parts of a file.
#pragma once

#include "platform/ns_data.hpp"

class NSFileHandle : public objc::Interface<"NSFileHandle", NSObject> {
 public:
  // nil where the file cannot be opened. A pipe makes the caller wait for its other end.
  static NSFileHandle* forReading(NSString* path) {
    return objc::send<NSFileHandle*, "fileHandleForReadingAtPath:">(classObject(), path);
  }
  // From where the last one ended, shorter at the end of the file. Raises an exception for what is no file.
  NSData* readData(NSUInteger length) { return objc::send<NSData*, "readDataOfLength:">(this, length); }
};
