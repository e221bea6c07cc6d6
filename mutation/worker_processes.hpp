// Worker processes that run tests in parallel, and the temporary folder that they use.
#pragma once

#include <sys/types.h>

#include <atomic>
#include <cstddef>
#include <filesystem>
#include <functional>

namespace mutation {

// Only one process at a time can use a folder for the results. Throws std::runtime_error if another process uses it.
class FolderLock {
 public:
  explicit FolderLock(const std::filesystem::path& folder);
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;
  ~FolderLock();

 private:
  int descriptor_;
};

// A temporary folder with a short path, because a socket's path has at most 107 characters. The path is stored in the
// file `record`. If the program is killed, the next object with the same record removes the folder.
class ShortFolder {
 public:
  explicit ShortFolder(std::filesystem::path record);
  ShortFolder(const ShortFolder&) = delete;
  ShortFolder& operator=(const ShortFolder&) = delete;
  ~ShortFolder();
  const std::filesystem::path& path() const { return path_; }

 private:
  void remove() const;

  std::filesystem::path record_;
  std::filesystem::path path_;
};

// Memory that the processes share.
struct Shared {
  std::atomic<std::size_t> next;
  std::atomic<std::size_t> done;
};

// Calls the function in several worker processes. Throws std::runtime_error if a worker fails, or after SIGINT, SIGTERM
// or SIGHUP. In both cases, all workers have ended. The workers are processes, not threads, because a process that
// outlives its test becomes a child of the process that ran the test, which must end it.
void inProcesses(const std::function<void(unsigned worker, Shared& shared)>& function);

// Makes this process the parent of descendants whose parent ends.
void adoptOrphans();
// Ends all children of this process, and the processes that become its children as a result.
void endChildren();

}  // namespace mutation
