#pragma once

#include <QAbstractTableModel>

namespace quorvel {

class CPropertySetting;
class CValueSetting;

/// The values of one property as rows: the value, room for the share's slider, the share. Column 0 can be
/// edited as text.
class ValueListModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { kValue, kSlider, kShare, kColumnCount };
  enum class Percentages { Hidden, Shown };

  ValueListModel(Percentages percentages, QObject* parent);

  /// Shows the values of `setting` (not owned; null: none), with its member's name and its coverage as
  /// headings.
  void SetSetting(CPropertySetting* setting);
  CPropertySetting* Setting() const { return m_pSetting; }
  /// Null when there is no such row.
  CValueSetting* ValueAt(int row) const;

  void AddValue();
  void RemoveValue(int row);
  void SetShare(const CValueSetting& value, float percent);
  void SetCoverage(float percent);
  /// The value of the row is this item of the member's list; -1 for none.
  void SetItem(int row, int position);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  QString Text(const CValueSetting& value, int column) const;
  void TellShares();

  const Percentages percentages_;
  CPropertySetting* m_pSetting = nullptr;
};

}  // namespace quorvel
