#pragma once

#include <QString>

#include "platform/documents/prompts.h"

namespace quorvel {

/// The questions as message boxes and file dialogs over the active window. A file dialog starts where the one
/// before it ended: in its folder and, to open, with its type of files.
class QtPrompts final : public Prompts {
 public:
  using Prompts::Message;
  Answer Message(const std::string& text, MessageButtons buttons, MessageIcon icon,
                 const std::string& whatsThis) override;
  std::optional<std::string> OpenFileName(const FilePrompt& prompt) override;
  std::optional<std::string> SaveFileName(const FilePrompt& prompt) override;
  std::optional<std::size_t> SelectType(const std::vector<std::string>& types) override;

 private:
  QString folder_;
  QString filter_;
};

}  // namespace quorvel
