#include "simulator/uikit/description/property_name.hpp"

#include <cstdlib>
#include <memory>
#include <span>
#include <string_view>

#include "simulator/uikit/views/view_record.hpp"

namespace uikit {

namespace {

struct Released {
  void operator()(Ivar* list) const { std::free(list); }
};

// Empty where no variable of this class points to the view.
std::string_view variableOf(Class definingClass, const UIView* holder, const UIView* held) {
  unsigned int count = 0;
  const std::unique_ptr<Ivar[], Released> list(class_copyIvarList(definingClass, &count));
  for (const Ivar variable : std::span(list.get(), count)) {
    const char* encoding = ivar_getTypeEncoding(variable);
    if (encoding == nullptr || encoding[0] != '@') continue;
    if (object_getIvar(objc::detail::identifier(holder), variable) == objc::detail::identifier(held))
      return ivar_getName(variable);
  }
  return {};
}

std::string publicName(std::string_view variable, const UIView* holder) {
  if (!variable.starts_with('_')) return std::string(variable);
  const std::string property(variable.substr(1));
  return holder->respondsToSelector(sel_registerName(property.c_str())) ? property : std::string(variable);
}

std::string nameIn(const UIView* holder, const UIView* held) {
  for (Class each = object_getClass(objc::detail::identifier(holder)); each != UIView::classObject();
       each = class_getSuperclass(each)) {
    const std::string_view variable = variableOf(each, holder, held);
    if (!variable.empty()) return publicName(variable, holder);
  }
  return {};
}

}  // namespace

std::string propertyNameOf(const UIView* view) {
  const UIView* around = record(view).superview;
  for (const UIView* ancestor = around; ancestor != nullptr; ancestor = record(ancestor).superview)
    if (std::string name = nameIn(ancestor, view); !name.empty()) return name;
  if (around == nullptr) return {};
  for (const objc::Ref<UIView>& sibling : record(around).subviews)
    if (std::string name = nameIn(sibling.get(), view); !name.empty()) return name;
  return {};
}

}  // namespace uikit
