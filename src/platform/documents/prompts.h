#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quorvel {

enum class MessageButtons { Ok, OkCancel, YesNoCancel, SaveDiscardCancel };
enum class MessageIcon { None, Exclamation };
enum class Answer { Ok, Yes, No, Save, Discard, Cancel };

/// One entry of a file dialog's list of types.
struct FileFilter {
  std::string name;       ///< as shown, pattern included: "Generic Data Files (*.gdf)"
  std::string extension;  ///< with its dot: ".gdf"; empty: all files
};

inline const FileFilter kAllFiles{"All Files (*.*)", ""};

/// What a file dialog starts with. Empty fields: the system's own choice.
struct FilePrompt {
  std::string title;
  std::vector<FileFilter> filters;  ///< in order; the first is selected
  std::string folder;               ///< where it opens
  std::string name;                 ///< the name proposed, without folder
};

/// The questions put to the user. File names are byte strings in the file system's own form.
class Prompts {
 public:
  virtual ~Prompts() = default;

  /// Shows `text` until it is answered. Closing the box counts as Cancel, or as Ok where that is the only
  /// button.
  /// `whatsThis` is what the box's own help says.
  virtual Answer Message(const std::string& text, MessageButtons buttons, MessageIcon icon,
                         const std::string& whatsThis) = 0;
  Answer Message(const std::string& text, MessageButtons buttons, MessageIcon icon) {
    return Message(text, buttons, icon, {});
  }
  /// An existing file to open; none: cancelled.
  virtual std::optional<std::string> OpenFileName(const FilePrompt& prompt) = 0;
  /// A file to write; an existing one was confirmed. None: cancelled.
  virtual std::optional<std::string> SaveFileName(const FilePrompt& prompt) = 0;
  /// One of the listed types of new documents, by position; none: cancelled.
  virtual std::optional<std::size_t> SelectType(const std::vector<std::string>& types) = 0;
};

}  // namespace quorvel
