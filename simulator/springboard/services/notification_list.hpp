// The notifications that came and were neither opened nor cleared, the latest first.
#pragma once

#include <string>
#include <vector>

#include "simulator/springboard/services/notification_request.hpp"

namespace springboard {

// Whose notification a request is, and which of its sender's.
struct NotificationKey {
  std::string section;
  std::string identifier;
  friend bool operator==(const NotificationKey&, const NotificationKey&) = default;
};

NotificationKey keyOf(const NCNotificationRequest* request);

// Requests that are shown as one stack, the latest first; never empty.
using NotificationGroup = std::vector<objc::Ref<NCNotificationRequest>>;

enum class Grouping { None, ByConversation };

// Ordered by the requests' dates; of equal ones what came last is first.
class NotificationList {
 public:
  // A request takes the place of the one with its key. Beyond a thousand the oldest falls out.
  void insert(NCNotificationRequest* request);
  // False where there is none.
  bool remove(const NotificationKey& key);

  NotificationGroup all() const;
  // In the order of their latest requests. A conversation is one thread of one section.
  std::vector<NotificationGroup> groups(Grouping grouping) const;

 private:
  struct Entry {
    NotificationKey key;
    double date;
    objc::Ref<NCNotificationRequest> request;
  };
  std::vector<Entry> entries;  // the latest last
};

}  // namespace springboard
