// FolderFinder: finds the container folder of an application or of an app group by its identifier. The names of
// container folders are random, but a metadata file in each folder contains the identifier. The comparison ignores
// case. Nothing is cached between calls. The names of the class and of its messages are part of the library's
// public interface; do not change them. Any thread.
#pragma once

#include "platform/ns_string.hpp"

class FolderFinder : public objc::Interface<"FolderFinder", NSObject> {
 public:
  // Returns the path of an app group's container, or nil if there is no such container.
  static NSString* findSharedFolder(NSString* identifier) {
    return objc::send<NSString*, "findSharedFolder:">(classObject(), identifier);
  }
  // Like findSharedFolder, but the path begins with /private/var instead of /var.
  static NSString* findPrivateSharedFolder(NSString* identifier) {
    return objc::send<NSString*, "findPrivateSharedFolder:">(classObject(), identifier);
  }
  // Returns the path of an application's data container, or nil if there is no such container.
  static NSString* findDataFolder(NSString* identifier) {
    return objc::send<NSString*, "findDataFolder:">(classObject(), identifier);
  }
  // Returns the path of the first matching container in the folder `root`, in the file system's order. `root` must end
  // in "/"; the result does not end in "/". Returns nil if there is no such container or an argument is nil.
  static NSString* findFolder(NSString* identifier, NSString* root) {
    return objc::send<NSString*, "findFolder:folder:">(classObject(), identifier, root);
  }
};

// Call once. Returns false if the class cannot be defined.
bool registerFolderFinder();
