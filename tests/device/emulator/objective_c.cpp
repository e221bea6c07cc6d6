#include "tests/device/emulator/objective_c.hpp"

#include <stdexcept>

namespace device {

const MethodRecord* ClassRecord::findMethod(const std::string& selector) const {
  for (const ClassRecord* type = this; type != nullptr; type = type->superclass) {
    const auto found = type->methods.find(selector);
    if (found != type->methods.end()) return &found->second;
  }
  return nullptr;
}

const VariableRecord* ClassRecord::findVariable(const std::string& variable) const {
  for (const ClassRecord* type = this; type != nullptr; type = type->superclass) {
    const auto found = type->variables.find(variable);
    if (found != type->variables.end()) return &found->second;
  }
  return nullptr;
}

bool ClassRecord::isOrInherits(const ClassRecord* other) const {
  for (const ClassRecord* type = this; type != nullptr; type = type->superclass)
    if (type == other) return true;
  return false;
}

ObjectiveC::ObjectiveC(Processor& runsOn) : processor(runsOn) { defineRoot(); }

ClassRecord& ObjectiveC::define(const std::string& name, const std::string& superclass) {
  ClassRecord* const above = superclass.empty() ? nullptr : find(superclass);
  if (above == nullptr && !superclass.empty()) throw std::runtime_error("there is no class " + superclass);
  if (find(name) != nullptr) throw std::runtime_error("there is a class " + name + " already");

  auto& type = *(classes[name] = std::make_unique<ClassRecord>());
  auto& metaclass = *(metaclasses[name] = std::make_unique<ClassRecord>());
  type.name = metaclass.name = name;
  type.superclass = above;
  type.metaclass = &metaclass;
  type.instanceSize = above == nullptr ? sizeof(Address) : above->instanceSize;
  // A class is an instance of its metaclass. The root's metaclass inherits from the root class.
  metaclass.superclass = above == nullptr ? &type : above->metaclass;
  for (ClassRecord* each : {&type, &metaclass}) {
    each->address = processor.allocate(sizeof(Address));
    classesByAddress[each->address] = each;
  }
  processor.store(type.address, metaclass.address);
  return type;
}

ClassRecord* ObjectiveC::find(const std::string& name) {
  const auto found = classes.find(name);
  return found == classes.end() ? nullptr : found->second.get();
}

ClassRecord& ObjectiveC::classAt(Address address) {
  const auto found = classesByAddress.find(address);
  if (found == classesByAddress.end()) throw std::runtime_error("an address that is no class");
  return *found->second;
}

void ObjectiveC::addMethodTo(ClassRecord& type, const std::string& name, const std::string& encoding,
                             MethodFunction function) {
  const std::string shown = std::string(type.metaclass == nullptr ? "+" : "-") + "[" + type.name + " " + name + "]";
  const Address implementation =
      processor.addHostFunction(shown, [this, function = std::move(function)](HostCall& call) {
        function({*this, call.processor, call.processor.x(0), call.processor.x(1)});
      });
  type.methods[name] = {implementation, encoding};
}

void ObjectiveC::addMethod(const std::string& className, const std::string& name, const std::string& encoding,
                           MethodFunction function) {
  addMethodTo(*classes.at(className), name, encoding, std::move(function));
}

void ObjectiveC::addClassMethod(const std::string& className, const std::string& name, const std::string& encoding,
                                MethodFunction function) {
  addMethodTo(*metaclasses.at(className), name, encoding, std::move(function));
}

Address ObjectiveC::selector(const std::string& name) {
  Address& known = selectors[name];
  if (known == 0) known = processor.allocateText(name);
  return known;
}

Address ObjectiveC::allocate(ClassRecord& type) {
  const Address made = processor.allocate(type.instanceSize);
  processor.store(made, type.address);
  objects[made].type = &type;
  return made;
}

ObjectRecord& ObjectiveC::object(Address address) {
  const auto found = objects.find(address);
  if (found == objects.end()) throw std::runtime_error("an address that is no object");
  return found->second;
}

ClassRecord& ObjectiveC::classOf(Address address) {
  if (isObject(address) && object(address).isDeallocated)
    throw std::runtime_error("a message to a deallocated object of class " + object(address).type->name);
  return classAt(processor.load<Address>(address));
}

bool ObjectiveC::isKindOf(Address address, const std::string& className) {
  return classOf(address).isOrInherits(find(className));
}

Address ObjectiveC::implementation(ClassRecord& type, Address name) {
  const MethodRecord* method = type.findMethod(selectorName(name));
  if (method != nullptr) return method->implementation;
  throw std::runtime_error(std::string("no method implements ") + (type.metaclass == nullptr ? "+" : "-") + "[" +
                           type.name + " " + selectorName(name) + "]");
}

std::uint64_t ObjectiveC::send(Address receiver, const std::string& name, std::initializer_list<std::uint64_t> integers,
                               std::initializer_list<double> numbers) {
  int index = 2;
  for (const std::uint64_t value : integers) processor.setX(index++, value);
  return processor.call(implementation(classOf(receiver), selector(name)), {receiver, selector(name)}, numbers);
}

std::uint64_t ObjectiveC::sendClass(const std::string& className, const std::string& name,
                                    std::initializer_list<std::uint64_t> integers) {
  return send(classes.at(className)->address, name, integers);
}

Address ObjectiveC::make(const std::string& className) { return send(sendClass(className, "alloc"), "init"); }

std::string Message::text(int index) const {
  return std::any_cast<const std::string&>(runtime.object(argument(index)).value);
}

}  // namespace device
