// The function that the vCard plugin exports.
#pragma once

#include <string>

#include "simulator/contacts/person.hpp"

// Parses one vCard of version 2.1, 3.0 or 4.0 into `person`. The caller must have removed the soft line breaks of
// quoted-printable values. Not reentrant.
extern "C" void brim_read_card(const std::string& card, contacts::Person& person);
