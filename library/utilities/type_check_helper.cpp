#include "library/utilities/type_check_helper.hpp"

#include "objc/class_definition.hpp"

namespace {

// The type name is the first class in this list of which the object is an instance. Therefore, the name for a mutable
// dictionary is "NSMutableDictionary", but the name for a mutable array is "NSArray".
constexpr const char* knownTypes[] = {"NSString",     "NSArray",  "NSMutableDictionary",
                                      "NSDictionary", "NSNumber", "NSUUID"};

bool isInstance(NSObject* object, const char* className) {
  const Class known = reinterpret_cast<Class>(objc_getClass(className));
  return known != nullptr && object->isKindOfClass(known);
}

NSString* typeName(Class, NSObject* object) {
  if (object == nullptr) return "Undefined((null))"_ns;
  for (const char* known : knownTypes)
    if (isInstance(object, known)) return NSString::stringWithUTF8String(known);
  const char* name = class_getName(object_getClass(objc::detail::toId(object)));
  return "Undefined("_ns->stringByAppendingString(NSString::stringWithUTF8String(name))
      ->stringByAppendingString(")"_ns);
}

constexpr objc::MethodEntry methods[] = {
    objc::classMethod<"getTypeOf:", &typeName>(),
};

}  // namespace

bool registerTypeCheckHelper() { return objc::tryToDefineClass<TypeCheckHelper>(methods); }
