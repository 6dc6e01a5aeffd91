#pragma once

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/files/end_by_signal.h"
#include "platform/files/file_source.h"

namespace quorvel {

/// The edits of one document since its base state, kept so that they outlive a crash. Records are opaque
/// bytes in a file that only grows, held by a lock while its program runs. A record is safe from the
/// program's end when Append returns, and from a power cut within a second: a thread of its own syncs, since
/// a sync may take long. A signal that ends the program syncs too, see EndTidilyOnSignals.
///
/// A record in the file: length (4 bytes) and CRC-64 of the bytes (8 bytes), both little-endian, then the
/// bytes.
class EditJournal {
 public:
  /// $XDG_STATE_HOME (else ~/.local/state) and "/Kelmsor/Quorvel/journals"; empty: no place for journals.
  static std::string FolderFromEnvironment();
  /// A new, empty journal in the folder, which is made when missing. Null: none can be made there, and errno
  /// says why.
  static std::unique_ptr<EditJournal> Create(const std::string& folder);
  /// The journals that no running program holds, now held here, the one written first before the others.
  static std::vector<std::unique_ptr<EditJournal>> Abandoned(const std::string& folder);

  /// The files stay; see Remove.
  ~EditJournal();
  EditJournal(const EditJournal&) = delete;
  EditJournal& operator=(const EditJournal&) = delete;

  const std::string& Path() const { return path_; }
  /// Where the base state belongs: beside the journal, removed with it.
  std::string BasePath() const { return path_ + ".base"; }

  /// False: not all of it was written, `Error` says why, and nothing can be appended any more.
  bool Append(std::string_view record);
  /// Forgets what lies behind the first `bytes` bytes, so that records can follow on the last whole one.
  bool CutBehind(std::uint64_t bytes);
  /// Removes the journal and its base state: the edits are saved, or not wanted. Nothing can be appended any
  /// more.
  void Remove();

  /// The first error of writing or syncing; empty: none.
  std::string Error() const;

 private:
  static std::unique_ptr<EditJournal> OfFile(std::string path, int fd);
  EditJournal(std::string path, int fd);
  void SyncWhenWritten(const std::stop_token& stop);
  bool Fail(int error);

  const std::string path_;
  mutable std::mutex mutex_;
  int fd_;  // -1: removed
  bool unsynced_ = false;
  std::string error_;
  LiveJournal live_;
  std::condition_variable_any written_;
  std::jthread syncer_;  // last, so that it ends first
};

/// Reads the records of a journal in order.
class JournalReader {
 public:
  static constexpr std::uint32_t kMaxRecordBytes = 1 << 24;

  explicit JournalReader(const std::string& path) : file_(path, FileSource::Accept::PlainFilesOnly) {}

  /// None: the end, or the torn record that a crash leaves there.
  std::optional<std::string> Next();
  /// Bytes of the records answered so far.
  std::uint64_t Position() const { return position_; }

 private:
  FileSource file_;
  std::uint64_t position_ = 0;
};

}  // namespace quorvel
