#include "simulator/contacts/container.hpp"

#include "objc/class_definition.hpp"
#include "simulator/contacts/classes.hpp"

namespace contacts {

// A predicate that matches containers by identifier.
class ContainerPredicate : public objc::Interface<"BrimContainerPredicate", NSPredicate> {};

struct ContainerPredicateState {
  objc::Ref<NSArray> identifiers;
};

}  // namespace contacts

template <>
struct objc::StateOf<contacts::ContainerPredicate> {
  using Type = contacts::ContainerPredicateState;
};

namespace contacts {

namespace {

NSString* identifier(CNContainer*) { return containerIdentifier(); }

NSPredicate* predicateForIdentifiers(Class, NSArray* identifiers) {
  auto predicate = objc::make<ContainerPredicate>();
  objc::state(predicate.get()).identifiers = objc::retain(identifiers);
  return objc::autorelease(std::move(predicate));
}

bool evaluate(ContainerPredicate* self, NSObject* container) {
  const auto* const candidate = objc::as<CNContainer>(container);
  return candidate != nullptr && objc::send<bool, "containsObject:">(objc::state(self).identifiers.get(),
                                                                     objc::send<NSString*, "identifier">(candidate));
}

}  // namespace

NSString* containerIdentifier() { return "5D1E3C0A-6B1F-4B0E-9C55-2F1B6E0A7D31:ABAccount"_ns; }

NSArray* containersMatching(NSPredicate* predicate) {
  auto* const matching = NSMutableArray::array();
  const auto container = objc::make<CNContainer>();
  if (predicate == nullptr || objc::send<bool, "evaluateWithObject:">(predicate, container.get()))
    matching->addObject(container);
  return matching;
}

void defineContainer() {
  static constexpr objc::MethodEntry container[] = {
      objc::classMethod<"predicateForContainersWithIdentifiers:", &predicateForIdentifiers>(),
      objc::method<"identifier", &identifier>(),
  };
  static constexpr objc::MethodEntry predicate[] = {objc::method<"evaluateWithObject:", &evaluate>()};
  objc::defineClass<CNContainer>(container);
  objc::defineClassWithState<ContainerPredicate>(predicate);
}

}  // namespace contacts
