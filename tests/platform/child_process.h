#pragma once

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace quorvel {

/// For a child that signals shall end: whoever started the tests may have them ignored, as nohup and
/// background jobs do.
inline void HeedSignals() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, SIG_DFL);
}

/// Runs `work` in a process of its own, which then exits with code 0, and answers the status that `waitpid`
/// gives.
template <class Work>
int RunInChild(Work work) {
  const pid_t child = fork();
  if (child == 0) {
    HeedSignals();
    work();
    _exit(0);
  }
  int status = -1;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return status;
}

}  // namespace quorvel
