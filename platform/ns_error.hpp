// NSError: why something did not succeed. Only its presence matters here.
#pragma once

#include "platform/ns_object.hpp"

class NSError : public objc::Interface<"NSError", NSObject> {};
