#include "tests/device/emulator/runtime_functions.hpp"

#include <stdexcept>

namespace device {

namespace {

Address addressOf(const ClassRecord* type) { return type == nullptr ? 0 : type->address; }

void sendMessage(HostCall& call, ObjectiveC& runtime) {
  const Address receiver = call.processor.x(0);
  if (receiver != 0) {
    call.jump = runtime.implementation(runtime.classOf(receiver), call.processor.x(1));
    return;
  }
  for (int index = 0; index < 2; ++index) call.processor.setX(index, 0);
  for (int index = 0; index < 4; ++index) call.processor.setD(index, 0);
}

// A class that inherits the method gets its own one, so that its superclass is not changed.
void hookMessage(HostCall& call, ObjectiveC& runtime, std::vector<ChangedMethod>& changes) {
  Processor& processor = call.processor;
  ClassRecord& type = runtime.classAt(processor.x(0));
  const std::string selector = runtime.selectorName(processor.x(1));
  changes.push_back({type.name, selector, "hook", "", type.metaclass == nullptr});
  const MethodRecord* method = type.findMethod(selector);
  if (method == nullptr) return;
  processor.store(processor.x(3), method->implementation);
  type.methods[selector] = {processor.x(2), method->encoding};
}

void addMethod(HostCall& call, ObjectiveC& runtime, std::vector<ChangedMethod>& changes) {
  Processor& processor = call.processor;
  ClassRecord& type = runtime.classAt(processor.x(0));
  const std::string selector = runtime.selectorName(processor.x(1));
  const std::string encoding = processor.text(processor.x(3));
  changes.push_back({type.name, selector, "add", encoding, type.metaclass == nullptr});
  processor.setX(0, type.methods.try_emplace(selector, MethodRecord{processor.x(2), encoding}).second);
}

void addVariable(HostCall& call, ObjectiveC& runtime) {
  Processor& processor = call.processor;
  ClassRecord& type = runtime.classAt(processor.x(0));
  const std::string name = processor.text(processor.x(1));
  const std::size_t alignment = std::size_t{1} << processor.x(3);
  if (type.registered || type.findVariable(name) != nullptr) {
    processor.setX(0, 0);
    return;
  }
  const std::size_t offset = (type.instanceSize + alignment - 1) / alignment * alignment;
  type.variables[name] = {processor.allocate(1), offset};
  type.instanceSize = offset + processor.x(2);
  processor.setX(0, 1);
}

void supplyClassFunctions(Imports& imports, ObjectiveC& runtime) {
  imports.add("objc_getClass", [&runtime](HostCall& call) {
    call.processor.setX(0, addressOf(runtime.find(call.processor.text(call.processor.x(0)))));
  });
  imports.add("objc_getMetaClass", [&runtime](HostCall& call) {
    const ClassRecord* const found = runtime.find(call.processor.text(call.processor.x(0)));
    call.processor.setX(0, found == nullptr ? 0 : addressOf(found->metaclass));
  });
  imports.add("objc_allocateClassPair", [&runtime](HostCall& call) {
    ClassRecord& superclass = runtime.classAt(call.processor.x(0));
    ClassRecord& made = runtime.define(call.processor.text(call.processor.x(1)), superclass.name);
    made.registered = false;
    call.processor.setX(0, made.address);
  });
  imports.add("objc_registerClassPair",
              [&runtime](HostCall& call) { runtime.classAt(call.processor.x(0)).registered = true; });
  imports.add("object_getClass",
              [&runtime](HostCall& call) { call.processor.setX(0, addressOf(&runtime.classOf(call.processor.x(0)))); });
  imports.add("object_getClassName", [&runtime](HostCall& call) {
    call.processor.setX(0, call.processor.allocateText(runtime.classOf(call.processor.x(0)).name));
  });
  imports.add("class_getName", [&runtime](HostCall& call) {
    call.processor.setX(0, call.processor.allocateText(runtime.classAt(call.processor.x(0)).name));
  });
  imports.add("class_getSuperclass", [&runtime](HostCall& call) {
    call.processor.setX(0, addressOf(runtime.classAt(call.processor.x(0)).superclass));
  });
}

void supplyVariableFunctions(Imports& imports, ObjectiveC& runtime) {
  imports.add("class_addIvar", [&runtime](HostCall& call) { addVariable(call, runtime); });
  imports.add("class_getInstanceVariable", [&runtime](HostCall& call) {
    const ClassRecord& type = runtime.classAt(call.processor.x(0));
    const VariableRecord* const found = type.findVariable(call.processor.text(call.processor.x(1)));
    if (found != nullptr) call.processor.store(found->handle, static_cast<std::uint16_t>(found->offset));
    call.processor.setX(0, found == nullptr ? 0 : found->handle);
  });
  imports.add("ivar_getOffset",
              [](HostCall& call) { call.processor.setX(0, call.processor.load<std::uint16_t>(call.processor.x(0))); });
  imports.add("object_getIvar", [](HostCall& call) {
    const auto offset = call.processor.load<std::uint16_t>(call.processor.x(1));
    call.processor.setX(0, call.processor.load<Address>(call.processor.x(0) + offset));
  });
}

void supplyObjectFunctions(Imports& imports, ObjectiveC& runtime) {
  imports.add("objc_setAssociatedObject", [&runtime](HostCall& call) {
    constexpr std::uint64_t retainNonatomic = 1;
    if (call.processor.x(3) != retainNonatomic) throw std::runtime_error("an association that does not retain");
    runtime.setAssociation(call.processor.x(0), call.processor.x(1), call.processor.x(2));
  });
  imports.add("objc_getAssociatedObject", [&runtime](HostCall& call) {
    call.processor.setX(0, runtime.association(call.processor.x(0), call.processor.x(1)));
  });
  imports.add("objc_storeWeak", [&runtime](HostCall& call) {
    const Address object = call.processor.x(1);
    runtime.storeWeak(call.processor.x(0), object);
    call.processor.setX(0, object);
  });
  imports.add("objc_loadWeakRetained",
              [&runtime](HostCall& call) { call.processor.setX(0, runtime.loadWeakRetained(call.processor.x(0))); });
  imports.add("objc_destroyWeak", [&runtime](HostCall& call) { runtime.storeWeak(call.processor.x(0), 0); });
}

}  // namespace

void supplyRuntimeFunctions(Imports& imports, ObjectiveC& runtime, std::vector<ChangedMethod>& changes) {
  supplyClassFunctions(imports, runtime);
  supplyVariableFunctions(imports, runtime);
  supplyObjectFunctions(imports, runtime);
  imports.add("sel_registerName", [&runtime](HostCall& call) {
    call.processor.setX(0, runtime.selector(call.processor.text(call.processor.x(0))));
  });
  imports.add("objc_msgSend", [&runtime](HostCall& call) { sendMessage(call, runtime); });
  imports.add("class_getMethodImplementation", [&runtime](HostCall& call) {
    call.processor.setX(0, runtime.implementation(runtime.classAt(call.processor.x(0)), call.processor.x(1)));
  });
  imports.add("class_addMethod", [&runtime, &changes](HostCall& call) { addMethod(call, runtime, changes); });
  imports.add("class_getInstanceMethod", [&runtime](HostCall& call) {
    const ClassRecord& type = runtime.classAt(call.processor.x(0));
    const bool exists = type.findMethod(runtime.selectorName(call.processor.x(1))) != nullptr;
    call.processor.setX(0, exists ? call.processor.x(1) : 0);
  });
  imports.add("MSHookMessageEx", [&runtime, &changes](HostCall& call) { hookMessage(call, runtime, changes); });
}

}  // namespace device
