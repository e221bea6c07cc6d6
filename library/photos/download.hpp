// Pictures from the web.
#pragma once

#include "library/view/brim_container.hpp"
#include "platform/ns_url.hpp"

// nil where the text, which senders of notifications write, is no address of a web server.
NSURL* webAddress(NSString* text);

enum class Undecodable {
  ChangesNothing,
  ClearsPicture,
};

// Returns at once; shows the picture at the address when it has come. What is no web address is not asked for, and what
// cannot be loaded changes nothing. Main thread.
void downloadPicture(NSString* address, BrimContainer* view, Undecodable undecodable = Undecodable::ChangesNothing);
