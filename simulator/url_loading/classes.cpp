#include "simulator/url_loading/classes.hpp"

namespace url_loading {

void registerClasses() {
  defineURLSession();
  installURLConnection();
}

}  // namespace url_loading
