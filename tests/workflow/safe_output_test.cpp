#include <chrono>
#include <csignal>
#include <filesystem>
#include <thread>

#include <sys/wait.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/cli/samples.h"

namespace quorvel {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// Settings that give every cell of a large map a long text, so that writing it takes a while.
std::string LargeSettings() {
  const std::string name(200, 'n');
  return TypesText() + WithCrLf(
                           "[Fill]\nWidth=300\nHeight=300\nSeed=1\n[Fill/Global/0]\nmember=\"name\"\n"
                           "[Fill/Global/0/Values/0]\nvalue=\"" +
                           name + "\"\nshare=100\n");
}

/// Waits until the folder holds more than `known` files. False when the program ended before.
bool WaitForTempFile(const TempFolder& folder, std::size_t known, pid_t process) {
  while (::kill(process, 0) == 0) {
    if (folder.Names().size() > known) return true;
    siginfo_t ended{};
    ::waitid(P_PID, static_cast<id_t>(process), &ended, WEXITED | WNOHANG | WNOWAIT);
    if (ended.si_pid == process) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return false;
}

// The signal comes while the temporary file lies beside the target.
TEST(SafeOutput, ASignalWhileWritingLeavesTheOldFileAndNoOther) {
  const TempFolder folder;
  const std::string map = folder / "large.vrl";
  ASSERT_EQ(
      RunMapTool({"new", "--settings", folder.Write("s.txt", LargeSettings()), "--form", "binary", map}).code,
      0);
  const std::string out = folder.Write("out.vrl", "old");
  const auto names = folder.Names();
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    SCOPED_TRACE(signal);
    int caught = 0;
    for (int attempt = 0; attempt < 10 && caught == 0; ++attempt) {
      folder.Write("out.vrl", "old");
      const pid_t process = StartMapTool({"convert", "--form", "text", map, out});
      if (WaitForTempFile(folder, names.size(), process)) ::kill(process, signal);
      const ToolRun run = WaitForTool(process);
      EXPECT_EQ(folder.Names(), names);
      caught = run.signal;
      EXPECT_TRUE(caught != 0 || run.code == 0);  // it was faster
    }
    EXPECT_EQ(caught, signal);
    EXPECT_EQ(ReadBytes(out), "old");
  }
}

TEST(SafeOutput, TargetsThatCannotBeWrittenAreTrouble) {
  const TempFolder folder;
  const std::string map = folder.Write("map.vrl", MapText());
  std::filesystem::create_directory(folder / "folder");
  std::filesystem::create_symlink("loop", folder / "loop");
  const auto names = folder.Names();
  for (const std::string& out :
       {folder / "folder", folder / "none/out.vrl", folder / "loop", std::string("/dev/full")}) {
    SCOPED_TRACE(out);
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"convert", "--form", "binary", map, out},
          {"rewrite", map, out},
          {"new", "--definitions", map, out}}) {
      const ToolRun run = RunMapTool(arguments);
      EXPECT_EQ(run.code, 2);
      EXPECT_THAT(run.err, StartsWith("quorvel-map: " + out + ": "));
      EXPECT_EQ(folder.Names(), names);
    }
  }
}

TEST(SafeOutput, ALinkStaysALink) {
  const TempFolder folder;
  const std::string map = folder.Write("map.vrl", MapText()), real = folder.Write("real.vrl", "old");
  std::filesystem::create_symlink("real.vrl", folder / "link.vrl");
  ASSERT_EQ(RunMapTool({"rewrite", map, folder / "link.vrl"}).code, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.vrl"));
  EXPECT_EQ(ReadBytes(real), MapText());
}

// With closed standard streams no message or result may end in a file that took their place.
TEST(SafeOutput, ClosedStreamsDoNotEndInTheOutput) {
  const TempFolder folder;
  const std::string map = folder.Write("map.vrl", MapText()), out = folder / "out.vrl";
  RunSettings closed;
  closed.closeStreams = true;
  EXPECT_EQ(RunMapTool({"rewrite", map, out}, closed).code, 0);
  EXPECT_EQ(ReadBytes(out), MapText());
  EXPECT_EQ(RunMapTool({"dump", "map", map}, closed).code, 2);
  EXPECT_EQ(RunMapTool({"rewrite", "-", out}, closed).code, 2);
  EXPECT_EQ(ReadBytes(out), MapText());
}

#ifndef __SANITIZE_ADDRESS__  // whose shadow takes more than any limit
TEST(SafeOutput, WantOfMemoryIsTroubleAndKeepsTheOutput) {
  const TempFolder folder;
  std::string tree;
  for (int leaf = 0; leaf < 800'000; ++leaf) tree += "a" + std::to_string(leaf) + "=1\r\n";
  const std::string in = folder.Write("in.gdf", tree), out = folder.Write("out.gdf", "old");
  RunSettings narrow;
  narrow.memoryBytes = 150'000'000;
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"rewrite", in, out}, {"dump", "tree", in}}) {
    SCOPED_TRACE(testing::PrintToString(arguments));
    const ToolRun run = RunMapTool(arguments, narrow);
    EXPECT_EQ(run.code, 2);
    EXPECT_THAT(run.err, HasSubstr("memory"));
  }
  EXPECT_EQ(ReadBytes(out), "old");
  EXPECT_EQ(folder.Names().size(), 2U);
}

/// The least memory with which the tool comes to main: below it the loader gives up.
std::size_t MemoryToStart() {
  constexpr std::size_t kStepBytes = 200'000;
  RunSettings narrow;
  narrow.memoryBytes = 20'000'000;
  ToolRun run;
  while ((run = RunMapTool({"--version"}, narrow)).code == 127) narrow.memoryBytes += kStepBytes;
  return narrow.memoryBytes;
}

// A cell that found no memory was left out, and the map without it saved.
TEST(SafeOutput, WantOfMemoryLosesNoCell) {
  const TempFolder folder;
  std::string text = TypesText() + WithCrLf("[Objects/Galaxy]\nWidth=400\nHeight=400\n");
  for (int cell = 0; cell < 160'000; ++cell)
    text += "[Objects/Galaxy/Cells/" + std::to_string(cell) + "]\r\nname=\"star\"\r\n";
  const std::string in = folder.Write("in.vrl", text), binary = folder / "binary.vrl";
  ASSERT_EQ(RunMapTool({"convert", "--form", "binary", in, binary}).code, 0);
  const std::string whole = ReadBytes(binary), out = folder.Write("out.vrl", "old");
  const std::size_t least = MemoryToStart();
  for (const std::string& input : {in, binary}) {
    SCOPED_TRACE(input);
    constexpr std::size_t kStepBytes = 1'000'000;
    RunSettings narrow;
    narrow.memoryBytes = least + kStepBytes;
    int refused = 0;
    folder.Write("out.vrl", "old");
    for (;; narrow.memoryBytes += kStepBytes, ++refused) {
      const ToolRun run = RunMapTool({"convert", "--form", "binary", input, out}, narrow);
      if (run.code == 0) break;
      ASSERT_EQ(run.code, 2) << narrow.memoryBytes << " bytes: " << run.err;
      EXPECT_THAT(run.err, HasSubstr("memory"));
      EXPECT_EQ(ReadBytes(out), "old");
    }
    EXPECT_GT(refused, 1);
    EXPECT_TRUE(ReadBytes(out) == whole);
  }
}
#endif

}  // namespace
}  // namespace quorvel
