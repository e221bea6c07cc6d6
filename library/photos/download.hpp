// Downloads photos from web servers. Main thread.
#pragma once

#include "library/photos/photo_receiver.hpp"
#include "platform/ns_url.hpp"

// The text as a URL. nil if it is not an http or https address with a host. The text is untrusted input.
NSURL* webAddress(NSString* text);

// What data that is not a decodable picture does to the view.
enum class Undecodable {
  ChangesNothing,
  ClearsPicture,
};

// Starts to download the picture at the address and returns at once. The view shows the picture when it has arrived. An
// invalid address, a failed download and a deallocated view change nothing. The view is not retained.
void downloadPicture(NSString* address, PhotoReceiver* view, Undecodable undecodable = Undecodable::ChangesNothing);
