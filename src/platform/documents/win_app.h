#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/documents/doc_template.h"
#include "platform/documents/frame_host.h"
#include "platform/settings/recent_files.h"

namespace quorvel {

/// The application without its windows: the types of documents, the open documents, and the commands on
/// files. Everything referred to outlives it.
class CWinApp : public DocumentOwner {
 public:
  CWinApp(Prompts& prompts, FrameHost& frames, SettingsStore& settings)
      : prompts_(prompts), frames_(frames), recentFiles_(settings) {}

  /// Reads the recent-file list of at most `recentFiles` entries.
  void LoadStdProfileSettings(int recentFiles) { recentFiles_.Load(recentFiles); }
  /// The order is that of the list of types and of the file dialogs' filters.
  CMultiDocTemplateWithID& AddDocTemplate(std::unique_ptr<CMultiDocTemplateWithID> docTemplate);
  const std::vector<std::unique_ptr<CMultiDocTemplateWithID>>& Templates() const { return templates_; }
  const std::vector<std::unique_ptr<CDocument>>& Documents() const { return documents_; }
  RecentFiles& GetRecentFiles() { return recentFiles_; }
  const RecentFiles& GetRecentFiles() const { return recentFiles_; }

  /// New, Open and a recent file; null: cancelled, refused or busy.
  CDocument* OnFileNew();
  CDocument* OnFileOpen();
  /// `position` counts from 0. A file that has gone leaves the list.
  CDocument* OnOpenRecentFile(std::size_t position);

  /// Opens the file with the template of its extension, else with the first one; a file that is open already
  /// has its frame activated instead. Null: it could not be opened, and the user was told.
  CDocument* OpenDocumentFile(const std::string& path);
  /// An untitled document of this type in a frame of its own.
  CDocument* OpenNewDocument(const CMultiDocTemplateWithID& docTemplate);

  /// Takes a document that is ready, made by one of the templates, and opens a frame for it.
  CDocument* AddDocument(std::unique_ptr<CDocument> document);

  /// Asks about every modified document in turn. False: the user cancelled, or a save failed, and nothing is
  /// closed.
  bool SaveAllModified();
  /// The end of the application: as SaveAllModified, then all documents are released. False: it must go on
  /// (or is busy).
  bool CloseAllDocuments();

  /// One idle pass: documents that are done with are destroyed, then each open one has its OnIdle. Does
  /// nothing while busy.
  void OnIdle();

  /// True while a long operation runs, which closing, opening, saving, printing and the like would break.
  bool IsBusy() const { return busy_ > 0; }

  // DocumentOwner
  void OnPathNameSet(CDocument& document) override;
  void ReleaseDocument(CDocument& document) override;
  CDocument* FindOtherDocument(const CDocument& document, const std::string& path) override;
  void BeginBusy() override { ++busy_; }
  void EndBusy() override;

 private:
  CDocument* FindOpenDocument(const std::string& path, const CDocument* except) const;
  const CMultiDocTemplateWithID& TemplateFor(const std::string& path) const;
  bool IsTitleUsed(const std::string& title) const;
  std::string NextUntitledTitle(const std::string& docName);

  Prompts& prompts_;
  FrameHost& frames_;
  RecentFiles recentFiles_;
  std::vector<std::unique_ptr<CMultiDocTemplateWithID>> templates_;
  std::vector<std::unique_ptr<CDocument>> documents_;
  std::vector<std::unique_ptr<CDocument>> released_;
  std::map<std::string, int> untitledCounts_;
  int busy_ = 0;
  bool idleMissed_ = false;  // a pass was asked for while busy
};

}  // namespace quorvel
