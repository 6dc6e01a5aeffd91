#include "ui/wizard/map_dialogs.h"

#include <QApplication>

#include "map/fill/fill_settings.h"
#include "ui/dialogs/version_data_dialog.h"
#include "ui/resources/shown_text.h"
#include "ui/wizard/cell_properties_page.h"
#include "ui/wizard/map_properties_page.h"
#include "ui/wizard/map_wizard.h"

namespace quorvel {
namespace {

/// Where the definitions say nothing the sliders range over all that a new map may have.
void GiveSizeLimits(CWizMapProperties& page, const MapSizeLimits& limits) {
  const int minWidth = limits.minWidth.value_or(1);
  const int minHeight = limits.minHeight.value_or(1);
  page.SetSizeLimits(minWidth, minHeight, limits.maxWidth.value_or(kMaxNewMapSide),
                     limits.maxHeight.value_or(kMaxNewMapSide), limits.defaultWidth.value_or(minWidth),
                     limits.defaultHeight.value_or(minHeight));
}

/// The page's list; empty when the page made none.
CPropertySettingList TakeSettings(CWizCellProperties& page) {
  const std::unique_ptr<CPropertySettingList> settings = page.SetSettingList(nullptr);
  return settings ? std::move(*settings) : CPropertySettingList();
}

}  // namespace

QWidget* WindowMapDialogs::Parent() const {
  return parent_ ? parent_.data() : QApplication::activeWindow();
}

std::optional<FileForm> WindowMapDialogs::ChooseDataType(FileForm selected) {
  QStringList choices;
  for (const std::string_view name : kDataTypeNames) choices += FromResource(name);
  CVersionDataDialog dialog(Parent());
  dialog.SetChoices(choices, DataTypeOf(selected));
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return FileFormOf(dialog.GetSelected());
}

std::optional<NewMapChoice> WindowMapDialogs::ChooseNewMap(const MapSizeLimits& limits,
                                                           const ClassDef* cellClass) {
  CWizMapProperties size;
  CWizCellProperties global(SettingsMode::Global);
  CWizCellProperties region(SettingsMode::Region);
  GiveSizeLimits(size, limits);
  global.SetCellClass(cellClass);
  region.SetCellClass(cellClass);

  CMapWizard wizard(Parent());
  wizard.AddPage(size);
  wizard.AddPage(global);
  wizard.AddPage(region);
  if (wizard.DoModal() != ID_WIZFINISH) return std::nullopt;
  return NewMapChoice{size.GetWidth(), size.GetHeight(), TakeSettings(global), TakeSettings(region)};
}

std::optional<CPropertySettingList> WindowMapDialogs::ChooseFilter(const CPropertySettingList* current,
                                                                   const ClassDef* cellClass) {
  CWizCellProperties page(SettingsMode::Value);
  if (current) page.SetSettingList(std::make_unique<CPropertySettingList>(current->Copy()));
  page.SetCellClass(cellClass);

  CMapWizard wizard(Parent());
  wizard.AddPage(page);
  if (wizard.DoModal() != ID_WIZFINISH) return std::nullopt;
  return TakeSettings(page);
}

}  // namespace quorvel
