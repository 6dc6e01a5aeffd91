#pragma once

#include <QDialog>
#include <QStringList>

#include "ui/resources/dialog_templates.h"

class QListWidget;

namespace quorvel {

/// A modal dialog with one list to choose from, OK and Cancel. A double click on an entry is OK. A choice
/// once made can be changed, but not taken back.
class ListDialog : public QDialog {
  Q_OBJECT

 public:
  /// `listId` is the list box's number in the template.
  ListDialog(const DialogTemplate& source, int listId, QWidget* parent);

  /// Offers `choices` with the one at `selected` chosen; a position outside them chooses none.
  void SetChoices(const QStringList& choices, int selected);

  /// The position chosen when OK was pressed, before that the one given; -1 for none.
  int GetSelected() const { return m_nSelected; }

  void accept() override;

 private:
  void KeepChoice();

  QListWidget* m_pList;
  int m_nSelected = -1;
};

}  // namespace quorvel
