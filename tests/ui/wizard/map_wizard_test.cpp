#include "ui/wizard/map_wizard.h"

#include <memory>
#include <vector>

#include <QAbstractButton>
#include <gtest/gtest.h>

#include "tests/ui/modal_script.h"
#include "ui/wizard/property_page.h"

namespace quorvel {
namespace {

constexpr ControlRow kNoteControls[] = {{ControlKind::Label, IDC_STATIC, {7, 7, 40, 8}, "Note"}};
constexpr DialogTemplate kNoteTemplate = {900, 100, 40, "Note", kNoteControls};

/// Writes down what the wizard asks of it.
class NotePage : public CPropertyPage {
 public:
  NotePage() : CPropertyPage(kNoteTemplate) {}

  QString Purpose() const override { return QStringLiteral("Takes notes."); }
  void OnSetActive() override {
    notes += "active ";
    if (mask == kAllWizardButtons) return CPropertyPage::OnSetActive();
    static_cast<CMapWizard*>(window())->UpdateWizardButtons(mask);
  }
  void OnWizardBack() override { notes += "back "; }
  void OnWizardNext() override { notes += "next "; }
  void OnWizardFinish() override { notes += "finish "; }

  int mask = kAllWizardButtons;
  std::string notes;

 protected:
  void OnInitDialog() override { notes += "init "; }
};

struct Sheet {
  explicit Sheet(int pageCount) {
    for (int i = 0; i < pageCount; ++i) wizard.AddPage(*pages.emplace_back(std::make_unique<NotePage>()));
  }

  std::string Buttons() {
    QApplication::processEvents();
    std::string shown;
    for (const auto& [id, name] :
         {std::pair{ID_WIZBACK, "back "}, {ID_WIZNEXT, "next "}, {ID_WIZFINISH, "finish "}}) {
      const auto* button = FindControl<QAbstractButton>(wizard, id);
      if (button->isVisible() && button->isEnabled()) shown += name;
    }
    return shown;
  }

  std::vector<std::unique_ptr<NotePage>> pages;
  CMapWizard wizard;
};

TEST(MapWizard, ShowsTheButtonsThatFitThePlace) {
  const std::vector<std::vector<std::string>> rows = {
      {"finish "},
      {"next ", "back finish "},
      {"next ", "back next ", "back finish "},
      {"next ", "back next ", "back next ", "back next ", "back finish "},
  };
  for (const auto& expected : rows) {
    SCOPED_TRACE(expected.size());
    Sheet sheet(static_cast<int>(expected.size()));
    WhenModal([&](QDialog& dialog) {
      for (std::size_t page = 0; page < expected.size(); ++page) {
        EXPECT_EQ(sheet.Buttons(), expected[page]) << "page " << page;
        Press(dialog, ID_WIZNEXT);
      }
    });
    EXPECT_EQ(sheet.wizard.DoModal(), IDCANCEL);
  }
}

TEST(MapWizard, KeepsOnlyTheButtonsOfTheMask) {
  Sheet sheet(3);
  sheet.pages[1]->mask = PSWIZB_NEXT;
  WhenModal([&](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Note") << "called as its page";
    Press(dialog, ID_WIZNEXT);
    EXPECT_EQ(sheet.Buttons(), "next ");
  });
  sheet.wizard.DoModal();
}

TEST(MapWizard, TellsPagesWhatHappensToThem) {
  Sheet sheet(2);
  WhenModal([&](QDialog& dialog) {
    EXPECT_EQ(sheet.pages[1]->notes, "") << "a page is made when it is first shown";
    Press(dialog, ID_WIZNEXT);
    Press(dialog, ID_WIZBACK);
    Press(dialog, ID_WIZNEXT);
    Press(dialog, ID_WIZFINISH);
  });
  EXPECT_EQ(sheet.wizard.DoModal(), ID_WIZFINISH);
  EXPECT_EQ(sheet.pages[0]->notes, "init active next active next ");
  EXPECT_EQ(sheet.pages[1]->notes, "init active back active finish ");
}

TEST(MapWizard, CancelIsNoFinish) {
  Sheet sheet(1);
  WhenModal([](QDialog& dialog) { Press(dialog, IDCANCEL); });
  EXPECT_NE(sheet.wizard.DoModal(), ID_WIZFINISH);
  EXPECT_EQ(sheet.pages[0]->notes, "init active ");
}

}  // namespace
}  // namespace quorvel
