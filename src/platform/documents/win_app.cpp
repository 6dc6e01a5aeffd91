#include "platform/documents/win_app.h"

#include <algorithm>
#include <cassert>
#include <filesystem>

#include <sys/stat.h>

#include <fmt/format.h>

namespace quorvel {

namespace {

bool IsSameFile(const std::string& a, const std::string& b) {
  struct stat first {};
  struct stat second {};
  if (stat(a.c_str(), &first) != 0 || stat(b.c_str(), &second) != 0) return a == b;
  return first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

bool Holds(const std::vector<std::unique_ptr<CDocument>>& documents, const CDocument* document) {
  return std::any_of(documents.begin(), documents.end(),
                     [&](const auto& held) { return held.get() == document; });
}

/// The documents of now: the list itself changes when one of them is released.
std::vector<CDocument*> Snapshot(const std::vector<std::unique_ptr<CDocument>>& documents) {
  std::vector<CDocument*> pointers(documents.size());
  std::transform(documents.begin(), documents.end(), pointers.begin(),
                 [](const auto& held) { return held.get(); });
  return pointers;
}

}  // namespace

CMultiDocTemplateWithID& CWinApp::AddDocTemplate(std::unique_ptr<CMultiDocTemplateWithID> docTemplate) {
  templates_.push_back(std::move(docTemplate));
  return *templates_.back();
}

CDocument* CWinApp::OnFileNew() {
  if (IsBusy()) return nullptr;
  std::vector<const CMultiDocTemplateWithID*> offered;
  std::vector<std::string> names;
  for (const auto& docTemplate : templates_) {
    const std::string& name = docTemplate->Strings().fileNewName;
    if (name.empty()) continue;
    offered.push_back(docTemplate.get());
    names.push_back(name);
  }
  if (offered.empty()) return nullptr;
  const std::optional<std::size_t> choice = offered.size() > 1 ? prompts_.SelectType(names) : 0;
  return choice ? OpenNewDocument(*offered.at(*choice)) : nullptr;
}

CDocument* CWinApp::OpenNewDocument(const CMultiDocTemplateWithID& docTemplate) {
  std::unique_ptr<CDocument> document = docTemplate.CreateNewDocument(*this);
  document->SetTitle(NextUntitledTitle(docTemplate.Strings().docName));
  if (!document->OnNewDocument()) return nullptr;
  return AddDocument(std::move(document));
}

bool CWinApp::IsTitleUsed(const std::string& title) const {
  return std::ranges::any_of(documents_, [&](const auto& held) { return held->GetTitle() == title; });
}

/// A recovered document may have one of the titles already.
std::string CWinApp::NextUntitledTitle(const std::string& docName) {
  std::string title;
  do title = fmt::format("{}{}", docName, ++untitledCounts_[docName]);
  while (IsTitleUsed(title));
  return title;
}

CDocument* CWinApp::OnFileOpen() {
  if (IsBusy()) return nullptr;
  FilePrompt prompt{.title = "Open", .filters = {}, .folder = {}, .name = {}};
  for (const auto& docTemplate : templates_) prompt.filters.push_back(docTemplate->Filter());
  prompt.filters.push_back(kAllFiles);
  const std::optional<std::string> path = prompts_.OpenFileName(prompt);
  return path ? OpenDocumentFile(*path) : nullptr;
}

CDocument* CWinApp::OnOpenRecentFile(std::size_t position) {
  if (IsBusy() || position >= recentFiles_.Paths().size()) return nullptr;
  const std::string path = recentFiles_.Paths()[position];
  CDocument* document = OpenDocumentFile(path);
  std::error_code ignored;
  if (!document && !std::filesystem::exists(path, ignored)) recentFiles_.Remove(path);
  return document;
}

CDocument* CWinApp::OpenDocumentFile(const std::string& path) {
  if (IsBusy()) return nullptr;
  if (CDocument* open = FindOpenDocument(path, nullptr)) {
    frames_.ActivateFrame(*open);
    return open;
  }
  std::unique_ptr<CDocument> document = TemplateFor(path).CreateNewDocument(*this);
  if (!document->OnOpenDocument(path)) return nullptr;
  document->SetPathName(path);
  return AddDocument(std::move(document));
}

const CMultiDocTemplateWithID& CWinApp::TemplateFor(const std::string& path) const {
  assert(!templates_.empty());
  const auto match = std::find_if(templates_.begin(), templates_.end(),
                                  [&](const auto& docTemplate) { return docTemplate->MatchesPath(path); });
  return match == templates_.end() ? *templates_.front() : **match;
}

CDocument* CWinApp::AddDocument(std::unique_ptr<CDocument> document) {
  documents_.push_back(std::move(document));
  CDocument& adopted = *documents_.back();
  frames_.OpenFrame(adopted);
  frames_.RequestIdle();
  return &adopted;
}

CDocument* CWinApp::FindOpenDocument(const std::string& path, const CDocument* except) const {
  const auto found = std::find_if(documents_.begin(), documents_.end(), [&](const auto& document) {
    return document.get() != except && !document->GetPathName().empty() &&
           IsSameFile(document->GetPathName(), path);
  });
  return found == documents_.end() ? nullptr : found->get();
}

CDocument* CWinApp::FindOtherDocument(const CDocument& document, const std::string& path) {
  return FindOpenDocument(path, &document);
}

bool CWinApp::SaveAllModified() {
  for (CDocument* document : Snapshot(documents_)) {
    if (document->IsModified()) frames_.ActivateFrame(*document);
    if (!document->SaveModified()) return false;
  }
  return true;
}

bool CWinApp::CloseAllDocuments() {
  if (IsBusy() || !SaveAllModified()) return false;
  for (CDocument* document : Snapshot(documents_)) ReleaseDocument(*document);
  return true;
}

void CWinApp::OnIdle() {
  if (IsBusy()) {
    idleMissed_ = true;
    return;
  }
  idleMissed_ = false;
  std::erase_if(released_, [](const auto& document) { return document->Views().empty(); });
  BeginBusy();
  for (CDocument* document : Snapshot(documents_))
    if (Holds(documents_, document)) document->OnIdle();
  EndBusy();
}

void CWinApp::EndBusy() {
  --busy_;
  if (busy_ == 0 && idleMissed_) frames_.RequestIdle();
}

void CWinApp::OnPathNameSet(CDocument& document) {
  recentFiles_.Add(document.GetPathName());
}

void CWinApp::ReleaseDocument(CDocument& document) {
  frames_.RequestIdle();
  const auto held = std::find_if(documents_.begin(), documents_.end(),
                                 [&](const auto& candidate) { return candidate.get() == &document; });
  if (held == documents_.end()) return;  // released already; this is the end of its last view
  released_.push_back(std::move(*held));
  documents_.erase(held);
  document.OnCloseDocument();
  if (!document.Views().empty()) frames_.CloseFrames(document);  // else the last frame is closing just now
}

}  // namespace quorvel
