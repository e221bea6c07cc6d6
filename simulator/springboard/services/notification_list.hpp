// The list of received notifications that the user has neither opened nor cleared. Main thread.
#pragma once

#include <string>
#include <vector>

#include "simulator/springboard/services/notification_request.hpp"

namespace springboard {

// Identifies a notification: the application's bundle identifier and the identifier within that application.
struct NotificationKey {
  std::string section;
  std::string identifier;
  friend bool operator==(const NotificationKey&, const NotificationKey&) = default;
};

NotificationKey keyOf(const NCNotificationRequest* request);

// Requests that are shown as one stack, latest first. Never empty.
using NotificationGroup = std::vector<objc::Ref<NCNotificationRequest>>;

enum class Grouping { None, ByConversation };

// Sorted by date, latest first. Of requests with equal dates, the one that was inserted last is first.
class NotificationList {
 public:
  // Replaces the request with the same key. A list of more than 1000 requests drops the oldest one.
  void insert(NCNotificationRequest* request);
  // Returns false if the list does not contain the key.
  bool remove(const NotificationKey& key);

  // Empty if the list is empty.
  NotificationGroup all() const;
  // Sorted by the latest request of each group. A conversation is one thread of one application.
  std::vector<NotificationGroup> groups(Grouping grouping) const;

 private:
  struct Entry {
    NotificationKey key;
    double date;
    objc::Ref<NCNotificationRequest> request;
  };
  std::vector<Entry> entries_;  // latest last
};

}  // namespace springboard
