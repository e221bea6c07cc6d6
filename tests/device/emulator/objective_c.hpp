// An Objective-C runtime for emulated code: classes, objects and messages. Objects lie in the emulated memory, methods
// are emulated code or functions of this program. A message that nobody answers, or to an object that is gone, is a
// std::runtime_error that names both.
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

// A message on its way to a method of this program.
struct Message {
  ObjectiveC& runtime;
  Processor& processor;
  Address self;
  Address selector;

  // Arguments by their position among those of their kind: integers, flags and objects, and floating-point numbers.
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
  bool gone = false;
  std::any value;  // what a stand-in keeps with its object
  std::map<std::string, std::vector<std::uint64_t>> properties;
  std::map<Address, Address> associations;
};

class ObjectiveC {
 public:
  explicit ObjectiveC(Processor& processor);

  // Classes. A class that is not there is null.
  ClassRecord& define(const std::string& name, const std::string& superclass = "NSObject");
  ClassRecord* find(const std::string& name);
  ClassRecord& classAt(Address address);
  void addMethod(const std::string& className, const std::string& selector, const std::string& encoding,
                 MethodFunction function);
  void addClassMethod(const std::string& className, const std::string& selector, const std::string& encoding,
                      MethodFunction function);
  Address selector(const std::string& name);
  std::string selectorName(Address selector) { return processor.text(selector); }

  // Objects.
  Address allocate(ClassRecord& type);
  ObjectRecord& object(Address address);
  bool isObject(Address address) const { return objects.contains(address); }
  ClassRecord& classOf(Address object);
  bool isKindOf(Address object, const std::string& className);
  void retain(Address object);
  void release(Address object);
  // Released when the innermost pool is drained; without a pool, never.
  Address autorelease(Address object);
  void openPool() { pools.emplace_back(); }
  void drainPool();

  void setAssociation(Address object, Address key, Address value);
  Address association(Address object, Address key);
  void storeWeak(Address location, Address object);
  Address loadWeakRetained(Address location);

  // The code that a message reaches; throws where there is none.
  Address implementation(ClassRecord& type, Address selector);
  // Sends a message and gives what is left in x0.
  std::uint64_t send(Address receiver, const std::string& selector, std::initializer_list<std::uint64_t> integers = {},
                     std::initializer_list<double> numbers = {});
  std::uint64_t sendClass(const std::string& className, const std::string& selector,
                          std::initializer_list<std::uint64_t> integers = {});
  // +alloc and -init.
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
