// The address book: the people of one vCard file.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "simulator/contacts/person.hpp"

namespace contacts {

using People = std::vector<Person>;

// In the file's order. Read at first use and again when the file has changed. A root without address book has nobody in
// it; nothing where there is a file that cannot be read. Main thread.
std::shared_ptr<const People> people();

// The address book from now on, in place of the root's own. The answer is the reason of a failure, nothing on success;
// after a failure the address book is the one it was. Main thread.
[[nodiscard]] std::optional<std::string> useAddressBook(const std::filesystem::path& file);

}  // namespace contacts
