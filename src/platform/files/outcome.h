#pragma once

namespace quorvel {

/// How an operation on a map or its file ended. What is not Done has its reason in the error text that goes
/// with it.
enum class Outcome {
  Done,
  Refused,      ///< the content breaks a rule or passes a limit
  NoMemory,     ///< nothing was taken over or written in part
  FileTrouble,  ///< a file could not be opened, read or written
};

}  // namespace quorvel
