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
  const auto place = std::ranges::upper_bound(entries, date, {}, &Entry::date);
  entries.insert(place, {key, date, objc::retain(request)});
  if (entries.size() > maxRequests) entries.erase(entries.begin());
}

bool NotificationList::remove(const NotificationKey& key) {
  return std::erase_if(entries, [&key](const Entry& entry) { return entry.key == key; }) != 0;
}

NotificationGroup NotificationList::all() const {
  NotificationGroup requests;
  for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) requests.push_back(entry->request);
  return requests;
}

std::vector<NotificationGroup> NotificationList::groups(Grouping grouping) const {
  std::vector<NotificationGroup> groups;
  std::map<std::pair<std::string, std::string>, std::size_t> places;
  for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
    const std::pair conversation(entry->key.section, base::textOf(entry->request->threadIdentifier()));
    const auto [known, isFirst] = places.try_emplace(conversation, groups.size());
    if (isFirst || grouping == Grouping::None) {
      groups.push_back({entry->request});
    } else {
      groups[known->second].push_back(entry->request);
    }
  }
  return groups;
}

}  // namespace springboard
