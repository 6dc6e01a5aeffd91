#pragma once

#include <string>

#include <sys/stat.h>

namespace quorvel {

/// Where bytes for a path end up, found before anything is written.
struct WriteTarget {
  enum class Kind {
    NewFile,    ///< nothing there yet
    PlainFile,  ///< to be replaced; `old` tells about it
    Through,    ///< a FIFO or device: bytes go straight into it
  } kind = Kind::NewFile;
  std::string path;    ///< with the links at its end followed
  std::string folder;  ///< the folder that holds `path`
  struct stat old {};
  std::string error;  ///< why it cannot be written, without its name; empty: nothing known
};

/// Follows links also to a file that does not exist yet. Refuses folders and read-only files: a rename would
/// replace those without asking, for the super-user too.
WriteTarget FindWriteTarget(const std::string& path);

}  // namespace quorvel
