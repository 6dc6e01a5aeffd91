#include "platform/documents/document.h"

#include <algorithm>
#include <filesystem>
#include <new>

#include <fmt/format.h>

#include "platform/documents/busy_scope.h"
#include "platform/documents/doc_template.h"

namespace quorvel {

namespace {

constexpr const char* kNoMemory = "Not enough memory";

std::string Absolute(const std::string& path) {
  std::error_code failed;
  const std::filesystem::path absolute = std::filesystem::absolute(path, failed);
  return failed ? path : absolute.string();
}

}  // namespace

CDocument::~CDocument() {
  for (CView* view : views_) view->document_ = nullptr;
}

void CDocument::SetOwner(DocumentOwner& owner, const CMultiDocTemplateWithID& docTemplate) {
  owner_ = &owner;
  docTemplate_ = &docTemplate;
}

void CDocument::SetTitle(std::string title) {
  title_ = std::move(title);
  TellViewsOfTitle();
}

void CDocument::SetPathName(const std::string& path) {
  pathName_ = Absolute(path);
  SetTitle(std::filesystem::path(pathName_).filename().string());
  if (owner_) owner_->OnPathNameSet(*this);
}

void CDocument::ResumeFile(const std::string& path, const FileStamp& stamp) {
  claim_.Claim(path);
  stamp_ = stamp;
  SetPathName(path);
}

void CDocument::SetModifiedFlag(bool modified) {
  if (modified_ == modified) return;
  modified_ = modified;
  TellViewsOfTitle();
}

void CDocument::TellViewsOfTitle() {
  for (CView* view : views_) view->OnTitleChanged();
}

void CDocument::AddView(CView& view) {
  views_.push_back(&view);
  view.document_ = this;
}

void CDocument::RemoveView(CView& view) {
  std::erase(views_, &view);
  view.document_ = nullptr;
  if (views_.empty() && owner_) owner_->ReleaseDocument(*this);
}

void CDocument::UpdateAllViews(CView* sender, const UpdateHint& hint) {
  for (CView* view : views_)
    if (view != sender) view->OnUpdate(sender, hint);
}

bool CDocument::OnNewDocument() {
  pathName_.clear();
  SetModifiedFlag(false);
  return true;
}

bool CDocument::OnOpenDocument(const std::string& path) try {
  if (!claim_.Claim(path) && !Confirm(fmt::format("{} is open in another editor.\nOpen it anyway?", path)))
    return false;
  const BusyScope busy(owner_);
  std::string reason;
  const bool loaded = Load(path, reason);
  if (!reason.empty()) Report("open", path, reason);
  return loaded;
} catch (const std::bad_alloc&) {
  Report("open", path, kNoMemory);
  return false;
}

Outcome CDocument::SerializeFile(CArchive& archive) {
  const Outcome outcome = archive.FileError().empty() ? Serialize(archive) : Outcome::FileTrouble;
  return archive.FileError().empty() ? outcome : Outcome::FileTrouble;
}

/// False with an empty reason: the document itself told it.
bool CDocument::Load(const std::string& path, std::string& reason) {
  stamp_ = FileStamp::Of(path);  // before reading: a change meanwhile must not go unseen
  FileSource source(path, FileSource::Accept::PlainFilesOnly);
  CArchive archive(source);
  const Outcome outcome = SerializeFile(archive);
  if (outcome == Outcome::FileTrouble) reason = source.Error();
  if (outcome == Outcome::NoMemory) reason = kNoMemory;
  if (outcome == Outcome::Done) SetModifiedFlag(false);
  return outcome == Outcome::Done;
}

bool CDocument::OnSaveDocument(const std::string& path) try {
  if (path == pathName_ && stamp_.IsChanged(path) &&
      !Confirm(fmt::format("{} was changed by another program.\nReplace it?", path)))
    return false;
  const BusyScope busy(owner_);
  std::string reason;
  const bool stored = Store(path, reason);
  if (!reason.empty()) Report("save", path, reason);
  if (stored) SetModifiedFlag(false);
  return stored;
} catch (const std::bad_alloc&) {
  Report("save", path, kNoMemory);
  return false;
}

/// False with an empty reason: the document itself told it.
bool CDocument::Store(const std::string& path, std::string& reason) {
  AtomicFile target(path);
  CArchive archive(target);
  const Outcome outcome = SerializeFile(archive);
  if (outcome == Outcome::NoMemory) reason = kNoMemory;
  if (outcome == Outcome::NoMemory || outcome == Outcome::Refused) return false;
  if (target.Commit(reason)) return true;
  reason.pop_back();  // its line feed
  return false;
}

bool CDocument::DoSave(const std::optional<std::string>& path, Replace replace) {
  const std::optional<std::string> name = path && !path->empty() ? path : AskForFileName();
  if (!name) return false;
  if (owner_ && owner_->FindOtherDocument(*this, *name)) {
    Report("save", *name, "The file is open in another window");
    return false;
  }
  if (!MayReplace(*name) || !OnSaveDocument(*name)) return false;
  if (replace == Replace::Yes) SetPathName(*name);
  if (Absolute(*name) != pathName_) return true;  // a copy
  claim_.Claim(pathName_);
  stamp_ = FileStamp::Of(pathName_);
  return true;
}

/// Asks about a file that another editor has open. The document's own file is claimed by itself.
bool CDocument::MayReplace(const std::string& path) {
  std::error_code failed;
  if (path == pathName_ || std::filesystem::equivalent(path, pathName_, failed)) return true;
  return OpenFileClaim().Claim(path) ||
         Confirm(fmt::format("{} is open in another editor.\nReplace it?", path));
}

bool CDocument::DoFileSave() {
  if (pathName_.empty()) return DoSave(std::nullopt, Replace::Yes);
  const std::string trouble = WhyNotWritable(pathName_);
  if (trouble.empty()) return DoSave(pathName_, Replace::Yes);
  Report("save", pathName_, trouble);
  return DoSave(std::nullopt, Replace::Yes);
}

std::optional<std::string> CDocument::AskForFileName() {
  const std::filesystem::path old(pathName_);
  const std::string extension = docTemplate_ ? docTemplate_->Strings().filterExt : std::string();
  FilePrompt prompt{.title = "Save As", .filters = {}, .folder = old.parent_path(), .name = old.filename()};
  if (prompt.name.empty()) prompt.name = title_ + extension;
  if (docTemplate_) prompt.filters.push_back(docTemplate_->Filter());
  prompt.filters.push_back(kAllFiles);

  std::optional<std::string> name = prompts_.SaveFileName(prompt);
  if (!name || std::filesystem::path(*name).has_extension()) return name;
  *name += extension;
  // The dialog asked about the name without the extension.
  if (std::filesystem::exists(*name) && !Confirm(fmt::format("{} already exists.\nReplace it?", *name)))
    return std::nullopt;
  return name;
}

bool CDocument::Confirm(const std::string& question) {
  return prompts_.Message(question, MessageButtons::OkCancel, MessageIcon::Exclamation) == Answer::Ok;
}

void CDocument::OnFileClose() {
  if (SaveModified() && owner_) owner_->ReleaseDocument(*this);
}

bool CDocument::SaveModified() {
  if (!IsModified()) return true;
  switch (prompts_.Message(fmt::format("Save changes to {}?", title_), MessageButtons::SaveDiscardCancel,
                           MessageIcon::Exclamation)) {
    case Answer::Save:
      return DoFileSave();
    case Answer::Discard:
      return true;
    default:
      return false;
  }
}

void CDocument::Report(const char* verb, const std::string& path, const std::string& reason) {
  prompts_.Message(fmt::format("Cannot {} {}:\n{}", verb, path, reason), MessageButtons::Ok,
                   MessageIcon::Exclamation);
}

}  // namespace quorvel
