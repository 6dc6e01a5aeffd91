#include "cli/tree_file.h"

#include "cli/read_outcome.h"
#include "data/text_reader.h"
#include "map/types/file_form.h"
#include "map/types/map_limits.h"
#include "platform/files/atomic_file.h"
#include "platform/files/file_source.h"

namespace quorvel {

namespace {

bool IsBelowObjects(std::string_view section) {
  std::string_view head;
  while (head.empty() && !section.empty()) head = PopPathHead(section);
  return head == "Objects";
}

void ReadTextWithoutObjects(std::streambuf& input, DataBranch& root) {
  TextReader reader(input);
  ReadTree(reader, root, &root, [](std::string_view section) {
    return IsBelowObjects(section) ? SectionUse::Skip : SectionUse::Take;
  });
}

}  // namespace

ExitCode ReadTreeFile(Console& console, const std::string& path, DataBranch& root, TreePart part) {
  FileSource source(path, FileSource::Accept::AnyInput, kMaxTextFileBytes);
  if (part == TreePart::All)
    root.ReadText(&source);
  else
    ReadTextWithoutObjects(source, root);
  return ReadOutcome(console, path, source);
}

ExitCode WriteTreeFile(Console& console, const std::string& path, const DataBranch& root) {
  const std::uint64_t bytes = root.TextSize();
  std::string errorText;
  if (!CheckFileSize(FileForm::Text, bytes, errorText)) {
    console.Complain(path, errorText);
    return ExitCode::No;
  }
  AtomicFile file(path);
  if (file.Reserve(bytes)) root.WriteText(&file);
  if (file.Commit(errorText)) return ExitCode::Done;
  console.Complain(path, errorText);
  return ExitCode::Trouble;
}

}  // namespace quorvel
