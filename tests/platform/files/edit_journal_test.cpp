#include "platform/files/edit_journal.h"

#include <csignal>
#include <cstdlib>

#include <sys/resource.h>
#include <sys/stat.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/platform/child_process.h"
#include "tests/platform/temp_folder.h"

namespace quorvel {
namespace {

using testing::ElementsAre;

std::vector<std::string> Records(const std::string& path) {
  std::vector<std::string> records;
  JournalReader reader(path);
  while (const auto record = reader.Next()) records.push_back(*record);
  return records;
}

const std::vector<std::string> kRecords = {"first", "", std::string("\0\xff\n", 3),
                                           std::string(100'000, 'x')};

TEST(EditJournal, IsFoundAgainAfterItsProgramWasKilled) {
  const TempFolder folder;
  RunInChild([&] {
    const auto journal = EditJournal::Create(folder / "new/journals");
    for (const std::string& record : kRecords) journal->Append(record);
    if (!EditJournal::Abandoned(folder / "new/journals").empty()) _exit(1);  // it has a program
    raise(SIGKILL);
  });
  auto found = EditJournal::Abandoned(folder / "new/journals");
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(std::filesystem::status(folder / "new/journals").permissions(),
            std::filesystem::perms::owner_all);
  EXPECT_EQ(Records(found[0]->Path()), kRecords);
  EXPECT_TRUE(EditJournal::Abandoned(folder / "new/journals").empty());  // offered once

  EXPECT_TRUE(found[0]->Append("later"));
  EXPECT_EQ(Records(found[0]->Path()).back(), "later");
  JournalReader reader(found[0]->Path());
  reader.Next();
  EXPECT_TRUE(found[0]->CutBehind(reader.Position()));
  EXPECT_TRUE(found[0]->Append("after the cut"));
  EXPECT_THAT(Records(found[0]->Path()), ElementsAre("first", "after the cut"));
}

TEST(EditJournal, EndsAtTheFirstDamagedRecord) {
  const TempFolder folder;
  const auto journal = EditJournal::Create(folder.Path());
  ASSERT_TRUE(journal);
  for (const char* record : {"one", "two"}) journal->Append(record);
  const std::string whole = folder.Read(folder.Names().at(0));
  const std::size_t second = whole.size() / 2;  // equal lengths
  for (std::size_t cut = 0; cut < whole.size(); ++cut) {
    SCOPED_TRACE(cut);
    EXPECT_EQ(Records(folder.Write("cut", whole.substr(0, cut))).size(), cut < second ? 0U : 1U);
    std::string changed = whole;
    changed[cut] ^= 0x40;
    EXPECT_EQ(Records(folder.Write("changed", changed)).size(), cut < second ? 0U : 1U);
  }
  EXPECT_EQ(Records(folder.Write("huge", std::string(16, '\xff'))).size(), 0U);
}

TEST(EditJournal, SaysThatItCannotBeWritten) {
  EXPECT_FALSE(EditJournal::Create("/proc/none"));
  EXPECT_FALSE(EditJournal::Create(""));
  EXPECT_TRUE(EditJournal::Abandoned("/proc/none").empty());

  const TempFolder folder;
  const int status = RunInChild([&] {
    const auto journal = EditJournal::Create(folder.Path());
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{10'000, 10'000};
    setrlimit(RLIMIT_FSIZE, &limit);
    if (!journal->Append("fits") || journal->Append(std::string(20'000, 'x'))) _exit(1);
    if (journal->Error() != "File too large" || journal->Append("after")) _exit(2);
  });
  EXPECT_EQ(status, 0);
  EXPECT_THAT(Records(folder / folder.Names().at(0)), ElementsAre("fits"));
}

TEST(EditJournal, PassesOverWhatIsNoJournal) {
  const TempFolder folder;
  folder.Write("note.txt", "x");
  std::filesystem::create_directory(folder / "a.journal");
  ASSERT_EQ(mkfifo((folder / "b.journal").c_str(), 0600), 0);
  std::filesystem::create_symlink("note.txt", folder / "c.journal");
  EXPECT_TRUE(EditJournal::Abandoned(folder.Path()).empty());
}

TEST(EditJournal, LiesInTheUsersStateFolder) {
  const std::array<const char*, 3> rows[] = {// home, state folder, journals
                                             {"/home/x", "", "/home/x/.local/state/Kelmsor/Quorvel/journals"},
                                             {"/home/x", "/state", "/state/Kelmsor/Quorvel/journals"},
                                             {"", "relative", ""}};
  for (const auto& row : rows) {
    const int status = RunInChild([&] {
      setenv("HOME", row[0], 1);
      setenv("XDG_STATE_HOME", row[1], 1);
      if (EditJournal::FolderFromEnvironment() != row[2]) _exit(1);
    });
    EXPECT_EQ(status, 0) << row[2];
  }
}

}  // namespace
}  // namespace quorvel
