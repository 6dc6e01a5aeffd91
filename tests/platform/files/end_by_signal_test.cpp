#include "platform/files/end_by_signal.h"

#include <csignal>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/files/atomic_file.h"
#include "tests/platform/child_process.h"
#include "tests/platform/temp_folder.h"

namespace quorvel {
namespace {

TEST(EndBySignal, RemovesTemporaryFiles) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    SCOPED_TRACE(signal);
    const TempFolder folder;
    const std::string path = folder.Write("map", "old");
    const int status = RunInChild([&] {
      EndTidilyOnSignals();
      for (int i = 0; i < 20; ++i) AtomicFile(path).Reserve(1);  // their places are free again
      AtomicFile first(path);
      AtomicFile second(folder / "other");
      if (!first.Reserve(10) || !second.Reserve(10) || folder.Names().size() != 3) _exit(1);
      raise(signal);
    });
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), signal);
    EXPECT_THAT(folder.Names(), testing::ElementsAre("map"));
    EXPECT_EQ(folder.Read("map"), "old");
  }
}

TEST(EndBySignal, LeavesAnIgnoredSignalIgnored) {
  EXPECT_TRUE(WIFEXITED(RunInChild([] {
    std::signal(SIGHUP, SIG_IGN);
    EndTidilyOnSignals();
    raise(SIGHUP);
  })));
}

}  // namespace
}  // namespace quorvel
