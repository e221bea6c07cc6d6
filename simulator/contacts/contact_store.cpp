// CNContactStore and its fetch requests.
#include "objc/autorelease_pool.hpp"
#include "objc/class_definition.hpp"
#include "platform/ns_error.hpp"
#include "simulator/contacts/classes.hpp"
#include "simulator/contacts/contact.hpp"
#include "simulator/contacts/container.hpp"
#include "simulator/contacts/identifier_predicate.hpp"

namespace {

struct FetchRequestState {
  objc::Ref<NSArray> keys;
};

}  // namespace

template <>
struct objc::StateOf<CNContactFetchRequest> {
  using Type = FetchRequestState;
};

namespace contacts {

namespace {

// The value of CNErrorCodeCommunicationError, which reports that the address book cannot be read.
constexpr NSInteger communicationError = 1;

CNContactFetchRequest* initWithKeysToFetch(CNContactFetchRequest* self, NSArray* keys) {
  auto* const initialized = objc::sendSuper<"CNContactFetchRequest", CNContactFetchRequest*, "init">(self);
  objc::state(initialized).keys = objc::adopt(objc::send<NSArray*, "copy">(keys));
  return initialized;
}

NSString* defaultContainerIdentifier(CNContactStore*) { return containerIdentifier(); }

NSArray* findContainers(CNContactStore*, NSPredicate* predicate, id*) { return containersMatching(predicate); }

void setError(id* error) {
  if (error == nullptr) return;
  *error = objc::send<id, "errorWithDomain:code:userInfo:">(NSError::classObject(), "CNErrorDomain"_ns,
                                                            communicationError, static_cast<NSObject*>(nullptr));
}

bool enumerate(CNContactStore*, CNContactFetchRequest* request, id* error,
               objc::Block<CNContactStore::Visitor>* visit) {
  const std::shared_ptr<const People> all = people();
  if (all == nullptr) {
    setError(error);
    return false;
  }
  bool stop = false;
  for (auto person = all->begin(); person != all->end() && !stop; ++person) {
    const objc::AutoreleasePool pool;
    (*visit)(makeContact({all, &*person}, objc::state(request).keys), &stop);
  }
  return true;
}

NSArray* findContacts(CNContactStore*, NSPredicate* predicate, NSArray* keys, id* error) {
  const std::shared_ptr<const People> all = people();
  if (all == nullptr) {
    setError(error);
    return nullptr;
  }
  auto* const found = NSMutableArray::array();
  for (const Person& person : *all)
    if (const auto contact = makeContact({all, &person}, keys); matches(predicate, contact.get()))
      found->addObject(contact);
  return found;
}

}  // namespace

void defineContactStore() {
  static constexpr objc::MethodEntry request[] = {objc::method<"initWithKeysToFetch:", &initWithKeysToFetch>()};
  static constexpr objc::MethodEntry store[] = {
      objc::method<"defaultContainerIdentifier", &defaultContainerIdentifier>(),
      objc::method<"containersMatchingPredicate:error:", &findContainers>(),
      objc::method<"unifiedContactsMatchingPredicate:keysToFetch:error:", &findContacts>(),
      objc::method<"enumerateContactsWithFetchRequest:error:usingBlock:", &enumerate>(),
  };
  objc::defineClassWithState<CNContactFetchRequest>(request);
  objc::defineClass<CNContactStore>(store);
}

}  // namespace contacts
