#include "mutation/worker_processes.hpp"

#include <fcntl.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iostream>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>

#include "mutation/files.hpp"

namespace mutation {

namespace {

namespace fs = std::filesystem;

// A test spends a third of its duration waiting for its helper processes, so more processes than processors are useful.
unsigned processCount() {
  const unsigned processors = std::max(1U, std::thread::hardware_concurrency());
  return processors + (processors + 1) / 2;
}

// Blocks the signals that end the program, and the signal that reports the end of a child process.
class BlockedSignals {
 public:
  BlockedSignals() {
    sigemptyset(&signals_);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGCHLD}) sigaddset(&signals_, signal);
    sigprocmask(SIG_BLOCK, &signals_, &before_);
  }
  BlockedSignals(const BlockedSignals&) = delete;
  BlockedSignals& operator=(const BlockedSignals&) = delete;
  ~BlockedSignals() { restore(); }

  void restore() const { sigprocmask(SIG_SETMASK, &before_, nullptr); }
  int wait() const { return sigwaitinfo(&signals_, nullptr); }

 private:
  sigset_t signals_;
  sigset_t before_;
};

[[noreturn]] void work(const std::function<void(unsigned, Shared&)>& function, unsigned worker, Shared& shared) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  adoptOrphans();
  try {
    function(worker, shared);
    _exit(0);
  } catch (const std::exception& error) {
    std::cerr << "mutants: " << error.what() << "\n";
    _exit(1);
  }
}

enum class WorkResult { Complete, Failed, Interrupted };

WorkResult waitFor(std::vector<pid_t> processes, const BlockedSignals& signals) {
  while (!processes.empty()) {
    if (signals.wait() != SIGCHLD) return WorkResult::Interrupted;
    int status = 0;
    for (pid_t ended = 0; (ended = waitpid(-1, &status, WNOHANG)) > 0;) {
      const auto process = std::ranges::find(processes, ended);
      if (process == processes.end()) continue;
      if (status != 0) return WorkResult::Failed;
      processes.erase(process);
    }
  }
  return WorkResult::Complete;
}

}  // namespace

FolderLock::FolderLock(const fs::path& folder)
    : descriptor_(open((folder / "lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644)) {
  if (descriptor_ >= 0 && flock(descriptor_, LOCK_EX | LOCK_NB) == 0) return;
  close(descriptor_);
  throw std::runtime_error("another mutation test uses " + folder.string());
}

FolderLock::~FolderLock() { close(descriptor_); }

ShortFolder::ShortFolder(fs::path record) : record_(std::move(record)) {
  if (fs::exists(record_)) path_ = readFile(record_);
  remove();
  std::string pattern = (fs::temp_directory_path() / "mutants-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("a temporary folder cannot be created");
  path_ = pattern;
  writeFile(record_, pattern);
}

ShortFolder::~ShortFolder() {
  remove();
  std::error_code ignored;
  fs::remove(record_, ignored);
}

void ShortFolder::remove() const {
  std::error_code ignored;
  if (path_.filename().string().starts_with("mutants-")) fs::remove_all(path_, ignored);
}

void inProcesses(const std::function<void(unsigned worker, Shared& shared)>& function) {
  void* const memory = mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) throw std::runtime_error("memory cannot be shared");
  auto* const shared = new (memory) Shared{};
  adoptOrphans();
  const BlockedSignals signals;
  std::vector<pid_t> processes;
  for (unsigned worker = 0; worker < processCount(); ++worker) {
    const pid_t process = fork();
    if (process < 0) throw std::runtime_error("a process cannot be started");
    if (process == 0) {
      signals.restore();
      work(function, worker, *shared);
    }
    processes.push_back(process);
  }
  const WorkResult result = waitFor(processes, signals);
  endChildren();
  munmap(memory, sizeof(Shared));
  if (result == WorkResult::Failed) throw std::runtime_error("a process that runs tests failed");
  if (result == WorkResult::Interrupted) throw std::runtime_error("interrupted; the same command continues");
}

void adoptOrphans() { prctl(PR_SET_CHILD_SUBREAPER, 1); }

void endChildren() {
  for (int attempt = 0; attempt < 100; ++attempt) {
    std::ifstream children("/proc/self/task/" + std::to_string(gettid()) + "/children");
    bool hasChildren = false;
    for (pid_t child = 0; children >> child;) {
      hasChildren = true;
      kill(child, SIGKILL);
    }
    if (!hasChildren) return;
    while (waitpid(-1, nullptr, WNOHANG) > 0) {
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(3));
  }
}

}  // namespace mutation
