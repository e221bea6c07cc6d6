#include "library/view/brim_label.hpp"

#include "objc/class_definition.hpp"

void registerTextClasses() {
  objc::defineClass<BrimLabel>({});
  objc::defineClass<BrimTextField>({});
}
