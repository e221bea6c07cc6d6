// FolderFinder: finds an application's container. Containers have random names; the metadata file in a container has
// the identifier. The comparison ignores case. Every call reads the file system again. The class name and its messages
// are fixed by the interface. Any thread.
#pragma once

#include "platform/ns_string.hpp"

class FolderFinder : public objc::Interface<"FolderFinder", NSObject> {
 public:
  // The container of an app group; nil if there is none.
  static NSString* findSharedFolder(NSString* identifier) {
    return objc::send<NSString*, "findSharedFolder:">(classObject(), identifier);
  }
  // The container of an app group, under the path that applications of the group use; nil if there is none.
  static NSString* findPrivateSharedFolder(NSString* identifier) {
    return objc::send<NSString*, "findPrivateSharedFolder:">(classObject(), identifier);
  }
  // The data container of an application; nil if there is none.
  static NSString* findDataFolder(NSString* identifier) {
    return objc::send<NSString*, "findDataFolder:">(classObject(), identifier);
  }
  // The first matching container in the root, in the file system's order. The root ends in "/", the result does not.
  // nil if there is none, and if an argument is nil.
  static NSString* findFolder(NSString* identifier, NSString* root) {
    return objc::send<NSString*, "findFolder:folder:">(classObject(), identifier, root);
  }
};

// Call once. Returns false if the class cannot be defined.
bool registerFolderFinder();
