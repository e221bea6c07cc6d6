// The library's side of a banner on the phone: its controller, its view, and the broadcast that reaches all of them.
#pragma once

#include <map>
#include <string>

#include "library/controller/banner_controller.hpp"
#include "objc/autorelease_pool.hpp"
#include "platform/ns_notification_center.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/springboard/banner/banner_presenter.hpp"

namespace test {

// The controller of that number, null once it was let go.
inline objc::Ref<BannerController> controllerOf(int number) {
  const auto held = springboard::bannerController(static_cast<std::size_t>(number));
  return objc::retain(reinterpret_cast<BannerController*>(held.get()));
}

inline BrimContainer* containerOf(int number) { return controllerOf(number)->brimView(); }

inline void broadcast(const std::string& name, const std::map<std::string, std::string>& userInfo) {
  const objc::AutoreleasePool pool;
  NSMutableDictionary* info = NSMutableDictionary::dictionaryWithCapacity(userInfo.size());
  for (const auto& [key, value] : userInfo) info->setObject(base::stringOf(value), base::stringOf(key));
  NSNotificationCenter::defaultCenter()->post(base::stringOf(name), info);
}

inline void command(const std::map<std::string, std::string>& userInfo) { broadcast("BrimNotification", userInfo); }

}  // namespace test
