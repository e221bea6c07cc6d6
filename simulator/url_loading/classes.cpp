#include "simulator/url_loading/classes.hpp"

#include "objc/autorelease_pool.hpp"

namespace url_loading {

void registerClasses() {
  const objc::AutoreleasePool pool;
  defineURLSession();
  installURLConnection();
}

}  // namespace url_loading
