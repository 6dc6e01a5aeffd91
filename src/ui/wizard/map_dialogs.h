#pragma once

#include <QPointer>
#include <QWidget>

#include "map/document/services.h"

namespace quorvel {

/// The dialogs about maps as windows, modal over `parent`, without one over the active window.
class WindowMapDialogs : public MapDialogs {
 public:
  explicit WindowMapDialogs(QWidget* parent) : parent_(parent) {}

  std::optional<FileForm> ChooseDataType(FileForm selected) override;
  std::optional<NewMapChoice> ChooseNewMap(const MapSizeLimits& limits, const ClassDef* cellClass) override;
  std::optional<CPropertySettingList> ChooseFilter(const CPropertySettingList* current,
                                                   const ClassDef* cellClass) override;

 private:
  QWidget* Parent() const;

  QPointer<QWidget> parent_;
};

}  // namespace quorvel
