#include "platform/files/xdg_folders.h"

#include <cstdlib>

namespace quorvel {
namespace {

/// An absolute path, or empty: relative ones are to be ignored.
std::string FolderFrom(const char* variable) {
  const char* text = std::getenv(variable);
  return text != nullptr && text[0] == '/' ? text : "";
}

}  // namespace

std::string StateFolder(std::string_view name) {
  std::string state = FolderFrom("XDG_STATE_HOME");
  if (const std::string home = FolderFrom("HOME"); state.empty() && !home.empty())
    state = home + "/.local/state";
  if (!state.empty()) state.append("/Kelmsor/Quorvel/").append(name);
  return state;
}

}  // namespace quorvel
