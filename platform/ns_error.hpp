// NSError: the reason of a failure. The library only distinguishes between nil and an error.
#pragma once

#include "platform/ns_object.hpp"

class NSError : public objc::Interface<"NSError", NSObject> {};
