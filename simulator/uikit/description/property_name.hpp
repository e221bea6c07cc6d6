// Finds a name for a view: the name of the instance variable in which another view stores it.
#pragma once

#include <string>

#include "platform/ui_view.hpp"

namespace uikit {

// Searches the ancestors and the siblings of the view for an instance variable that points to the view. Returns the
// name of the variable's property, such as headerLabel. If there is no property, returns the name of the variable, such
// as _clockLabel. The result is empty if no such variable exists.
std::string propertyNameOf(const UIView* view);

}  // namespace uikit
