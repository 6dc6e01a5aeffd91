#include <fcntl.h>
#include <unistd.h>

#include "cli/tool.h"
#include "platform/files/end_by_signal.h"

namespace {

/// Gives closed standard streams back their places, each opened the wrong way round so that using it still
/// fails. Else the next file opened would take the place, and messages would end in it.
void HoldStandardStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(stream, F_GETFD) < 0) ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

}  // namespace

int main(int argc, char** argv) {
  HoldStandardStreams();
  quorvel::EndTidilyOnSignals();
  return static_cast<int>(quorvel::RunTool(argc, argv));
}
