// The Objective-C runtime of the phone, as much of it as is called. All of it is in system version 11.2's library.
#pragma once

#include <stddef.h>
#include <stdint.h>

struct objc_class;
struct objc_object;
struct objc_selector;
struct objc_method;
struct objc_ivar;

using Class = objc_class*;
using id = objc_object*;
using SEL = objc_selector*;
using Method = objc_method*;
using Ivar = objc_ivar*;
using IMP = void (*)();
// arm64 has a type of its own for truth values; its encoding is B.
using BOOL = bool;

extern "C" {
Class objc_getClass(const char* name);
Class objc_getMetaClass(const char* name);
Class objc_allocateClassPair(Class superclass, const char* name, size_t extraBytes);
void objc_registerClassPair(Class pair);

// Never called as declared: a caller gives it the type of the method it means.
void objc_msgSend();

Class object_getClass(id object);
const char* object_getClassName(id object);
id object_getIvar(id object, Ivar variable);

const char* class_getName(Class examined);
Class class_getSuperclass(Class examined);
Ivar class_getInstanceVariable(Class examined, const char* name);
IMP class_getMethodImplementation(Class examined, SEL selector);
BOOL class_addMethod(Class changed, SEL selector, IMP implementation, const char* encoding);
BOOL class_addIvar(Class changed, const char* name, size_t size, uint8_t alignmentLogarithm, const char* encoding);

ptrdiff_t ivar_getOffset(Ivar variable);
SEL sel_registerName(const char* name);
}
