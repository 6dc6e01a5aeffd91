#pragma once

#include <memory>

#include "map/fill/property_settings.h"
#include "ui/wizard/property_page.h"

class QPushButton;
class QTreeWidget;

namespace quorvel {

class ClassDef;
class COriginPicker;
class CShareButton;
class CShareSlider;
class NameList;
class ShareColumn;
class ValueList;
class ValueListModel;

/// What a page of cell properties is for: the filter's values, values spread over the whole map, values laid
/// out as regions around origins.
enum class SettingsMode { Value = 0, Global = 1, Region = 2 };

/// The wizard page that collects a list of values for each member of the cell class.
class CWizCellProperties : public CPropertyPage {
  Q_OBJECT

 public:
  explicit CWizCellProperties(SettingsMode mode = SettingsMode::Global);
  ~CWizCellProperties() override;

  QString Purpose() const override;

  /// The class whose members are offered, not owned. Without it the page stays empty.
  void SetCellClass(const ClassDef* cellClass) { m_pCellClass = cellClass; }

  /// Takes a list to edit (null: one is made from the class when the page is first shown) and hands the
  /// previous one back.
  std::unique_ptr<CPropertySettingList> SetSettingList(std::unique_ptr<CPropertySettingList> settings);

 protected:
  QWidget* MakeControl(const ControlRow& row) override;
  void OnInitDialog() override;

 private:
  void ConnectControls();
  void BuildSettingList();
  void FillPropertyList();
  void PrepareOriginPicker();
  void OrderTabs();

  int SelectedProperty() const;
  CPropertySetting* SettingAt(int row) const;
  void SelectProperty();
  void ShowCoverage();
  void PlaceOverlays();

  void AddValue();
  void RemoveSelectedValues();
  void ChooseValue();
  void PickValue(int row);

  void EditValue();
  void BeginLabelEdit(int row);
  void CloseNameList();

  void ToggleOriginPicker();
  void ShowOriginPicker(bool show);

  const ClassDef* m_pCellClass = nullptr;
  const SettingsMode m_nMode;
  bool m_bPickerShown = false;
  std::unique_ptr<CPropertySettingList> m_pSettings;
  int m_nProperty = -1;
  int m_nValue = -1;

  QTreeWidget* m_pPropertyList = nullptr;
  ValueListModel* m_pValues = nullptr;
  ValueList* m_pValueList = nullptr;
  ShareColumn* m_pShares = nullptr;
  NameList* m_pNameList = nullptr;
  COriginPicker* m_pPicker = nullptr;
  QPushButton* m_pSetOrigin = nullptr;
  CShareSlider* m_pCoverageSlider = nullptr;
  CShareButton* m_pCoverageButton = nullptr;
};

}  // namespace quorvel
