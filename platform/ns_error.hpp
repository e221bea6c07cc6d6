// NSError: the reason for a failure. The library only checks whether an error is nil.
#pragma once

#include "platform/ns_object.hpp"

class NSError : public objc::Interface<"NSError", NSObject> {};
