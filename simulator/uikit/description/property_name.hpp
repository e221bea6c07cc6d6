// Under which name another view holds a view in one of its instance variables.
#pragma once

#include <string>

#include "platform/ui_view.hpp"

namespace uikit {

// The property's name where the holder answers it (headerLabel), else the variable's (_clockLabel); empty where neither
// a view around it nor a sibling holds it.
std::string propertyNameOf(const UIView* view);

}  // namespace uikit
