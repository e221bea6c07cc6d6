// FolderFinder: the folders of applications' containers, whose names are random, by the identifiers in their metadata.
// Every call reads the file system anew. Any thread.
#pragma once

#include "platform/ns_string.hpp"

class FolderFinder : public objc::Interface<"FolderFinder", NSObject> {
 public:
  // The container of an app group; nil where there is none. Upper and lower case are the same.
  static NSString* findSharedFolder(NSString* identifier) {
    return objc::send<NSString*, "findSharedFolder:">(classObject(), identifier);
  }
  // The same under the path that the group's own application sees.
  static NSString* findPrivateSharedFolder(NSString* identifier) {
    return objc::send<NSString*, "findPrivateSharedFolder:">(classObject(), identifier);
  }
  // The container of an application's own data; nil where there is none.
  static NSString* findDataFolder(NSString* identifier) {
    return objc::send<NSString*, "findDataFolder:">(classObject(), identifier);
  }
  // The first container listed in the root, a path that ends in "/". The answer does not end in one.
  static NSString* findFolder(NSString* identifier, NSString* root) {
    return objc::send<NSString*, "findFolder:folder:">(classObject(), identifier, root);
  }
};

void registerFolderFinder();
