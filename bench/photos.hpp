// The cost of finding pictures of senders: containers, contacts, and banners that do not wait for servers.
#pragma once

namespace bench {

void measurePhotos();

}  // namespace bench
