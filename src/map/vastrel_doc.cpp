#include "map/vastrel_doc.h"

#include <new>
#include <utility>

#include "map/map_reader.h"
#include "map/map_writer.h"
#include "map/paint_tool.h"
#include "platform/doc_template.h"

namespace quorvel {

CVastrelDoc::CVastrelDoc(Services& services) : CDocument(services.prompts), services_(services) {}

CVastrelDoc::~CVastrelDoc() = default;

bool CVastrelDoc::OnNewDocument() {
  return CDocument::OnNewDocument();
}

bool CVastrelDoc::DoSave(const std::optional<std::string>& path, Replace replace) {
  const CMultiDocTemplateWithID* docTemplate = GetDocTemplate();
  if (!path && docTemplate != nullptr && docTemplate->GetResourceID() == kProductMapTemplate) {
    const std::optional<int> form = services_.mapDialogs.ChooseDataType(kDataTypeNames, m_nDataType);
    if (!form) return false;
    m_nDataType = *form;
  }
  return CDocument::DoSave(path, replace);
}

void CVastrelDoc::OnIdle() {
  if (m_bStarted || m_pGrid != nullptr) return;
  m_bStarted = true;  // before anything that pumps messages, and with them this
  std::string errorText;
  try {
    CreateNewMap(errorText);
  } catch (const std::bad_alloc&) {
    errorText += "There is not enough memory for the map.\n";
  }
  if (errorText.empty()) return;
  ReportErrors(errorText);
  OnFileClose();
}

bool CVastrelDoc::Serialize(CArchive& archive) {
  return archive.IsLoading() ? Load(archive) : Store(archive);
}

bool CVastrelDoc::Load(CArchive& archive) {
  std::string errorText;
  MapContents contents = LoadMapFile(archive.File(), services_.feedback, errorText);
  if (!archive.FileError().empty()) return false;  // a part of a file is no map
  const bool loaded = contents.m_pGrid != nullptr;
  if (loaded) Adopt(std::move(contents));
  if (!errorText.empty()) ReportErrors(errorText);
  return loaded;
}

bool CVastrelDoc::Store(CArchive& archive) {
  std::string errorText;
  const std::optional<MapFilePlan> plan = PlanMapFile(*this, GetTitle(), errorText);
  if (!plan) {
    ReportErrors(errorText);
    return false;
  }
  if (!archive.Reserve(plan->fileBytes)) return false;
  SaveMap(*plan, *this, archive.File(), services_.feedback);
  return archive.FileError().empty();
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
}

void CVastrelDoc::StoreCellValue(const CellRecord& record, const MemberDef& member, const void* value) {
  member.SetValue(record.data, value);
  SetModifiedFlag();
  OnCellChanged(record);
  if (journal_ != nullptr) journal_->OnCellChanged(record);
}

void CVastrelDoc::OnCellChanged(const CellRecord& record) {
  UpdateAllViews(nullptr, {UpdateHint::Cell, {record.column, record.row}, {}});
}

}  // namespace quorvel
