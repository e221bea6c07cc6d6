#include "simulator/contacts/container.hpp"

#include "objc/class_definition.hpp"
#include "simulator/contacts/classes.hpp"
#include "simulator/contacts/identifier_predicate.hpp"

namespace contacts {

namespace {

NSString* identifier(CNContainer*) { return containerIdentifier(); }

NSPredicate* predicateForIdentifiers(Class, NSArray* identifiers) { return identifierPredicate(identifiers); }

}  // namespace

NSString* containerIdentifier() { return "5D1E3C0A-6B1F-4B0E-9C55-2F1B6E0A7D31:ABAccount"_ns; }

NSArray* containersMatching(NSPredicate* predicate) {
  auto* const matching = NSMutableArray::array();
  const auto container = objc::make<CNContainer>();
  if (matches(predicate, container.get())) matching->addObject(container);
  return matching;
}

void defineContainer() {
  static constexpr objc::MethodEntry container[] = {
      objc::classMethod<"predicateForContainersWithIdentifiers:", &predicateForIdentifiers>(),
      objc::method<"identifier", &identifier>(),
  };
  objc::defineClass<CNContainer>(container);
}

}  // namespace contacts
