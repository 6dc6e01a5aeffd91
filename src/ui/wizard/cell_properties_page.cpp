#include "ui/wizard/cell_properties_page.h"

#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>

#include "data/class_def.h"
#include "data/list_def.h"
#include "data/member_kinds.h"
#include "render/display_text.h"
#include "ui/dialogs/dialog_builder.h"
#include "ui/resources/shown_text.h"
#include "ui/resources/wizard_templates.h"
#include "ui/wizard/name_list.h"
#include "ui/wizard/origin_picker.h"
#include "ui/wizard/roomy_rows.h"
#include "ui/wizard/share_column.h"
#include "ui/wizard/share_slider.h"
#include "ui/wizard/value_list.h"

namespace quorvel {
namespace {

enum PropertyColumn { kName, kType };
constexpr double kNameColumnPart = 0.6;
constexpr double kTypeColumnPart = 0.4;

/// Room left free around a control in a heading.
constexpr int kHeadingMarginPx = 2;

QStringList ItemNames(const MemberDef& member) {
  QStringList names;
  const auto* list = static_cast<const ListDef*>(member.GetRefType());
  if (!list) return names;
  for (const std::string& name : list->ItemNames()) names += DisplayText(name);
  return names;
}

}  // namespace

CWizCellProperties::CWizCellProperties(SettingsMode mode)
    : CPropertyPage(kCellPropertiesTemplate), m_nMode(mode) {}

CWizCellProperties::~CWizCellProperties() = default;

QString CWizCellProperties::Purpose() const {
  switch (m_nMode) {
    case SettingsMode::Value:
      return tr("Show only the cells that have one of the values of every selected property.");
    case SettingsMode::Global:
      return tr("Values spread at random over the whole map, and the share of each.");
    case SettingsMode::Region:
      return tr("Values laid out as regions that grow from their origins until they meet.");
  }
  return {};
}

std::unique_ptr<CPropertySettingList> CWizCellProperties::SetSettingList(
    std::unique_ptr<CPropertySettingList> settings) {
  if (m_pValues) m_pValues->SetSetting(nullptr);
  if (m_pPicker) m_pPicker->SetCurrent(nullptr, nullptr);
  if (m_pPropertyList) m_pPropertyList->clear();
  m_nProperty = m_nValue = -1;
  return std::exchange(m_pSettings, std::move(settings));
}

QWidget* CWizCellProperties::MakeControl(const ControlRow& row) {
  switch (row.id) {
    case IDC_PROPERTIES:
      return m_pPropertyList = new QTreeWidget(this);
    case IDC_VALUES:
      m_pValues = new ValueListModel(m_nMode == SettingsMode::Value ? ValueListModel::Percentages::Hidden
                                                                    : ValueListModel::Percentages::Shown,
                                     this);
      return m_pValueList = new ValueList(*m_pValues, this);
    case IDC_NAME_LIST:
      return m_pNameList = new NameList(this);
    case IDC_ORIGIN_PICKER:
      return m_pPicker = new COriginPicker(this);
    default:
      return nullptr;
  }
}

void CWizCellProperties::OnInitDialog() {
  CPropertyPage::OnInitDialog();
  m_pSetOrigin = FindControl<QPushButton>(*this, IDC_SET_ORIGIN);
  m_pCoverageSlider = new CShareSlider(this);
  m_pCoverageButton = new CShareButton(this);
  m_pShares = new ShareColumn(*m_pValueList, this);
  m_pCoverageSlider->setAccessibleName(tr("Coverage"));
  ConnectControls();
  OrderTabs();
  for (QWidget* control :
       {static_cast<QWidget*>(m_pCoverageSlider), static_cast<QWidget*>(m_pCoverageButton)}) {
    control->hide();
  }
  m_pPropertyList->setHeaderHidden(!m_pCellClass);
  m_pValueList->setHeaderHidden(!m_pCellClass);
  if (!m_pCellClass) return;

  BuildSettingList();
  FillPropertyList();
  PrepareOriginPicker();
  if (m_pPropertyList->topLevelItemCount() > 0)
    m_pPropertyList->setCurrentItem(m_pPropertyList->topLevelItem(0));
}

void CWizCellProperties::ConnectControls() {
  connect(m_pPropertyList, &QTreeWidget::currentItemChanged, this, &CWizCellProperties::SelectProperty);
  connect(m_pPropertyList, &QTreeWidget::itemDoubleClicked, this, &CWizCellProperties::AddValue);
  connect(FindControl<QPushButton>(*this, IDC_ADD_VALUE), &QPushButton::clicked, this,
          &CWizCellProperties::AddValue);
  connect(FindControl<QPushButton>(*this, IDC_REMOVE_VALUES), &QPushButton::clicked, this,
          &CWizCellProperties::RemoveSelectedValues);
  connect(m_pValueList, &ValueList::DeletePressed, this, &CWizCellProperties::RemoveSelectedValues);
  connect(m_pValueList, &ValueList::F2Pressed, this, [this] { BeginLabelEdit(m_nValue); });
  connect(m_pValueList, &ValueList::LabelEditAsked, this, [this](int row) {
    PickValue(row);
    BeginLabelEdit(row);
  });
  connect(m_pValueList, &ValueList::Chosen, this, &CWizCellProperties::ChooseValue);
  connect(m_pValueList, &ValueList::DoubleClicked, this, &CWizCellProperties::EditValue);
  connect(m_pValueList, &ValueList::PlacesChanged, this, &CWizCellProperties::PlaceOverlays);
  connect(m_pNameList, &NameList::ClosedUp, this, &CWizCellProperties::CloseNameList);
  connect(m_pSetOrigin, &QPushButton::clicked, this, &CWizCellProperties::ToggleOriginPicker);
  connect(m_pCoverageSlider, &CShareSlider::Moved, this,
          [this](int percent) { m_pValues->SetCoverage(static_cast<float>(percent)); });
}

void CWizCellProperties::OrderTabs() {
  QWidget* const order[] = {FindControl<QPushButton>(*this, IDC_ADD_VALUE),
                            m_pCoverageSlider,
                            m_pCoverageButton,
                            m_pValueList,
                            m_pPicker,
                            FindControl<QPushButton>(*this, IDC_REMOVE_VALUES),
                            m_pSetOrigin};
  for (std::size_t i = 1; i < std::size(order); ++i) setTabOrder(order[i - 1], order[i]);
}

void CWizCellProperties::BuildSettingList() {
  if (m_pSettings) return;
  m_pSettings = std::make_unique<CPropertySettingList>();
  const CoverageControl control =
      m_nMode == SettingsMode::Value ? CoverageControl::Button : CoverageControl::Slider;
  for (const auto& member : m_pCellClass->Members()) m_pSettings->Add(member.get(), control);
}

void CWizCellProperties::FillPropertyList() {
  const int clientWidth = m_pPropertyList->width() - 2 * m_pPropertyList->frameWidth();
  const int nameWidth = static_cast<int>(clientWidth * kNameColumnPart);
  m_pPropertyList->setColumnCount(2);
  m_pPropertyList->setHeaderLabels({tr("Name"), tr("Type")});
  m_pPropertyList->setItemDelegate(new RoomyRows(m_pPropertyList));
  m_pPropertyList->setRootIsDecorated(false);
  m_pPropertyList->setUniformRowHeights(true);
  m_pPropertyList->setAllColumnsShowFocus(true);
  m_pPropertyList->header()->setSectionsMovable(false);
  m_pPropertyList->setColumnWidth(kName, nameWidth);
  m_pPropertyList->setColumnWidth(kType, static_cast<int>(clientWidth * kTypeColumnPart));

  const int headingHeight = m_nMode == SettingsMode::Value ? m_pCoverageButton->sizeHint().height()
                                                           : m_pCoverageSlider->sizeHint().height();
  m_pPropertyList->header()->setMinimumHeight(headingHeight + 2 * kHeadingMarginPx);
  m_pValueList->ArrangeColumns(nameWidth, headingHeight + 2 * kHeadingMarginPx);

  QList<QTreeWidgetItem*> rows;
  for (const auto& setting : m_pSettings->GetSettings()) {
    if (const MemberDef* member = setting->GetMember()) {
      rows +=
          new QTreeWidgetItem({DisplayText(member->GetName()), FromResource(KindName(member->GetKind()))});
      rows.back()->setData(kName, Qt::UserRole, QVariant::fromValue(static_cast<void*>(setting.get())));
    }
  }
  m_pPropertyList->addTopLevelItems(rows);
}

void CWizCellProperties::PrepareOriginPicker() {
  m_pSetOrigin->setVisible(m_nMode == SettingsMode::Region);
  ShowOriginPicker(m_nMode == SettingsMode::Region);
}

int CWizCellProperties::SelectedProperty() const {
  return m_pPropertyList->indexOfTopLevelItem(m_pPropertyList->currentItem());
}

CPropertySetting* CWizCellProperties::SettingAt(int row) const {
  const QTreeWidgetItem* item = m_pPropertyList->topLevelItem(row);
  return item ? static_cast<CPropertySetting*>(item->data(kName, Qt::UserRole).value<void*>()) : nullptr;
}

void CWizCellProperties::SelectProperty() {
  const int row = SelectedProperty();
  if (row < 0 || row == m_nProperty) return;
  m_nProperty = row;
  CPropertySetting* setting = SettingAt(row);
  m_pPicker->SetCurrent(setting, nullptr);
  m_pValues->SetSetting(setting);
  ShowCoverage();
}

void CWizCellProperties::ShowCoverage() {
  CPropertySetting* setting = m_pValues->Setting();
  const CoverageControl control = setting ? setting->GetControl() : CoverageControl::None;
  m_pCoverageButton->SetSetting(setting);
  m_pCoverageSlider->ShowPercent(setting ? setting->GetCoverage() : 0.0F);
  m_pCoverageButton->setVisible(control == CoverageControl::Button);
  m_pCoverageSlider->setVisible(control == CoverageControl::Slider);
}

void CWizCellProperties::PlaceOverlays() {
  const QRect heading =
      m_pValueList->HeadingPlace(ValueListModel::kSlider)
          .adjusted(kHeadingMarginPx, kHeadingMarginPx, -kHeadingMarginPx, -kHeadingMarginPx);
  m_pCoverageSlider->setGeometry(heading);
  m_pCoverageButton->setGeometry(heading);
  m_pPicker->setGeometry(m_pValueList->ColumnPlace(ValueListModel::kSlider));
}

void CWizCellProperties::AddValue() {
  if (!m_pValues->Setting()) return;
  m_pValues->AddValue();
  if (m_nValue < 0) PickValue(0);
}

void CWizCellProperties::RemoveSelectedValues() {
  for (int row = m_pValueList->FirstSelectedRow(); row >= 0; row = m_pValueList->FirstSelectedRow()) {
    if (m_pValues->ValueAt(row) == m_pPicker->CurrentValue())
      m_pPicker->SetCurrent(m_pValues->Setting(), nullptr);
    m_pValues->RemoveValue(row);
  }
  m_pPicker->update();
}

void CWizCellProperties::ChooseValue() {
  const int row = m_pValueList->FirstSelectedRow();
  if (row >= 0) PickValue(row);
}

void CWizCellProperties::PickValue(int row) {
  m_nValue = row;
  m_pPicker->SetCurrent(m_pValues->Setting(), m_pValues->ValueAt(row));
}

void CWizCellProperties::EditValue() {
  ChooseValue();
  const int row = m_pValueList->FirstSelectedRow();
  if (row >= 0) BeginLabelEdit(row);
}

void CWizCellProperties::BeginLabelEdit(int row) {
  const CValueSetting* value = m_nValue < 0 ? nullptr : m_pValues->ValueAt(row);
  if (!value) return;
  const MemberDef& member = *value->GetOwner().GetMember();
  switch (member.GetKind()) {
    case MemberKind::String:
    case MemberKind::Int:
    case MemberKind::Float:
      m_pValueList->EditLabel(row);
      break;
    case MemberKind::Index:
      m_pNameList->setAccessibleDescription(DisplayText(member.GetName()));
      m_pNameList->Open(ItemNames(member), m_pValueList->CellPlace(row, ValueListModel::kValue));
      break;
    case MemberKind::Object:
      break;
  }
}

void CWizCellProperties::CloseNameList() {
  const CValueSetting* value = m_pValues->ValueAt(m_nValue);
  if (value && value->GetOwner().GetMember()->GetKind() == MemberKind::Index) {
    m_pValues->SetItem(m_nValue, m_pNameList->currentIndex());
  }
  m_pNameList->hide();
  m_pValueList->setFocus();
}

void CWizCellProperties::ToggleOriginPicker() {
  if (m_nMode == SettingsMode::Region) ShowOriginPicker(!m_bPickerShown);
}

void CWizCellProperties::ShowOriginPicker(bool show) {
  m_bPickerShown = show;
  m_pPicker->setVisible(show);
  m_pPicker->raise();
  m_pSetOrigin->setChecked(show);
  const bool hasSliders = m_nMode != SettingsMode::Value && !show;
  m_pShares->Show(hasSliders ? ShareColumn::Sliders::Shown : ShareColumn::Sliders::Hidden);
}

}  // namespace quorvel
