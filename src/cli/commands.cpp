#include "cli/command.h"

namespace quorvel {

std::span<const CommandRow> Commands() {
  static constexpr CommandRow kRows[] = {
      {"new", "Make a new map, empty or filled as a settings file says", &MakeNewCommand},
      {"convert", "Write a map in the other file form", &MakeConvertCommand},
      {"rewrite", "Read any generic data file in text form and write it in its plain form",
       &MakeRewriteCommand},
      {"info", "Tell what a map holds", &MakeInfoCommand},
      {"check", "List every problem of maps and definitions files", &MakeCheckCommand},
      {"diff", "List the cells in which two maps differ", &MakeDiffCommand},
      {"render", "Draw a map into a picture or a PDF", &MakeRenderCommand},
      {"dump", "Print what a file holds, one fact a line, for scripts", &MakeDumpCommand},
  };
  return kRows;
}

}  // namespace quorvel
