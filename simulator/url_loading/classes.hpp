// The platform's classes that load addresses, where Linux's Foundation lacks them: NSURLSession and its data tasks, and
// NSURLConnection's asynchronous message.
#pragma once

namespace url_loading {

// After foundation::registerClasses. Once. Main thread.
void registerClasses();

void defineURLSession();
void installURLConnection();

}  // namespace url_loading
