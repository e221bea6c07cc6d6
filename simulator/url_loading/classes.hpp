// Registers the URL loading classes and methods that Foundation on Linux lacks: NSURLSession with its data tasks, and
// the asynchronous method of NSURLConnection.
#pragma once

namespace url_loading {

// Call this once, after foundation::registerClasses. Main thread.
void registerClasses();

// The steps of registerClasses. Only registerClasses calls them.
void defineURLSession();
void installURLConnection();

}  // namespace url_loading
