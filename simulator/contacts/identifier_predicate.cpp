#include "simulator/contacts/identifier_predicate.hpp"

#include "objc/class_definition.hpp"
#include "simulator/contacts/classes.hpp"

namespace contacts {

class IdentifierPredicate : public objc::Interface<"BrimIdentifierPredicate", NSPredicate> {};

struct IdentifierPredicateState {
  objc::Ref<NSArray> identifiers;
};

}  // namespace contacts

template <>
struct objc::StateOf<contacts::IdentifierPredicate> {
  using Type = contacts::IdentifierPredicateState;
};

namespace contacts {

namespace {

bool evaluate(IdentifierPredicate* self, NSObject* object) {
  if (!respondsTo<"identifier">(object)) return false;
  return objc::send<bool, "containsObject:">(objc::state(self).identifiers.get(),
                                             objc::send<NSString*, "identifier">(object));
}

}  // namespace

NSPredicate* identifierPredicate(NSArray* identifiers) {
  auto predicate = objc::make<IdentifierPredicate>();
  objc::state(predicate.get()).identifiers = objc::retain(identifiers);
  return objc::autorelease(std::move(predicate));
}

bool matches(NSPredicate* predicate, const NSObject* object) {
  return predicate == nullptr || objc::send<bool, "evaluateWithObject:">(predicate, const_cast<NSObject*>(object));
}

void defineIdentifierPredicate() {
  static constexpr objc::MethodEntry methods[] = {objc::method<"evaluateWithObject:", &evaluate>()};
  objc::defineClassWithState<IdentifierPredicate>(methods);
}

}  // namespace contacts
