// NSFileManager: folders and what lies in them.
#pragma once

#include "platform/ns_dictionary.hpp"
#include "platform/ns_string.hpp"

class NSDirectoryEnumerator : public objc::Interface<"NSDirectoryEnumerator", NSObject> {
 public:
  // The path of the next entry below the folder, relative to it; nil at the end.
  NSString* nextObject() { return objc::send<NSString*, "nextObject">(this); }
};

class NSFileManager : public objc::Interface<"NSFileManager", NSObject> {
 public:
  static NSFileManager* defaultManager() { return objc::send<NSFileManager*, "defaultManager">(classObject()); }
  // Names alone, in the file system's order; nil where the folder cannot be read.
  NSArray* contentsOfDirectory(NSString* path) const {
    return objc::send<NSArray*, "contentsOfDirectoryAtPath:error:">(this, path, error());
  }
  // Everything below the folder, links not followed; nil or empty where it cannot be read.
  NSDirectoryEnumerator* enumerator(NSString* path) const {
    return objc::send<NSDirectoryEnumerator*, "enumeratorAtPath:">(this, path);
  }
  // Of the file itself or of the link; nil where there is none.
  NSDictionary* attributes(NSString* path) const {
    return objc::send<NSDictionary*, "attributesOfItemAtPath:error:">(this, path, error());
  }

 private:
  static id* error() { return nullptr; }
};
