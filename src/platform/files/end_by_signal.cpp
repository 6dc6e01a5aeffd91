#include "platform/files/end_by_signal.h"

#include <atomic>
#include <climits>
#include <csignal>
#include <cstring>
#include <iterator>

#include <unistd.h>

namespace quorvel {

namespace {

enum State { Free, Taken, Live };

// Plain static memory: a signal handler may neither allocate nor lock.
struct TempFilePlace {
  std::atomic<int> state = Free;
  char path[PATH_MAX] = {};
};
struct JournalPlace {
  std::atomic<int> state = Free;
  int fd = -1;
};
TempFilePlace tempFiles[16];
JournalPlace journals[64];
static_assert(std::atomic<int>::is_always_lock_free);

/// Position of a free place, which is taken now; -1: none.
template <class Place, int count>
int TakePlace(Place (&places)[count]) {
  for (int i = 0; i < count; ++i) {
    int expected = Free;
    if (places[i].state.compare_exchange_strong(expected, Taken)) return i;
  }
  return -1;
}

template <class Place, int count>
void FreePlace(Place (&places)[count], int& place) {
  if (place >= 0) places[place].state = Free;
  place = -1;
}

void OnSignal(int signal) {
  for (const TempFilePlace& place : tempFiles)
    if (place.state == Live) unlink(place.path);
  for (const JournalPlace& place : journals)
    if (place.state == Live) fsync(place.fd);
  // SA_RESETHAND has put the default back; it acts when this handler returns and the signal is no longer
  // blocked.
  raise(signal);
}

}  // namespace

void LiveTempFile::Remember(const std::string& path) {
  Forget();
  if (path.size() >= PATH_MAX) return;
  place_ = TakePlace(tempFiles);
  if (place_ < 0) return;
  std::memcpy(tempFiles[place_].path, path.c_str(), path.size() + 1);
  tempFiles[place_].state = Live;
}

void LiveTempFile::Forget() {
  FreePlace(tempFiles, place_);
}

void LiveJournal::Remember(int fd) {
  Forget();
  place_ = TakePlace(journals);
  if (place_ < 0) return;
  journals[place_].fd = fd;
  journals[place_].state = Live;
}

void LiveJournal::Forget() {
  FreePlace(journals, place_);
}

void EndTidilyOnSignals() {
  struct sigaction action {};
  action.sa_handler = OnSignal;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  sigfillset(&action.sa_mask);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction old {};
    if (sigaction(signal, nullptr, &old) == 0 && old.sa_handler != SIG_IGN)
      sigaction(signal, &action, nullptr);
  }
  signal(SIGXFSZ, SIG_IGN);
}

}  // namespace quorvel
