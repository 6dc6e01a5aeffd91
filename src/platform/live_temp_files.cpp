#include "platform/live_temp_files.h"

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
struct Place {
  std::atomic<int> state = Free;
  char path[PATH_MAX] = {};
};
Place places[16];
static_assert(std::atomic<int>::is_always_lock_free);

void OnSignal(int signal) {
  for (const Place& place : places)
    if (place.state == Live) unlink(place.path);
  // SA_RESETHAND has put the default back; it acts when this handler returns and the signal is no longer
  // blocked.
  raise(signal);
}

}  // namespace

void LiveTempFile::Remember(const std::string& path) {
  Forget();
  if (path.size() >= PATH_MAX) return;
  for (int i = 0; i < static_cast<int>(std::size(places)); ++i) {
    int expected = Free;
    if (!places[i].state.compare_exchange_strong(expected, Taken)) continue;
    std::memcpy(places[i].path, path.c_str(), path.size() + 1);
    places[i].state = Live;
    place_ = i;
    return;
  }
}

void LiveTempFile::Forget() {
  if (place_ >= 0) places[place_].state = Free;
  place_ = -1;
}

void RemoveTempFilesOnSignals() {
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
