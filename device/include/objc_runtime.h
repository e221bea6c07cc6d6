// The functions of the phone's Objective-C runtime that this project calls. The library of system version 11.2 has all
// of them.
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
// On arm64 BOOL is a boolean type; its encoding is B.
using BOOL = bool;

extern "C" {
Class objc_getClass(const char* name);
Class objc_getMetaClass(const char* name);
Class objc_allocateClassPair(Class superclass, const char* name, size_t extraBytes);
void objc_registerClassPair(Class pair);

// Callers cast this function to the type of the method.
void objc_msgSend();

Class object_getClass(id object);
const char* object_getClassName(id object);
id object_getIvar(id object, Ivar variable);

const char* class_getName(Class examined);
Class class_getSuperclass(Class examined);
Ivar class_getInstanceVariable(Class examined, const char* name);
IMP class_getMethodImplementation(Class examined, SEL selector);
Method class_getInstanceMethod(Class examined, SEL selector);
BOOL class_addMethod(Class changed, SEL selector, IMP implementation, const char* encoding);
BOOL class_addIvar(Class changed, const char* name, size_t size, uint8_t alignmentLogarithm, const char* encoding);

ptrdiff_t ivar_getOffset(Ivar variable);
SEL sel_registerName(const char* name);
}
