// NSFileHandle: sequential reading of a file.
#pragma once

#include "platform/ns_data.hpp"

class NSFileHandle : public objc::Interface<"NSFileHandle", NSObject> {
 public:
  // Returns nil if the file cannot be opened. Opening a pipe blocks until another process opens the other end.
  static NSFileHandle* forReading(NSString* path) {
    return objc::send<NSFileHandle*, "fileHandleForReadingAtPath:">(classObject(), path);
  }
  // Reads `length` bytes from the current position, or fewer at the end of the file. Raises an exception if reading
  // fails, for example because the path refers to a folder.
  NSData* readData(NSUInteger length) { return objc::send<NSData*, "readDataOfLength:">(this, length); }
};
