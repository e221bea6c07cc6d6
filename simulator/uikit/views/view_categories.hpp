// The methods of UIView. There is one list for each subject, defined in the source file of that subject.
#pragma once

#include <span>

#include "objc/class_definition.hpp"

namespace uikit {

std::span<const objc::MethodEntry> viewHierarchyMethods();
std::span<const objc::MethodEntry> viewGeometryMethods();
std::span<const objc::MethodEntry> viewLayoutMethods();
std::span<const objc::MethodEntry> viewRenderingMethods();
std::span<const objc::MethodEntry> viewInteractionMethods();
std::span<const objc::MethodEntry> viewAnimationMethods();
std::span<const objc::MethodEntry> viewTraitMethods();
std::span<const objc::MethodEntry> viewDescriptionMethods();

}  // namespace uikit
