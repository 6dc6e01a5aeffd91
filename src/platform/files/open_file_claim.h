#pragma once

#include <string>

namespace quorvel {

/// Tells running editors of one user that a file is being worked on here. A warning only: nothing is kept
/// from being opened. A claim is a locked file named after the path in $XDG_RUNTIME_DIR/quorvel, so it ends
/// with its program, however that ends. Without such a folder there are no claims.
class OpenFileClaim {
 public:
  OpenFileClaim() = default;
  ~OpenFileClaim() { Release(); }
  OpenFileClaim(const OpenFileClaim&) = delete;
  OpenFileClaim& operator=(const OpenFileClaim&) = delete;

  /// Claims the file at `path` in place of the one claimed before. False: another editor has it, and nothing
  /// is claimed now.
  bool Claim(const std::string& path);
  void Release();

 private:
  int fd_ = -1;
  std::string lockPath_;
};

}  // namespace quorvel
