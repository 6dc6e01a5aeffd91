#include "map/document/vastrel_doc.h"

#include <new>
#include <utility>

#include "map/document/paint_tool.h"
#include "map/file/map_reader.h"
#include "map/file/map_writer.h"
#include "platform/documents/doc_template.h"

namespace quorvel {

CVastrelDoc::CVastrelDoc(Services& services)
    : CDocument(services.prompts), services_(services), journal_(services.journalsFolder) {}

CVastrelDoc::~CVastrelDoc() = default;

bool CVastrelDoc::OnNewDocument() {
  return CDocument::OnNewDocument();
}

bool CVastrelDoc::OnSaveDocument(const std::string& path) {
  if (!CDocument::OnSaveDocument(path)) return false;
  journal_.Remove();
  return true;
}

void CVastrelDoc::OnCloseDocument() {
  journal_.Remove();
}

bool CVastrelDoc::DoSave(const std::optional<std::string>& path, Replace replace) {
  const CMultiDocTemplateWithID* docTemplate = GetDocTemplate();
  if (!path && docTemplate && docTemplate->GetResourceID() == kProductMapTemplate) {
    const std::optional<FileForm> form = services_.mapDialogs.ChooseDataType(FormOf(*this));
    if (!form) return false;
    m_nDataType = DataTypeOf(*form);
  }
  return CDocument::DoSave(path, replace);
}

void CVastrelDoc::OnIdle() {
  if (m_bStarted || m_pGrid) return;
  m_bStarted = true;  // before anything that pumps messages, and with them this
  std::string errorText;
  try {
    CreateNewMap(errorText);
  } catch (const std::bad_alloc&) {
    DropMap();  // it is filled in part
    errorText += "There is not enough memory for the map.\n";
  }
  if (errorText.empty()) return;
  ReportErrors(errorText);
  OnFileClose();
}

void CVastrelDoc::DropMap() {
  m_pGrid.reset();
  m_pCellMarks.reset();
  SetModifiedFlag(false);
  UpdateAllViews(nullptr);
}

Outcome CVastrelDoc::Serialize(CArchive& archive) {
  return archive.IsLoading() ? Load(archive) : Store(archive);
}

Outcome CVastrelDoc::Load(CArchive& archive) {
  std::string errorText;
  MapContents contents;
  const Outcome outcome = LoadMapFile(archive.File(), contents, services_.feedback, errorText);
  if (!archive.FileError().empty()) return Outcome::FileTrouble;  // a part of a file is no map
  if (outcome == Outcome::NoMemory) return outcome;
  if (outcome == Outcome::Done) Adopt(std::move(contents));
  if (!errorText.empty()) ReportErrors(errorText);
  return outcome;
}

Outcome CVastrelDoc::Store(CArchive& archive) {
  std::string errorText;
  const std::optional<MapFilePlan> plan = PlanMapFile(*this, GetTitle(), errorText);
  if (!plan) {
    ReportErrors(errorText);
    return Outcome::Refused;
  }
  if (archive.Reserve(plan->fileBytes)) SaveMap(*plan, *this, archive.File(), services_.feedback);
  return archive.FileError().empty() ? Outcome::Done : Outcome::FileTrouble;
}

void CVastrelDoc::ReportErrors(const std::string& errorText) {
  services_.prompts.Message("Map file error:\n\n" + errorText, MessageButtons::Ok, MessageIcon::Exclamation);
}

void CVastrelDoc::Adopt(MapContents&& contents) {
  m_pFilter.reset();  // what names members of the old types goes first
  m_editors.clear();
  m_nNextEditorId = kLastBarControl;
  m_nPaintIndex = 0;
  m_pPaintMember = nullptr;
  *m_pCurrentCell = {};
  static_cast<MapContents&>(*this) = std::move(contents);
  UpdateAllViews(nullptr);
  NullFeedback nobody;
  if (journal_.IsOpen()) KeepMap(nobody);
}

void CVastrelDoc::Recover(const JournalHead& head, MapContents&& contents,
                          std::unique_ptr<EditJournal> journal) {
  Adopt(std::move(contents));
  journal_.Resume(std::move(journal));
  if (head.path.empty()) {
    SetTitle(head.title);
  } else {
    ResumeFile(head.path, head.stamp);
  }
  SetModifiedFlag();
}

void CVastrelDoc::StoreCellValue(const CellRecord& record, const MemberDef& member, const void* value) {
  member.SetValue(record.data, value);
  SetModifiedFlag();
  if (member.GetKind() != MemberKind::Object) OnCellChanged(record);
  KeepValue(record, member);
}

bool CVastrelDoc::BeginJournal(Feedback& feedback, std::string& errorText) {
  const CMultiDocTemplateWithID* docTemplate = GetDocTemplate();
  return journal_.Begin({.templateId = docTemplate ? docTemplate->GetResourceID() : 0,
                         .dataType = m_nDataType,
                         .title = GetTitle(),
                         .path = GetPathName(),
                         .stamp = Stamp(),
                         .cellClass = {}},
                        *this, feedback, errorText);
}

/// Makes the map as it is the base state of the changes to come.
void CVastrelDoc::KeepMap(Feedback& feedback) try {
  std::string errorText;
  if (!BeginJournal(feedback, errorText)) TellNotKept(errorText);
} catch (const std::bad_alloc&) {
  TellNotKept("There is not enough memory.\n");  // the next change tries again
}

/// A base state kept as text may not hold the value to the bit, so the first one is added like all others.
void CVastrelDoc::KeepValue(const CellRecord& record, const MemberDef& member) {
  NullFeedback nobody;  // no window may come alive in the middle of an edit
  if (!journal_.IsOpen() && !journal_.HasFailed()) KeepMap(nobody);
  std::string errorText;
  if (journal_.IsOpen() && !journal_.HasFailed() && !journal_.Add(record, member, errorText))
    TellNotKept(errorText);
}

/// Once until the next save, and where it interrupts nobody.
void CVastrelDoc::TellNotKept(const std::string& reason) {
  services_.feedback.SetMessageText("Changes are not kept safe from a crash: " +
                                    reason.substr(0, reason.find('\n')));
}

void CVastrelDoc::OnCellChanged(const CellRecord& record) {
  UpdateAllViews(nullptr, {UpdateHint::Cell, {record.column, record.row}, {}});
}

}  // namespace quorvel
