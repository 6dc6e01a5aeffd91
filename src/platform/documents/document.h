#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/documents/archive.h"
#include "platform/documents/prompts.h"
#include "platform/documents/view.h"
#include "platform/files/file_stamp.h"
#include "platform/files/open_file_claim.h"
#include "platform/files/outcome.h"

namespace quorvel {

class CDocument;
class CMultiDocTemplateWithID;

/// Who owns documents and hears what happens to them: the application.
class DocumentOwner {
 public:
  virtual ~DocumentOwner() = default;
  /// The document got a path by being opened or saved.
  virtual void OnPathNameSet(CDocument& document) = 0;
  /// The document is done with: its frames close and it is destroyed once it has no views and none of its
  /// calls runs.
  virtual void ReleaseDocument(CDocument& document) = 0;
  /// Another document than `document` that was opened from or saved to the file at `path`, or null.
  virtual CDocument* FindOtherDocument(const CDocument& document, const std::string& path) = 0;
  /// Between these no command may close, open, save or print.
  virtual void BeginBusy() = 0;
  virtual void EndBusy() = 0;
};

enum class Replace { No, Yes };  ///< whether a document takes the name that it is saved under

/// What a file is to the editor: title, path, modified flag, and the views on it, which it does not own.
class CDocument {
 public:
  explicit CDocument(Prompts& prompts) : prompts_(prompts) {}
  virtual ~CDocument();
  CDocument(const CDocument&) = delete;
  CDocument& operator=(const CDocument&) = delete;

  /// Called once by whoever takes the document; both outlive it.
  void SetOwner(DocumentOwner& owner, const CMultiDocTemplateWithID& docTemplate);
  /// The template that made the document; null for a document without an application.
  const CMultiDocTemplateWithID* GetDocTemplate() const { return docTemplate_; }

  /// The file's name without its folder, or the name of an untitled document; empty while a file is being
  /// opened.
  const std::string& GetTitle() const { return title_; }
  void SetTitle(std::string title);
  /// The absolute path; empty: never saved.
  const std::string& GetPathName() const { return pathName_; }
  /// Sets the path and, from it, the title; the application hears of it.
  void SetPathName(const std::string& path);

  virtual bool IsModified() const { return modified_; }
  virtual void SetModifiedFlag(bool modified = true);

  void AddView(CView& view);
  /// Called by the view's destructor. With the last view the document is released.
  void RemoveView(CView& view);
  const std::vector<CView*>& Views() const { return views_; }
  /// Tells every view but `sender`, in the order in which they were added.
  void UpdateAllViews(CView* sender, const UpdateHint& hint = {});

  /// Makes an empty document; false: it is dropped.
  virtual bool OnNewDocument();
  /// Reads the file. False: the user was told why and the document is to be dropped. Sets neither path nor
  /// title.
  virtual bool OnOpenDocument(const std::string& path);
  /// Writes the file and clears the modified flag. False: the user was told why, or wanted it so; file and
  /// flag are kept.
  virtual bool OnSaveDocument(const std::string& path);
  /// Saves to `path`, or asks for a name when there is none. False: not saved.
  virtual bool DoSave(const std::optional<std::string>& path, Replace replace);
  /// Saves to the document's own file, or to one that the user names when there is none or it is read-only.
  bool DoFileSave();
  bool OnFileSave() { return DoFileSave(); }
  bool OnFileSaveAs() { return DoSave(std::nullopt, Replace::Yes); }
  /// Closes the document, after asking about changes.
  void OnFileClose();

  /// The document is done with: its changes are saved or not wanted. Called once, before its frames close.
  virtual void OnCloseDocument() {}

  /// Asks "Save changes to ...?" when modified. False: the user cancelled, or saving failed.
  bool SaveModified();
  /// Asked before a frame closes: true at once while the document has further views.
  bool CanCloseFrame() { return views_.size() > 1 || SaveModified(); }

  /// One idle pass of the application; never entered again while it runs.
  virtual void OnIdle() {}

 protected:
  /// Loads from or stores into the archive. Refused: the document has told the user why. Of NoMemory, which
  /// may also come as std::bad_alloc, and of `archive.FileError()` the caller tells.
  virtual Outcome Serialize(CArchive& archive) = 0;

  /// Of the file at the path when it was last read or written.
  const FileStamp& Stamp() const { return stamp_; }
  /// Takes the path of a file that an earlier run had opened, when it had this stamp. Reads nothing.
  void ResumeFile(const std::string& path, const FileStamp& stamp);

 private:
  Outcome SerializeFile(CArchive& archive);
  bool Load(const std::string& path, std::string& reason);
  bool Store(const std::string& path, std::string& reason);
  std::optional<std::string> AskForFileName();
  bool MayReplace(const std::string& path);
  bool Confirm(const std::string& question);
  void TellViewsOfTitle();
  void Report(const char* verb, const std::string& path, const std::string& reason);

  Prompts& prompts_;
  DocumentOwner* owner_ = nullptr;
  const CMultiDocTemplateWithID* docTemplate_ = nullptr;
  std::string title_;
  std::string pathName_;
  bool modified_ = false;
  std::vector<CView*> views_;
  OpenFileClaim claim_;
  FileStamp stamp_;  // of the file at pathName_ when it was last read or written
};

}  // namespace quorvel
