#pragma once

#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "platform/documents/document.h"

namespace quorvel {

/// A document that is a text. A text that starts with "!" is refused in both directions, after a message.
class TextDocument : public CDocument {
 public:
  explicit TextDocument(Prompts& prompts) : CDocument(prompts), prompts_(prompts) {}
  ~TextDocument() override { ++ended; }

  std::string text;
  std::string titleWhileLoading = "(not loaded)";
  std::function<void()> onIdle = [] {};
  std::function<void()> onSerialize = [] {};
  static inline int ended = 0;

  void OnIdle() override { onIdle(); }

 protected:
  Outcome Serialize(CArchive& archive) override {
    onSerialize();
    if (archive.IsLoading()) {
      titleWhileLoading = GetTitle();
      std::ostringstream bytes;
      if (archive.File().sgetc() != EOF) bytes << &archive.File();
      text = bytes.str();
    } else {
      archive.Reserve(text.size());
      archive.File().sputn(text.data(), static_cast<std::streamsize>(text.size()));
    }
    if (!text.starts_with('!')) return Outcome::Done;
    prompts_.Message("refused", MessageButtons::Ok, MessageIcon::Exclamation);
    return Outcome::Refused;
  }

 private:
  Prompts& prompts_;
};

/// A view that remembers what it was told, hints as "all", "tool", "cell C:R" or "current C:R from C:R".
class LoggingView : public CView {
 public:
  std::vector<std::string> hints;
  std::vector<CView*> senders;
  int titleChanges = 0;

  void OnUpdate(CView* sender, const UpdateHint& hint) override {
    senders.push_back(sender);
    const std::string cell = Place(hint.cell);
    if (hint.code == UpdateHint::All) hints.emplace_back("all");
    if (hint.code == UpdateHint::Tool) hints.emplace_back("tool");
    if (hint.code == UpdateHint::Cell) hints.push_back("cell " + cell);
    if (hint.code == UpdateHint::CurrentCell)
      hints.push_back("current " + cell + " from " + Place(hint.previous));
  }
  void OnTitleChanged() override { ++titleChanges; }

  /// The hints since the last call.
  std::vector<std::string> TakeHints() { return std::exchange(hints, {}); }

 private:
  static std::string Place(CellCoord cell) {
    return std::to_string(cell.column) + ":" + std::to_string(cell.row);
  }
};

}  // namespace quorvel
