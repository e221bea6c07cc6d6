#include "simulator/uikit/description/property_name.hpp"

#include <cstdlib>
#include <memory>
#include <span>
#include <string_view>

#include "simulator/uikit/views/view_record.hpp"

namespace uikit {

namespace {

struct FreeDeleter {
  void operator()(Ivar* list) const { std::free(list); }
};

// Returns the name of the instance variable of this class that points to the view. The name is empty if there is no
// such variable.
std::string_view variablePointingTo(Class definingClass, const UIView* holder, const UIView* view) {
  unsigned int count = 0;
  const std::unique_ptr<Ivar[], FreeDeleter> list(class_copyIvarList(definingClass, &count));
  for (const Ivar variable : std::span(list.get(), count)) {
    const char* encoding = ivar_getTypeEncoding(variable);
    if (encoding == nullptr || encoding[0] != '@') continue;
    if (object_getIvar(objc::detail::toId(holder), variable) == objc::detail::toId(view)) return ivar_getName(variable);
  }
  return {};
}

std::string publicName(std::string_view variable, const UIView* holder) {
  if (!variable.starts_with('_')) return std::string(variable);
  const std::string property(variable.substr(1));
  return holder->respondsToSelector(sel_registerName(property.c_str())) ? property : std::string(variable);
}

std::string nameIn(const UIView* holder, const UIView* view) {
  for (Class each = object_getClass(objc::detail::toId(holder)); each != UIView::classObject();
       each = class_getSuperclass(each)) {
    const std::string_view variable = variablePointingTo(each, holder, view);
    if (!variable.empty()) return publicName(variable, holder);
  }
  return {};
}

}  // namespace

std::string propertyNameOf(const UIView* view) {
  const UIView* superview = record(view).superview;
  for (const UIView* ancestor = superview; ancestor != nullptr; ancestor = record(ancestor).superview)
    if (std::string name = nameIn(ancestor, view); !name.empty()) return name;
  if (superview == nullptr) return {};
  for (const objc::Ref<UIView>& sibling : record(superview).subviews)
    if (std::string name = nameIn(sibling.get(), view); !name.empty()) return name;
  return {};
}

}  // namespace uikit
