#pragma once

#include <QString>
#include <QWidget>

#include "ui/resources/dialog_templates.h"

namespace quorvel {

class CMapWizard;

/// Which way values go between a page's fields and its controls.
enum class Exchange { Load, Save };

/// A page of the wizard. Its controls are made when it is first shown; its fields outlive them and are read
/// after the wizard has ended. Pages belong to the caller, who keeps them longer than the wizard.
class CPropertyPage : public QWidget {
  Q_OBJECT

 public:
  explicit CPropertyPage(const DialogTemplate& source);

  QString Caption() const;
  /// One sentence on what the page is for, shown below its caption.
  virtual QString Purpose() const = 0;

  /// Makes the controls, once; later calls change nothing.
  void Create();

  /// Puts the keyboard focus on the first control that takes it.
  void FocusFirstControl();

  /// Called whenever the page comes up, and for the button that leaves it.
  virtual void OnSetActive();
  virtual void OnWizardBack() { UpdateData(Exchange::Save); }
  virtual void OnWizardNext() { UpdateData(Exchange::Save); }
  virtual void OnWizardFinish() { UpdateData(Exchange::Save); }

  /// Moves values between fields and controls; nothing happens before the controls are made.
  void UpdateData(Exchange direction);

 protected:
  /// The page's own control for a row of its template; null for the usual one.
  virtual QWidget* MakeControl(const ControlRow&) { return nullptr; }
  /// The first thing after the controls are made. The base loads the fields into them.
  virtual void OnInitDialog() { UpdateData(Exchange::Load); }
  virtual void DoDataExchange(Exchange) {}

 private:
  const DialogTemplate& source_;
  bool isCreated_ = false;
};

}  // namespace quorvel
