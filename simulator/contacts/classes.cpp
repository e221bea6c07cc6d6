#include "simulator/contacts/classes.hpp"

#include "objc/autorelease_pool.hpp"

namespace contacts {

void registerClasses() {
  const objc::AutoreleasePool pool;
  initializeContactKeys();
  defineIdentifierPredicate();
  defineContact();
  defineContainer();
  defineContactStore();
}

}  // namespace contacts
