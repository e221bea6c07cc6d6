// Registers the classes of the address book: CNContactStore, CNContact and the classes that they use.
#pragma once

namespace contacts {

// Call this once, after foundation::registerClasses. Main thread.
void registerClasses();

// The steps of registerClasses. Only registerClasses calls them.
void initializeContactKeys();
void defineIdentifierPredicate();
void defineContact();
void defineContainer();
void defineContactStore();

}  // namespace contacts
