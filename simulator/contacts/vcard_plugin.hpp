// What the plugin of vCards offers: the only name that the simulator looks up in it.
#pragma once

#include <string>

#include "simulator/contacts/person.hpp"

// Reads one card, of version 2.1, 3.0 or 4.0, with its soft line breaks joined. One thread at a time.
extern "C" void brim_read_card(const std::string& card, contacts::Person& person);
