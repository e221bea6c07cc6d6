// Reads the Slack application's database. Never changes a byte of it or of the files beside it. Main thread.
#pragma once

#include "platform/ns_string.hpp"

// The web address of the avatar of the first user whose name contains the given name. "%" and "_" in the name are
// wildcards, as in SQL's LIKE. nil if there is no such user, if the name contains a quote, or if the database is
// missing, locked or damaged. Does not wait for a lock. The database can be nil.
NSString* slackAvatarAddress(NSString* database, NSString* name);
