// The database of the Slack application, which belongs to that application: read, and left as it is to the byte.
#pragma once

#include "platform/ns_string.hpp"

// The web address of the avatar of the first user whose name contains the given one, in which "%" and "_" stand for
// anything as they do in LIKE. nil where there is no such user, the name cannot be asked for, or the database cannot be
// read now: missing, locked, damaged. Never waits for the application.
NSString* slackAvatarAddress(NSString* database, NSString* name);
