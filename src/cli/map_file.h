#pragma once

#include <string>

#include "cli/console.h"
#include "cli/exit_code.h"
#include "map/types/map_contents.h"

namespace quorvel {

/// What came of a map file.
struct MapInput {
  MapContents contents;            ///< what could be loaded; without a grid when the file is refused
  std::string errorText;           ///< lines about the file's content
  ExitCode code = ExitCode::Done;  ///< No: there is an error text. Trouble: no memory, or an unreadable file
};

/// Reads a map of either form. What is not Done has been told to the console.
MapInput ReadMapFile(Console& console, const std::string& path);

/// Writes a map in the form that its contents name, whole or not at all.
ExitCode WriteMapFile(Console& console, const std::string& path, const MapContents& contents);

}  // namespace quorvel
