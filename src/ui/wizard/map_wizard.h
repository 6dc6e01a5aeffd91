#pragma once

#include <vector>

#include <QDialog>

class QLabel;
class QPushButton;

namespace quorvel {

class CPropertyPage;

/// Bits of a set of wizard buttons.
enum WizardButtons : int { PSWIZB_BACK = 1, PSWIZB_NEXT = 2, PSWIZB_FINISH = 4 };
inline constexpr int kAllWizardButtons = PSWIZB_BACK | PSWIZB_NEXT | PSWIZB_FINISH;

inline constexpr int ID_WIZBACK = 12323;
inline constexpr int ID_WIZNEXT = 12324;
inline constexpr int ID_WIZFINISH = 12325;

/// The sheet around the pages that describe a new map or the filter.
class CMapWizard : public QDialog {
  Q_OBJECT

 public:
  explicit CMapWizard(QWidget* parent = nullptr);
  ~CMapWizard() override;

  /// Appends a page, which must outlive the wizard.
  void AddPage(CPropertyPage& page);

  /// Runs from the first page on. ID_WIZFINISH when the user pressed Finish; the pages' fields count only
  /// then.
  int DoModal();

  /// Shows the buttons that fit the active page's place, as far as `mask` has them, as soon as the page is
  /// up: Finish on the last page, Next on the others, and Back on all but the first.
  void UpdateWizardButtons(int mask);

 private:
  void BuildFrame();
  QPushButton* MakeButton(int id, const QString& text, void (CMapWizard::*pressed)());
  void SetActivePage(int index);
  void SetWizardButtons(int buttons);
  void Back();
  void Next();
  void Finish();

  std::vector<CPropertyPage*> pages_;
  int active_ = -1;
  QLabel* caption_ = nullptr;
  QLabel* purpose_ = nullptr;
  QWidget* pageArea_ = nullptr;
  QPushButton* back_ = nullptr;
  QPushButton* next_ = nullptr;
  QPushButton* finish_ = nullptr;
};

}  // namespace quorvel
