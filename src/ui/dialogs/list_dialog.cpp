#include "ui/dialogs/list_dialog.h"

#include <QListWidget>

#include "ui/dialogs/dialog_builder.h"

namespace quorvel {

ListDialog::ListDialog(const DialogTemplate& source, int listId, QWidget* parent) : QDialog(parent) {
  BuildDialog(source, *this);
  m_pList = FindControl<QListWidget>(*this, listId);
  connect(m_pList, &QListWidget::itemDoubleClicked, this, &ListDialog::accept);
  connect(m_pList, &QListWidget::itemSelectionChanged, this, &ListDialog::KeepChoice);
}

void ListDialog::SetChoices(const QStringList& choices, int selected) {
  m_nSelected = selected;
  m_pList->clear();
  m_pList->addItems(choices);
  m_pList->setCurrentRow(selected >= 0 && selected < choices.size() ? selected : -1);
  m_pList->setFocus();
}

/// Ctrl and a click, or Ctrl and the space bar, would take the choice away.
void ListDialog::KeepChoice() {
  QListWidgetItem* current = m_pList->currentItem();
  if (current && m_pList->selectedItems().isEmpty()) current->setSelected(true);
}

void ListDialog::accept() {
  m_nSelected = m_pList->selectedItems().isEmpty() ? -1 : m_pList->currentRow();
  QDialog::accept();
}

}  // namespace quorvel
