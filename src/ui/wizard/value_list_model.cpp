#include "ui/wizard/value_list_model.h"

#include <cstdint>

#include "map/fill/property_settings.h"
#include "render/display_text.h"

namespace quorvel {

ValueListModel::ValueListModel(Percentages percentages, QObject* parent)
    : QAbstractTableModel(parent), percentages_(percentages) {}

void ValueListModel::SetSetting(CPropertySetting* setting) {
  beginResetModel();
  m_pSetting = setting;
  endResetModel();
}

CValueSetting* ValueListModel::ValueAt(int row) const {
  if (row < 0 || row >= rowCount()) return nullptr;
  return m_pSetting->GetValues()[static_cast<std::size_t>(row)].get();
}

void ValueListModel::AddValue() {
  if (!m_pSetting) return;
  beginInsertRows({}, rowCount(), rowCount());
  m_pSetting->AddValue();
  endInsertRows();
}

void ValueListModel::RemoveValue(int row) {
  const CValueSetting* value = ValueAt(row);
  if (!value) return;
  beginRemoveRows({}, row, row);
  m_pSetting->RemoveValue(value);
  endRemoveRows();
  TellShares();
}

void ValueListModel::SetShare(const CValueSetting& value, float percent) {
  if (!m_pSetting) return;
  m_pSetting->SetShare(&value, percent);
  TellShares();
}

void ValueListModel::SetCoverage(float percent) {
  if (!m_pSetting) return;
  m_pSetting->SetCoverage(percent);
  emit headerDataChanged(Qt::Horizontal, kShare, kShare);
}

void ValueListModel::SetItem(int row, int position) {
  CValueSetting* value = ValueAt(row);
  if (!value) return;
  const auto stored = static_cast<std::int32_t>(position);
  value->StoreValue(&stored);
  emit dataChanged(index(row, kValue), index(row, kValue));
}

void ValueListModel::TellShares() {
  if (rowCount() > 0) emit dataChanged(index(0, kSlider), index(rowCount() - 1, kShare));
}

int ValueListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() || !m_pSetting ? 0 : static_cast<int>(m_pSetting->GetValues().size());
}

int ValueListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumnCount;
}

QVariant ValueListModel::data(const QModelIndex& index, int role) const {
  const CValueSetting* value = ValueAt(index.row());
  if (!value) return {};
  switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
      return Text(*value, index.column());
    case Qt::TextAlignmentRole:
      return QVariant(Qt::AlignVCenter | (index.column() == kShare ? Qt::AlignRight : Qt::AlignLeft));
    default:
      return {};
  }
}

QString ValueListModel::Text(const CValueSetting& value, int column) const {
  if (column == kValue) return DisplayText(value.FormatValue());
  if (column == kShare && percentages_ == Percentages::Shown)
    return QString::fromStdString(value.FormatShare());
  return {};
}

QVariant ValueListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) {
    return QVariant(Qt::AlignVCenter | (section == kShare ? Qt::AlignRight : Qt::AlignLeft));
  }
  if (role != Qt::DisplayRole) return {};
  const MemberDef* member = m_pSetting ? m_pSetting->GetMember() : nullptr;
  if (section == kValue) return member ? DisplayText(member->GetName()) : tr("(Value)");
  if (section != kShare) return QString();
  if (!m_pSetting) return QStringLiteral("%");
  if (percentages_ == Percentages::Hidden) return QString();
  return QString::fromStdString(FormatPercent(m_pSetting->GetCoverage()));
}

bool ValueListModel::setData(const QModelIndex& index, const QVariant& text, int role) {
  CValueSetting* value = ValueAt(index.row());
  if (!value || role != Qt::EditRole || index.column() != kValue) return false;
  // A text that was left as shown keeps its bytes, which need not be those that the shown characters are
  // written with.
  const bool isText = value->GetOwner().GetMember()->GetKind() == MemberKind::String;
  if (isText && text.toString() == Text(*value, kValue)) return true;
  value->StoreText(text.toString().toStdString());
  emit dataChanged(index, index);
  return true;
}

Qt::ItemFlags ValueListModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
  if (index.column() == kValue) flags |= Qt::ItemIsEditable;
  return flags;
}

}  // namespace quorvel
