// BBServer: the bulletin server, which publishes notifications to the home screen. A BBBulletin is such a notification,
// and a BBAction is an action of a bulletin.
#pragma once

#include "objc/block.hpp"
#include "platform/ns_date.hpp"

class BBAction : public objc::Interface<"BBAction", NSObject> {
 public:
  // Returns an action that launches the application and then calls the block. The block can be null.
  static BBAction* launching(NSString* bundleIdentifier, objc::Block<void()>* block) {
    return objc::sendIfAvailable<BBAction*, "actionWithLaunchBundleID:callblock:">(classObject(), bundleIdentifier,
                                                                                   block);
  }
};

class BBBulletin : public objc::Interface<"BBBulletin", NSObject> {
 public:
  void setTitle(NSString* title) { objc::sendIfAvailable<void, "setTitle:">(this, title); }
  void setMessage(NSString* message) { objc::sendIfAvailable<void, "setMessage:">(this, message); }
  void setSectionID(NSString* section) { objc::sendIfAvailable<void, "setSectionID:">(this, section); }
  void setBulletinID(NSString* identifier) { objc::sendIfAvailable<void, "setBulletinID:">(this, identifier); }
  void setRecordID(NSString* identifier) { objc::sendIfAvailable<void, "setRecordID:">(this, identifier); }
  void setPublisherBulletinID(NSString* identifier) {
    objc::sendIfAvailable<void, "setPublisherBulletinID:">(this, identifier);
  }
  void setDate(NSDate* date) { objc::sendIfAvailable<void, "setDate:">(this, date); }
  void setDefaultAction(BBAction* action) { objc::sendIfAvailable<void, "setDefaultAction:">(this, action); }
  void setClearable(bool clearable) { objc::sendIfAvailable<void, "setClearable:">(this, clearable); }
  void setShowsMessagePreview(bool shows) { objc::sendIfAvailable<void, "setShowsMessagePreview:">(this, shows); }
  void setPublicationDate(NSDate* date) { objc::sendIfAvailable<void, "setPublicationDate:">(this, date); }
  void setLastInterruptDate(NSDate* date) { objc::sendIfAvailable<void, "setLastInterruptDate:">(this, date); }
};

class BBServer : public objc::Interface<"BBServer", NSObject> {
 public:
  // Publishes the bulletin to the destinations, which are a bit mask. Call this function on the server's own queue.
  void publish(BBBulletin* bulletin, NSUInteger destinations) {
    objc::sendIfAvailable<void, "publishBulletin:destinations:">(this, bulletin, destinations);
  }
};
