#pragma once

#include <string>

namespace quorvel {

/// Names a temporary file that must not outlive the program: it is removed when a signal ends it.
/// The file's normal end is its owner's business.
class LiveTempFile {
 public:
  LiveTempFile() = default;
  ~LiveTempFile() { Forget(); }
  LiveTempFile(const LiveTempFile&) = delete;
  LiveTempFile& operator=(const LiveTempFile&) = delete;

  /// From now on a signal removes the file at `path`. With all of the few places taken, or a path too long,
  /// nothing.
  void Remember(const std::string& path);
  void Forget();

 private:
  int place_ = -1;
};

/// Names an open file whose written bytes must reach the disk: it is synced when a signal ends the program.
class LiveJournal {
 public:
  LiveJournal() = default;
  ~LiveJournal() { Forget(); }
  LiveJournal(const LiveJournal&) = delete;
  LiveJournal& operator=(const LiveJournal&) = delete;

  /// To be forgotten before the descriptor is closed. With all of the few places taken, nothing.
  void Remember(int fd);
  void Forget();

 private:
  int place_ = -1;
};

/// Lets SIGINT, SIGTERM and SIGHUP remove the live temporary files and sync the live journals before they end
/// the program, which still ends by the signal. One that was ignored when the program started stays ignored.
/// Called once, at the start of main.
void EndTidilyOnSignals();

}  // namespace quorvel
