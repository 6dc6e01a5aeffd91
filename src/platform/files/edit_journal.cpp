#include "platform/files/edit_journal.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <new>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <isa-l/crc64.h>
#include <sys/file.h>
#include <sys/random.h>
#include <unistd.h>

#include <fmt/format.h>

#include "platform/files/file_calls.h"
#include "platform/files/little_endian.h"
#include "platform/files/xdg_folders.h"

namespace quorvel {

namespace {

constexpr std::string_view kExtension = ".journal";
// Edits come in bursts; with the sync it stays below a second.
constexpr std::chrono::milliseconds kGatherTime(500);
constexpr std::size_t kHeadBytes = 12;

std::uint64_t Checksum(std::string_view record) {
  return crc64_ecma_refl(0, reinterpret_cast<const unsigned char*>(record.data()), record.size());
}

std::string Framed(std::string_view record) {
  std::string bytes;
  bytes.reserve(kHeadBytes + record.size());
  PutLittleEndian(bytes, static_cast<std::uint32_t>(record.size()));
  PutLittleEndian(bytes, Checksum(record));
  return bytes.append(record);
}

bool WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = FileCalls::Real().Write(fd, bytes.data(), bytes.size());
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

/// -1: another program holds it, or it cannot be opened.
int OpenAndHold(const std::string& path, int flags) {
  const int fd = open(path.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | flags, 0600);
  if (fd < 0 || flock(fd, LOCK_EX | LOCK_NB) == 0) return fd;
  close(fd);
  return -1;
}

}  // namespace

std::string EditJournal::FolderFromEnvironment() {
  return StateFolder("journals");
}

std::unique_ptr<EditJournal> EditJournal::Create(const std::string& folder) {
  std::error_code ignored;  // opening finds out
  std::filesystem::create_directories(folder, ignored);
  std::filesystem::permissions(folder, std::filesystem::perms::owner_all, ignored);  // maps may be private
  std::uint64_t random = 0;
  if (folder.empty() || getrandom(&random, sizeof random, 0) < 0) return nullptr;
  std::string path = fmt::format("{}/{:016x}{}", folder, random, kExtension);
  const std::string unheld = path + ".new";  // another program may only find it held
  const int fd = OpenAndHold(unheld, O_CREAT | O_EXCL);
  if (fd < 0) return nullptr;
  std::unique_ptr<EditJournal> journal = OfFile(std::move(path), fd);
  if (journal && rename(unheld.c_str(), journal->Path().c_str()) == 0) return journal;
  const int error = errno;
  unlink(unheld.c_str());
  errno = error;
  return nullptr;
}

/// Null: there was no memory, or the thread that syncs could not be started, and errno says which. The file
/// is closed then.
std::unique_ptr<EditJournal> EditJournal::OfFile(std::string path, int fd) try {
  return std::unique_ptr<EditJournal>(new EditJournal(std::move(path), fd));
} catch (const std::system_error& error) {
  close(fd);
  errno = error.code().value();
  return nullptr;
} catch (const std::bad_alloc&) {
  close(fd);
  errno = ENOMEM;
  return nullptr;
}

std::vector<std::unique_ptr<EditJournal>> EditJournal::Abandoned(const std::string& folder) {
  std::vector<std::pair<std::filesystem::file_time_type, std::string>> paths;
  std::error_code none;
  for (const auto& entry : std::filesystem::directory_iterator(folder, none)) {
    if (entry.path().extension() != kExtension || !entry.is_regular_file(none)) continue;
    paths.emplace_back(entry.last_write_time(none), entry.path());
  }
  std::ranges::sort(paths);
  std::vector<std::unique_ptr<EditJournal>> journals;
  for (const auto& [time, path] : paths) {
    const int fd = OpenAndHold(path, 0);
    if (fd < 0) continue;
    if (auto journal = OfFile(path, fd)) journals.push_back(std::move(journal));
  }
  return journals;
}

EditJournal::EditJournal(std::string path, int fd)
    : path_(std::move(path)),
      fd_(fd),
      syncer_([this](const std::stop_token& stop) { SyncWhenWritten(stop); }) {
  live_.Remember(fd_);
}

EditJournal::~EditJournal() {
  syncer_.request_stop();
  syncer_.join();
  if (fd_ < 0) return;
  if (unsynced_) fdatasync(fd_);
  live_.Forget();
  close(fd_);
}

bool EditJournal::Append(std::string_view record) {
  const std::lock_guard lock(mutex_);
  if (fd_ < 0 || !error_.empty()) return false;
  if (record.size() > JournalReader::kMaxRecordBytes) return Fail(EFBIG);
  if (!WriteAll(fd_, Framed(record))) return Fail(errno);
  unsynced_ = true;
  written_.notify_one();
  return true;
}

bool EditJournal::CutBehind(std::uint64_t bytes) {
  const std::lock_guard lock(mutex_);
  if (fd_ < 0 || !error_.empty()) return false;
  return ftruncate(fd_, static_cast<off_t>(bytes)) == 0 || Fail(errno);
}

void EditJournal::Remove() {
  const std::lock_guard lock(mutex_);
  if (fd_ < 0) return;
  unlink(BasePath().c_str());
  unlink(path_.c_str());
  live_.Forget();
  close(fd_);
  fd_ = -1;
  unsynced_ = false;
}

std::string EditJournal::Error() const {
  const std::lock_guard lock(mutex_);
  return error_;
}

bool EditJournal::Fail(int error) {
  if (error_.empty()) error_ = ErrorText(error);
  return false;
}

void EditJournal::SyncWhenWritten(const std::stop_token& stop) {
  std::unique_lock lock(mutex_);
  while (written_.wait(lock, stop, [&] { return unsynced_; })) {
    written_.wait_for(lock, stop, kGatherTime, [] { return false; });
    if (stop.stop_requested()) return;  // the destructor syncs
    if (fd_ < 0) continue;
    unsynced_ = false;
    const int own = fcntl(fd_, F_DUPFD_CLOEXEC, 0);  // Remove may close the other one meanwhile
    lock.unlock();
    const int error = own < 0 || fdatasync(own) < 0 ? errno : 0;
    if (own >= 0) close(own);
    lock.lock();
    if (error != 0) Fail(error);
  }
}

std::optional<std::string> JournalReader::Next() {
  char head[kHeadBytes];
  if (file_.sgetn(head, sizeof head) != sizeof head) return std::nullopt;
  const auto size = GetLittleEndian<std::uint32_t>(head);
  if (size > kMaxRecordBytes || size > file_.SizeBytes().value_or(0)) return std::nullopt;
  std::string record(size, '\0');
  const bool whole = file_.sgetn(record.data(), size) == static_cast<std::streamsize>(size);
  if (!whole || GetLittleEndian<std::uint64_t>(head + 4) != Checksum(record)) return std::nullopt;
  position_ += kHeadBytes + size;
  return record;
}

}  // namespace quorvel
