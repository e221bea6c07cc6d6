// The bulletin server. Components of the system publish bulletins, and the server presents them as banners.
#pragma once

#include "objc/block.hpp"
#include "objc/class_definition.hpp"
#include "platform/dispatch.hpp"
#include "platform/ns_date.hpp"
#include "platform/ns_string.hpp"

class BBAction : public objc::Interface<"BBAction", NSObject> {};
class BBBulletin : public objc::Interface<"BBBulletin", NSObject> {};
class BBServer : public objc::Interface<"BBServer", NSObject> {};

struct BulletinActionState {
  objc::Ref<NSString> launchBundleID;
  objc::BlockRef<void()> callblock;
};
template <>
struct objc::StateOf<BBAction> {
  using Type = BulletinActionState;
};

struct BulletinState {
  objc::Ref<NSString> title;
  objc::Ref<NSString> subtitle;
  objc::Ref<NSString> message;
  objc::Ref<NSString> sectionID;
  objc::Ref<NSString> threadID;
  objc::Ref<NSString> bulletinID;
  objc::Ref<NSString> recordID;
  objc::Ref<NSString> publisherBulletinID;
  objc::Ref<NSDate> date;
  objc::Ref<NSDate> publicationDate;
  objc::Ref<NSDate> lastInterruptDate;
  objc::Ref<BBAction> defaultAction;
  bool clearable = false;
  bool showsMessagePreview = false;
};
template <>
struct objc::StateOf<BBBulletin> {
  using Type = BulletinState;
};

struct BulletinServerState {
  dispatch_queue_t queue = nullptr;
};
template <>
struct objc::StateOf<BBServer> {
  using Type = BulletinServerState;
};

// The queue of the server. All messages to the server must be sent on this queue.
extern "C" dispatch_queue_t __BBServerQueue;

namespace springboard {

void defineBulletinServer();
// Creates the server and its queue. Call this once, after the classes have been registered. Main thread.
void startBulletinServer();

}  // namespace springboard
