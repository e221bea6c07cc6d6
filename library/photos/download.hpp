// Downloads photos from web servers. Main thread.
#pragma once

#include "library/photos/photo_receiver.hpp"
#include "platform/ns_url.hpp"

// Returns the text as a URL. Returns nil if the text is nil or is not an http or https address with a host. The text is
// untrusted input.
NSURL* webAddress(NSString* text);

// What happens to the view's picture if the downloaded data is not a picture.
enum class DecodingFailure {
  KeepsPicture,
  ClearsPicture,
};

// Starts to download the picture at the address and returns immediately. The view, which is not retained, shows the
// picture when the download has finished. The view does not change if the address is nil or invalid or if the download
// fails.
void downloadPicture(NSString* address, PhotoReceiver* view, DecodingFailure failure = DecodingFailure::KeepsPicture);
