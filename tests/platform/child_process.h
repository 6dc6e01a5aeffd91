#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace quorvel {

/// Runs `work` in a process of its own, which then exits with code 0, and answers the status that `waitpid`
/// gives.
template <class Work>
int RunInChild(Work work) {
  const pid_t child = fork();
  if (child == 0) {
    work();
    _exit(0);
  }
  int status = -1;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return status;
}

}  // namespace quorvel
