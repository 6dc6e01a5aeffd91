#pragma once

#include <string>

#include <sys/stat.h>

#include "platform/files/file_calls.h"

namespace quorvel {

/// Gives the new file `fd` the owner, group, extended attributes, access list and mode of the file at `path`,
/// whose state is `old`. What the system does not allow is left; the mode is never wider than the old one,
/// and set-user-id and set-group-id bits stay only with their owner and group. False: the mode could not be
/// set, errno says why.
bool CopyFileAttributes(FileCalls& calls, const std::string& path, const struct stat& old, int fd);

/// Gives the new file `fd` the mode that files are made with by default. False: errno says why.
bool SetDefaultMode(FileCalls& calls, int fd);

}  // namespace quorvel
