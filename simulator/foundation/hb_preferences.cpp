#include <functional>
#include <vector>

#include "objc/class_definition.hpp"
#include "simulator/foundation/preference_domain.hpp"
#include "simulator/foundation/preference_value.hpp"
#include "simulator/foundation/preferences.hpp"

namespace {

struct HBPreferencesState {
  foundation::PreferenceDomain* domain = nullptr;
  std::vector<std::function<void()>> updates;

  HBPreferencesState() = default;
  HBPreferencesState(const HBPreferencesState&) = delete;
  HBPreferencesState& operator=(const HBPreferencesState&) = delete;
  ~HBPreferencesState() {
    if (domain != nullptr) domain->stopObserving(this);
  }
};

}  // namespace

template <>
struct objc::StateOf<HBPreferences> {
  using Type = HBPreferencesState;
};

namespace foundation {

namespace {

HBPreferences* initWithIdentifier(HBPreferences* self, NSString* identifier) {
  auto* const initialized = objc::sendSuper<"HBPreferences", HBPreferences*, "init">(self);
  HBPreferencesState& state = objc::state(initialized);
  state.domain = &PreferenceDomain::named(identifier == nullptr ? "" : identifier->UTF8String());
  state.domain->observe(&state, [&state] {
    for (const std::function<void()>& update : state.updates) update();
  });
  return initialized;
}

template <class Value, std::optional<Value> (*convert)(const NSObject*)>
void bind(HBPreferences* self, Value* variable, Value defaultValue, NSString* key) {
  HBPreferencesState& state = objc::state(self);
  state.updates.push_back([domain = state.domain, variable, defaultValue, retainedKey = objc::retain(key)] {
    *variable = convert(domain->value(retainedKey)).value_or(defaultValue);
  });
  state.updates.back()();
}

constexpr objc::MethodEntry methods[] = {
    objc::method<"initWithIdentifier:", &initWithIdentifier>(),
    objc::method<"registerBool:default:forKey:", &bind<bool, &booleanPreference>>(),
    objc::method<"registerInteger:default:forKey:", &bind<NSInteger, &integerPreference>>(),
};

}  // namespace

void defineHBPreferences() { objc::defineClassWithState<HBPreferences>(methods); }

}  // namespace foundation
