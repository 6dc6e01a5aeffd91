#pragma once

#include <memory>
#include <span>

#include <CLI/CLI.hpp>

#include "cli/console.h"
#include "cli/exit_code.h"

namespace quorvel {

/// One command of the batch tool: its arguments and what it does with them.
class Command {
 public:
  virtual ~Command() = default;
  Command() = default;
  Command(const Command&) = delete;
  Command& operator=(const Command&) = delete;

  /// Adds arguments and examples to `app`, which keeps references into this object.
  virtual void Declare(CLI::App& app) = 0;

  /// Does the work once the arguments are parsed. What went wrong has been told to `console` when this
  /// returns.
  virtual ExitCode Run(Console& console) = 0;
};

/// Row of the table of commands.
struct CommandRow {
  const char* name;
  const char* summary;
  std::unique_ptr<Command> (*make)();
};

/// All commands, in the order in which help lists them.
std::span<const CommandRow> Commands();

std::unique_ptr<Command> MakeNewCommand();
std::unique_ptr<Command> MakeConvertCommand();
std::unique_ptr<Command> MakeRewriteCommand();
std::unique_ptr<Command> MakeInfoCommand();
std::unique_ptr<Command> MakeCheckCommand();
std::unique_ptr<Command> MakeDiffCommand();
std::unique_ptr<Command> MakeRenderCommand();
std::unique_ptr<Command> MakeDumpCommand();

}  // namespace quorvel
