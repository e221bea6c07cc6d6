// The list of received notifications that the user has neither opened nor cleared. Main thread.
#pragma once

#include <string>
#include <vector>

#include "simulator/springboard/services/notification_request.hpp"

namespace springboard {

// Identifies a notification. `section` is the application's bundle identifier. `identifier` is unique within that
// application.
struct NotificationKey {
  std::string section;
  std::string identifier;
  friend bool operator==(const NotificationKey&, const NotificationKey&) = default;
};

NotificationKey keyOf(const NCNotificationRequest* request);

// The requests that are shown as one stack. The latest request is first. A group is never empty.
using NotificationGroup = std::vector<objc::Ref<NCNotificationRequest>>;

enum class Grouping { None, ByConversation };

// A list of requests, sorted by date, latest first. If several requests have the same date, the one that was inserted
// last comes first.
class NotificationList {
 public:
  // Inserts the request, or replaces the request that has the same key. If the list then has more than 1000 requests,
  // the oldest request is removed.
  void insert(NCNotificationRequest* request);
  // Removes the request with this key. Returns false if the list does not contain it.
  bool remove(const NotificationKey& key);

  // Returns all requests, latest first.
  NotificationGroup all() const;
  // Returns the groups, sorted by the latest request of each group. A conversation is one thread of one application.
  std::vector<NotificationGroup> groups(Grouping grouping) const;

 private:
  struct Entry {
    NotificationKey key;
    double date;
    objc::Ref<NCNotificationRequest> request;
  };
  std::vector<Entry> entries_;  // the latest request is last
};

}  // namespace springboard
