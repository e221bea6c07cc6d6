// The address book's classes: CNContactStore, CNContact and what belongs to them.
#pragma once

namespace contacts {

// After foundation::registerClasses. Once. Main thread.
void registerClasses();

void makeContactKeys();
void defineContact();
void defineContainer();
void defineContactStore();

}  // namespace contacts
