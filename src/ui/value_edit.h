#pragma once

#include <QLineEdit>

#include "data/member_def.h"

namespace quorvel {

/// A text box for a value of one kind of member. What is typed and is no such number is marked while it
/// stands there, and a description says what it will be taken for.
class ValueEdit : public QLineEdit {
  Q_OBJECT

 public:
  ValueEdit(MemberKind kind, QWidget* parent);

 private:
  void MarkText(const QString& text);

  const MemberKind kind_;
};

}  // namespace quorvel
