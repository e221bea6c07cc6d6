#include "simulator/springboard/services/notification_list.hpp"

#include <algorithm>
#include <map>
#include <utility>

#include "simulator/base/foundation_json.hpp"

namespace springboard {

namespace {

constexpr std::size_t maxRequests = 1000;

double dateOf(const NCNotificationRequest* request) {
  return objc::send<double, "timeIntervalSince1970">(objc::state(request).timestamp.get());
}

}  // namespace

NotificationKey keyOf(const NCNotificationRequest* request) {
  const NotificationRequestState& state = objc::state(request);
  return {base::textOf(state.sectionIdentifier), base::textOf(state.notificationIdentifier)};
}

void NotificationList::insert(NCNotificationRequest* request) {
  const NotificationKey key = keyOf(request);
  const double date = dateOf(request);
  remove(key);
  const auto position = std::ranges::upper_bound(entries_, date, {}, &Entry::date);
  entries_.insert(position, {key, date, objc::retain(request)});
  if (entries_.size() > maxRequests) entries_.erase(entries_.begin());
}

bool NotificationList::remove(const NotificationKey& key) {
  return std::erase_if(entries_, [&key](const Entry& entry) { return entry.key == key; }) != 0;
}

NotificationGroup NotificationList::all() const {
  NotificationGroup requests;
  for (auto entry = entries_.rbegin(); entry != entries_.rend(); ++entry) requests.push_back(entry->request);
  return requests;
}

std::vector<NotificationGroup> NotificationList::groups(Grouping grouping) const {
  std::vector<NotificationGroup> groups;
  std::map<std::pair<std::string, std::string>, std::size_t> groupIndices;
  for (auto entry = entries_.rbegin(); entry != entries_.rend(); ++entry) {
    const std::pair conversation(entry->key.section, base::textOf(entry->request->threadIdentifier()));
    const auto [group, isFirst] = groupIndices.try_emplace(conversation, groups.size());
    if (isFirst || grouping == Grouping::None) {
      groups.push_back({entry->request});
    } else {
      groups[group->second].push_back(entry->request);
    }
  }
  return groups;
}

}  // namespace springboard
