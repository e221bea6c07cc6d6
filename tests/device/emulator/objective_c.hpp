// An Objective-C runtime for emulated code: classes, objects and messages. Objects are in emulated memory. Methods are
// emulated code or functions of this program. An unrecognized selector and a message to a deallocated object throw
// std::runtime_error with the class and the selector.
#pragma once

#include <any>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/device/emulator/processor.hpp"

namespace device {

class ObjectiveC;

// A message sent to a method that is a function of this program.
struct Message {
  ObjectiveC& runtime;
  Processor& processor;
  Address self;
  Address selector;

  // Arguments by index within their kind. One kind is integers, booleans and objects, the other is floating-point
  // numbers.
  std::uint64_t argument(int index) const { return processor.x(2 + index); }
  double number(int index) const { return processor.d(index); }
  std::string text(int index) const;

  void answer(std::uint64_t value) const { processor.setX(0, value); }
  void answerNumber(double value) const { processor.setD(0, value); }
};

using MethodFunction = std::function<void(const Message&)>;

struct MethodRecord {
  Address implementation;
  std::string encoding;
};

struct VariableRecord {
  Address handle;
  std::uint64_t offset;
};

struct ClassRecord {
  std::string name;
  Address address = 0;
  ClassRecord* superclass = nullptr;
  ClassRecord* metaclass = nullptr;  // null for metaclasses
  std::map<std::string, MethodRecord> methods;
  std::map<std::string, VariableRecord> variables;
  std::size_t instanceSize = sizeof(Address);
  bool registered = true;

  const MethodRecord* findMethod(const std::string& selector) const;
  const VariableRecord* findVariable(const std::string& variable) const;
  bool isOrInherits(const ClassRecord* other) const;
};

struct ObjectRecord {
  ClassRecord* type = nullptr;
  std::uint64_t retainCount = 1;
  bool isDeallocated = false;
  std::any value;  // data that an emulated class stores with its object
  std::map<std::string, std::vector<std::uint64_t>> properties;
  std::map<Address, Address> associations;
};

class ObjectiveC {
 public:
  explicit ObjectiveC(Processor& processor);

  // Classes. An unknown class is null.
  ClassRecord& define(const std::string& name, const std::string& superclass = "NSObject");
  ClassRecord* find(const std::string& name);
  ClassRecord& classAt(Address address);
  void addMethod(const std::string& className, const std::string& selector, const std::string& encoding,
                 MethodFunction function);
  void addClassMethod(const std::string& className, const std::string& selector, const std::string& encoding,
                      MethodFunction function);
  Address selector(const std::string& name);
  std::string selectorName(Address selector) { return processor.text(selector); }

  Address allocate(ClassRecord& type);
  ObjectRecord& object(Address address);
  bool isObject(Address address) const { return objects.contains(address); }
  ClassRecord& classOf(Address object);
  bool isKindOf(Address object, const std::string& className);
  void retain(Address object);
  void release(Address object);
  // The object is released when the innermost pool is drained, or never if there is no pool.
  Address autorelease(Address object);
  void openPool() { pools.emplace_back(); }
  void drainPool();

  void setAssociation(Address object, Address key, Address value);
  Address association(Address object, Address key);
  void storeWeak(Address location, Address object);
  Address loadWeakRetained(Address location);

  // Returns the code that a message calls. Throws if there is no such method.
  Address implementation(ClassRecord& type, Address selector);
  // Sends a message and returns the value of x0.
  std::uint64_t send(Address receiver, const std::string& selector, std::initializer_list<std::uint64_t> integers = {},
                     std::initializer_list<double> numbers = {});
  std::uint64_t sendClass(const std::string& className, const std::string& selector,
                          std::initializer_list<std::uint64_t> integers = {});
  // Sends +alloc and -init.
  Address make(const std::string& className);

 private:
  void addMethodTo(ClassRecord& type, const std::string& selector, const std::string& encoding,
                   MethodFunction function);
  void destroy(Address object);
  void defineRoot();

  Processor& processor;
  std::map<std::string, std::unique_ptr<ClassRecord>> classes;
  std::map<std::string, std::unique_ptr<ClassRecord>> metaclasses;
  std::map<Address, ClassRecord*> classesByAddress;
  std::map<std::string, Address> selectors;
  std::map<Address, ObjectRecord> objects;
  std::map<Address, Address> weakReferences;
  std::vector<std::vector<Address>> pools;
};

}  // namespace device
