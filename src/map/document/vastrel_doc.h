#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "map/document/map_journal.h"
#include "map/document/services.h"
#include "map/fill/property_settings.h"
#include "map/types/map_contents.h"
#include "platform/documents/document.h"

namespace quorvel {

/// Number of the template whose documents ask for the form of the file when they get a new name.
constexpr int kProductMapTemplate = 102;

enum class ToolCursor { Pointer, Paint };

/// The document of the editor: one open map and the state of working on it. Holds state; what is done with it
/// (reading and writing, the new map, editing) stands in files of its own.
///
/// The map changes in two ways only: one value of one cell, by StoreCellValue, or all of it, by Adopt and the
/// fill of a new map.
class CVastrelDoc : public CDocument, public MapContents, public CellListener {
 public:
  explicit CVastrelDoc(Services& services);
  ~CVastrelDoc() override;

  Services& GetServices() const { return services_; }

  bool OnNewDocument() override;
  bool OnSaveDocument(const std::string& path) override;
  void OnCloseDocument() override;
  /// A product map that gets a new name first asks for its form; none chosen: nothing is saved.
  bool DoSave(const std::optional<std::string>& path, Replace replace) override;
  /// Makes the new map when there is none yet; once.
  void OnIdle() override;

  /// Reads the default definitions file into `file` and builds the types from it. True when it could be read
  /// and the error text is empty.
  bool LoadDefaultDefinitions(DataBranch& file, std::string& errorText);
  /// Loads the default definitions, asks for size and settings, makes the grid and fills it. True when the
  /// error text is empty at the end.
  bool CreateNewMap(std::string& errorText);

  /// Takes a whole map in place of what there is, and redraws.
  void Adopt(MapContents&& contents);

  /// Takes the map that an abandoned journal keeps, as a modified document under its old title and path, and
  /// continues the journal.
  void Recover(const JournalHead& head, MapContents&& contents, std::unique_ptr<EditJournal> journal);

  /// Stores a slot's value (null: the default) of a member of the cell class in one cell. The record must
  /// have its instance. Of an object member nothing is stored or redrawn, but the new record is a change too.
  void StoreCellValue(const CellRecord& record, const MemberDef& member, const void* value);
  /// Shows an error text to the user.
  void ReportErrors(const std::string& errorText);
  /// Redraws one cell.
  void OnCellChanged(const CellRecord& record) override;

  ToolCursor m_hToolCursor = ToolCursor::Pointer;
  bool m_bStarted = false;                          ///< the new map was begun
  std::unique_ptr<CPropertySettingList> m_pFilter;  ///< null: none chosen
  int m_nTool = 0;                                  ///< 0: pointer, 1: cell property
  std::unique_ptr<CellCoord> m_pCurrentCell = std::make_unique<CellCoord>();  ///< the cell under the pointer
  std::uint8_t m_bMarkMode = 0;  ///< bit 0: the pointer tool marks
  bool m_bStrokeEnded = false;   ///< memory ran out in the stroke of the tool that is not released yet
  int m_nNextEditorId = 10000;
  std::vector<MemberDef*> m_editors;  ///< members whose editor is shown in the tool options, in order
  int m_nPaintIndex = 0;              ///< position of the member selected in the tool options
  MemberDef* m_pPaintMember = nullptr;

 protected:
  Outcome Serialize(CArchive& archive) override;

 private:
  Outcome Load(CArchive& archive);
  Outcome Store(CArchive& archive);
  void DropMap();
  bool BeginJournal(Feedback& feedback, std::string& errorText);
  void KeepMap(Feedback& feedback);
  void KeepValue(const CellRecord& record, const MemberDef& member);
  void TellNotKept(const std::string& reason);
  void MakeEmptyMap(int width, int height, std::string& errorText);
  void FillNewMap(NewMapChoice&& choice, std::string& errorText);

  Services& services_;
  MapJournal journal_;
};

}  // namespace quorvel
