// The address book. It is read from one vCard file. Main thread.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "simulator/contacts/person.hpp"

namespace contacts {

using People = std::vector<Person>;

// Returns all people in the address book, in the order of the file. The file is read at the first call, and again after
// it has changed. The list is empty if the file does not exist, and null if it cannot be read.
std::shared_ptr<const People> people();

// Reads the address book from this file instead of the root's own file. Returns a description of the error, or nothing
// on success. After an error the address book is unchanged.
[[nodiscard]] std::optional<std::string> useAddressBook(const std::filesystem::path& file);

}  // namespace contacts
