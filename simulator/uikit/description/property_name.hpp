// Names a view after the instance variable in which another view stores it.
#pragma once

#include <string>

#include "platform/ui_view.hpp"

namespace uikit {

// Searches the ancestors and the siblings of the view for an instance variable that points to it. Returns the name of
// the property if there is one (headerLabel), otherwise the name of the variable (_clockLabel). Empty if no such
// variable exists.
std::string propertyNameOf(const UIView* view);

}  // namespace uikit
