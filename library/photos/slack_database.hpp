// Reads the database of the Slack application. Reading changes neither the database nor the files beside it. Main
// thread.
#pragma once

#include "platform/ns_string.hpp"

// Returns the web address of the avatar of the first user whose name contains the given name. "%" and "_" in the name
// are wildcards, as in SQL's LIKE. `database` is the path of the database. Returns nil if there is no such user, if the
// name contains a single quote, or if the path is nil or the database is missing, locked or damaged. The function does
// not wait for a lock.
NSString* slackAvatarAddress(NSString* database, NSString* name);
