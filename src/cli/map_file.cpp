#include "cli/map_file.h"

#include "cli/progress_bar.h"
#include "cli/read_outcome.h"
#include "map/file/map_reader.h"
#include "map/file/map_writer.h"
#include "map/types/map_limits.h"
#include "platform/files/atomic_file.h"
#include "platform/files/file_source.h"

namespace quorvel {

MapInput ReadMapFile(Console& console, const std::string& path) {
  MapInput input;
  Outcome outcome = Outcome::Done;
  FileSource source(path, FileSource::Accept::AnyInput, kMaxTextFileBytes);
  if (source.IsOpen()) {
    const auto feedback = MakeFeedback(console.progress);
    outcome = LoadMapFile(source, input.contents, *feedback, input.errorText);
  }
  input.code = ReadOutcome(console, path, source);
  if (input.code != ExitCode::Done) {
    input.errorText += source.Error() + "\n";
    return input;
  }
  console.Complain(path, input.errorText);
  input.code = Worse(CodeOf(outcome), input.errorText.empty() ? ExitCode::Done : ExitCode::No);
  return input;
}

ExitCode WriteMapFile(Console& console, const std::string& path, const MapContents& contents) {
  std::string errorText;
  const auto plan = PlanMapFile(contents, {}, errorText);
  if (!plan) {
    console.Complain(path, errorText);
    return ExitCode::No;
  }
  AtomicFile file(path);
  if (file.Reserve(plan->fileBytes)) {
    const auto feedback = MakeFeedback(console.progress);
    SaveMap(*plan, contents, file, *feedback);
  }
  if (file.Commit(errorText)) return ExitCode::Done;
  console.Complain(path, errorText);
  return ExitCode::Trouble;
}

}  // namespace quorvel
