// Sources of sender pictures for emulated code: files, databases, the web, and the keys of a contact's properties.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/device/emulator/imports.hpp"
#include "tests/device/emulator/objective_c.hpp"

namespace device {

// defineStrings() and defineCollections() must be called first.
class PictureSources {
 public:
  PictureSources(Imports& imports, ObjectiveC& runtime, Processor& processor);

  struct Opening {
    std::string name;
    std::uint64_t flags;
  };
  struct WebRequest {
    std::string address;
    Address completion;  // a retained block
  };

  // Completes the last request with the data, or with an error if `data` is nullopt.
  void answerRequest(std::optional<Address> data);

  struct File {
    std::string path;
    std::string text;
  };

  // The only file that can be opened. Parsed as a property list, its text KEY=VALUE is a dictionary with one entry.
  std::optional<File> file;
  // The only row of every query's result. nullopt means that the result is empty.
  std::optional<std::string> row;

  std::vector<Opening> fileOpenings;
  int openFiles = 0;
  std::vector<Opening> openings;
  std::vector<std::string> queries;
  int openDatabases = 0;
  int openStatements = 0;
  std::vector<WebRequest> requests;

 private:
  void supplyFiles(Imports& imports);
  void supplyDatabases(Imports& imports);
  void supplyContacts(Imports& imports);
  void defineWeb();
  void defineFiles();
  void definePropertyLists();

  ObjectiveC& runtime;
  Processor& processor;
};

}  // namespace device
