// NSFileManager: contents of folders and attributes of files. Any thread. The functions in this header pass null as the
// error argument of a message; only the return value indicates a failure.
#pragma once

#include "platform/ns_dictionary.hpp"
#include "platform/ns_string.hpp"

class NSDirectoryEnumerator : public objc::Interface<"NSDirectoryEnumerator", NSObject> {
 public:
  // The path of the next entry, relative to the folder; nil after the last entry.
  NSString* nextObject() { return objc::send<NSString*, "nextObject">(this); }
};

class NSFileManager : public objc::Interface<"NSFileManager", NSObject> {
 public:
  static NSFileManager* defaultManager() { return objc::send<NSFileManager*, "defaultManager">(classObject()); }
  // The file names of the entries, in the order of the file system; nil if the folder cannot be read.
  NSArray* contentsOfDirectory(NSString* path) const {
    return objc::send<NSArray*, "contentsOfDirectoryAtPath:error:">(this, path, error());
  }
  // Enumerates the folder recursively and does not follow symbolic links. If the folder cannot be read, the result is
  // nil or enumerates nothing.
  NSDirectoryEnumerator* enumerator(NSString* path) const {
    return objc::send<NSDirectoryEnumerator*, "enumeratorAtPath:">(this, path);
  }
  // The attributes of the file. For a symbolic link, the attributes of the link itself. nil if there is no file at the
  // path.
  NSDictionary* attributes(NSString* path) const {
    return objc::send<NSDictionary*, "attributesOfItemAtPath:error:">(this, path, error());
  }

 private:
  static id* error() { return nullptr; }
};
