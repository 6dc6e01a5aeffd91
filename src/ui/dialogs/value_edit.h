#pragma once

#include <QLineEdit>

#include "data/member_def.h"

namespace quorvel {

/// A text box for a value of one kind of member. What is typed and is no such number is marked while it
/// stands there, and a tooltip says what it will be taken for.
class ValueEdit : public QLineEdit {
  Q_OBJECT

 public:
  /// A screen reader hears `description`, and as help the trouble with a text that is marked.
  ValueEdit(MemberKind kind, const QString& description, QWidget* parent);

 private:
  void Mark(const QString& trouble);

  const MemberKind kind_;
};

}  // namespace quorvel
