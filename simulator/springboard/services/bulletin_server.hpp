// The bulletin server: takes bulletins from the parts of the system and has them shown as banners.
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

// The queue that the server's state belongs to.
extern "C" dispatch_queue_t __BBServerQueue;

namespace springboard {

void defineBulletinServer();
// The home screen's one server, on its queue. Once.
void startBulletinServer();

}  // namespace springboard
