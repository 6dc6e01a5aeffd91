#include "tests/cli/tool_run.h"

#include <fstream>
#include <iterator>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "places.h"
#include "tests/platform/child_process.h"

namespace quorvel {

std::string ReadBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string WithCrLf(std::string_view text) {
  std::string lines;
  for (const char byte : text) {
    if (byte == '\n') lines += '\r';
    lines += byte;
  }
  return lines;
}

namespace {

void Redirect(int stream, const std::string& path, int flags) {
  const int file = ::open(path.c_str(), flags, 0600);
  if (file < 0 || ::dup2(file, stream) < 0) ::_exit(126);
  ::close(file);
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

struct Streams {
  std::string in, out, err;
};

constexpr char kMapTool[] = QUORVEL_BIN_DIR "/quorvel-map";

pid_t Start(const std::string& program, const std::vector<std::string>& arguments,
            const RunSettings& settings, const Streams& streams) {
  std::vector<std::string> words = {program};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<std::string> environment = settings.environment;
  const std::vector<char*> argv = Pointers(words);

  const pid_t child = ::fork();
  if (child != 0) return child;
  HeedSignals();
  Redirect(STDIN_FILENO, streams.in, O_RDONLY);
  Redirect(STDOUT_FILENO, streams.out, O_WRONLY | O_CREAT | O_TRUNC);
  Redirect(STDERR_FILENO, streams.err, O_WRONLY | O_CREAT | O_TRUNC);
  if (!settings.folder.empty() && ::chdir(settings.folder.c_str()) != 0) ::_exit(126);
  for (std::string& variable : environment) ::putenv(variable.data());
#ifndef __SANITIZE_ADDRESS__  // whose shadow takes more than any limit
  if (settings.memoryBytes != 0) {
    const rlimit limit{settings.memoryBytes, settings.memoryBytes};
    ::setrlimit(RLIMIT_AS, &limit);
  }
#endif
  if (settings.closeStreams) {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::close(stream);
  }
  ::execv(argv[0], argv.data());
  ::_exit(127);
}

}  // namespace

ToolRun WaitForTool(pid_t process) {
  int status = 0;
  ::waitpid(process, &status, 0);
  ToolRun run;
  if (WIFEXITED(status)) run.code = WEXITSTATUS(status);
  if (WIFSIGNALED(status)) run.signal = WTERMSIG(status);
  return run;
}

ToolRun RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const RunSettings& settings) {
  const TempFolder folder;
  const std::string outPath = settings.outPath.empty() ? folder / "out" : settings.outPath;
  const Streams streams{folder.Write("in", settings.input), outPath, folder / "err"};
  ToolRun run = WaitForTool(Start(program, arguments, settings, streams));
  if (settings.outPath.empty()) run.out = ReadBytes(outPath);
  run.err = ReadBytes(streams.err);
  return run;
}

ToolRun RunMapTool(const std::vector<std::string>& arguments, const RunSettings& settings) {
  return RunProgram(kMapTool, arguments, settings);
}

ToolRun RunOn(const std::string& input, const std::vector<std::string>& arguments) {
  RunSettings settings;
  settings.input = input;
  return RunMapTool(arguments, settings);
}

pid_t StartMapTool(const std::vector<std::string>& arguments) {
  return Start(kMapTool, arguments, {}, {"/dev/null", "/dev/null", "/dev/null"});
}

}  // namespace quorvel
