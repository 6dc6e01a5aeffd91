#include "ui/dialogs/qt_prompts.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

#include "render/display_text.h"
#include "ui/dialogs/new_type_dialog.h"
#include "ui/resources/command_ids.h"
#include "ui/resources/shown_text.h"
#include "ui/resources/string_table.h"

namespace quorvel {
namespace {

QMessageBox::StandardButtons ButtonsOf(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::Ok:
      return QMessageBox::Ok;
    case MessageButtons::OkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageButtons::YesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MessageButtons::SaveDiscardCancel:
      return QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel;
  }
  return QMessageBox::Ok;
}

Answer AnswerOf(int button) {
  switch (button) {
    case QMessageBox::Ok:
      return Answer::Ok;
    case QMessageBox::Yes:
      return Answer::Yes;
    case QMessageBox::No:
      return Answer::No;
    case QMessageBox::Save:
      return Answer::Save;
    case QMessageBox::Discard:
      return Answer::Discard;
    default:
      return Answer::Cancel;
  }
}

/// A suffix is added to a name typed without one, that of the chosen type.
void FollowChosenType(QFileDialog& dialog, const std::vector<FileFilter>& filters) {
  const auto setSuffix = [&dialog, &filters](const QString& chosen) {
    for (const FileFilter& filter : filters) {
      if (DisplayText(filter.name) == chosen)
        dialog.setDefaultSuffix(QString::fromStdString(filter.extension));
    }
  };
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, setSuffix);
  setSuffix(dialog.selectedNameFilter());
}

/// Fills the dialog with what the prompt says; `folder` where the prompt names none.
void Prepare(QFileDialog& dialog, const FilePrompt& prompt, const QString& folder) {
  if (!prompt.title.empty()) dialog.setWindowTitle(DisplayText(prompt.title));
  QStringList filters;
  for (const FileFilter& filter : prompt.filters) filters << DisplayText(filter.name);
  if (!filters.isEmpty()) dialog.setNameFilters(filters);
  const QString start = prompt.folder.empty() ? folder : QFile::decodeName(prompt.folder.c_str());
  if (!start.isEmpty()) dialog.setDirectory(start);
  if (!prompt.name.empty()) dialog.selectFile(QFile::decodeName(prompt.name.c_str()));
}

QString FolderOf(const std::string& path) {
  return QFileInfo(QFile::decodeName(path.c_str())).path();
}

std::optional<std::string> Run(QFileDialog& dialog) {
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString();
}

}  // namespace

Answer QtPrompts::Message(const std::string& text, MessageButtons buttons, MessageIcon icon,
                          const std::string& whatsThis) {
  QMessageBox box(QApplication::activeWindow());
  box.setWindowTitle(FromResource(FindString(IDS_APP_TITLE).text));
  box.setTextFormat(Qt::PlainText);
  box.setText(DisplayText(text));
  box.setWhatsThis(DisplayText(whatsThis));
  box.setIcon(icon == MessageIcon::Exclamation ? QMessageBox::Warning : QMessageBox::NoIcon);
  box.setStandardButtons(ButtonsOf(buttons));
  if (buttons == MessageButtons::SaveDiscardCancel) box.setDefaultButton(QMessageBox::Save);
  if (buttons == MessageButtons::YesNoCancel) box.setDefaultButton(QMessageBox::Yes);
  return AnswerOf(box.exec());
}

std::optional<std::string> QtPrompts::OpenFileName(const FilePrompt& prompt) {
  QFileDialog dialog(QApplication::activeWindow());
  dialog.setFileMode(QFileDialog::ExistingFile);
  Prepare(dialog, prompt, folder_);
  if (dialog.nameFilters().contains(filter_)) dialog.selectNameFilter(filter_);
  FollowChosenType(dialog, prompt.filters);
  std::optional<std::string> name = Run(dialog);
  filter_ = dialog.selectedNameFilter();
  if (name && prompt.folder.empty()) folder_ = FolderOf(*name);
  return name;
}

std::optional<std::string> QtPrompts::SaveFileName(const FilePrompt& prompt) {
  QFileDialog dialog(QApplication::activeWindow());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  Prepare(dialog, prompt, folder_);
  FollowChosenType(dialog, prompt.filters);
  std::optional<std::string> name = Run(dialog);
  if (name) folder_ = FolderOf(*name);
  return name;
}

std::optional<std::size_t> QtPrompts::SelectType(const std::vector<std::string>& types) {
  QStringList names;
  for (const std::string& type : types) names << DisplayText(type);
  CNewTypeDialog dialog(QApplication::activeWindow());
  dialog.SetChoices(names, 0);
  if (dialog.exec() != QDialog::Accepted || dialog.GetSelected() < 0) return std::nullopt;
  return static_cast<std::size_t>(dialog.GetSelected());
}

}  // namespace quorvel
