// Where pictures of senders come from, for emulated code: files, databases, the web, and the names of a contact's
// properties.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/device/emulator/imports.hpp"
#include "tests/device/emulator/objective_c.hpp"

namespace device {

// Strings and collections are to be defined before.
class PictureSources {
 public:
  PictureSources(Imports& imports, ObjectiveC& runtime, Processor& processor);

  struct Opening {
    std::string name;
    std::uint64_t flags;
  };
  struct WebRequest {
    std::string address;
    Address completion;  // a block that is kept
  };

  // Answers the last request: with data, or with an error where there is none.
  void answerRequest(std::optional<Address> data);

  struct File {
    std::string path;
    std::string text;
  };

  // The one file that can be opened. As a property list it is a dictionary with one entry: its text is KEY=VALUE.
  std::optional<File> file;
  // The one row of every query; none where there is nothing.
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
