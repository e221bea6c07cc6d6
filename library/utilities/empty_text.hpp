// Functions that treat a nil text and an empty text alike. Any thread.
#pragma once

#include "platform/ns_string.hpp"

inline bool isNilOrEmpty(NSString* text) { return text == nullptr || text->length() == 0; }

inline NSString* nilIfEmpty(NSString* text) { return isNilOrEmpty(text) ? nullptr : text; }
